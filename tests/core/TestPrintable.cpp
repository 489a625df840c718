#include "core/TestPrintable.h"

#include "core/Printable.h"

#include "support/Hermetic.h"

using namespace Qt::StringLiterals;

namespace quor::test {

void TestPrintable::lettersStay() {
    QCOMPARE(printable(u"Niccolò D'Amico"_s), u"Niccolò D'Amico"_s);
    QCOMPARE(printable({}), QString());
}

void TestPrintable::commandsAreQuestionMarks() {
    QCOMPARE(printable(u"a\x1b[31m\n\t\x7f\x9b\u202Eb😀"_s), u"a?[31m?????b😀"_s);
}

} // namespace quor::test
