#include "accessibility/TestActions.h"
#include "accessibility/TestChildKeys.h"
#include "accessibility/TestWindowFaults.h"
#include "accessibility/TestWindows.h"
#include "support/Hermetic.h"

#include <QApplication>

QUOR_TEST_MAIN(QApplication, quor::test::TestActions, quor::test::TestChildKeys,
               quor::test::TestWindowFaults, quor::test::TestWindows)
