#include "looks/TestLookFaults.h"
#include "looks/TestLooks.h"
#include "looks/TestSharpness.h"
#include "support/Hermetic.h"

#include <QApplication>

/// All of it at one pixel of the screen for each of a window's; where there are more, what could be
/// magnified.
int main(int argc, char** argv) {
    using namespace quor::test;
    const QByteArray scale = qgetenv("QUOR_TEST_SCALE");
    if (scale.isEmpty() || scale == "1") {
        return runAll<QApplication, TestLookFaults, TestLooks, TestSharpness>(argc, argv);
    }
    return runAll<QApplication, TestSharpness>(argc, argv);
}
