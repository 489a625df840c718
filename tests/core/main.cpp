#include "core/TestBiorhythm.h"
#include "core/TestCycles.h"
#include "core/TestDateEntry.h"
#include "core/TestDates.h"
#include "core/TestPrintable.h"
#include "core/TestRounding.h"
#include "core/TestSystemMean.h"
#include "support/Hermetic.h"

#include <QCoreApplication>

QUOR_TEST_MAIN(QCoreApplication, quor::test::TestBiorhythm, quor::test::TestCycles,
               quor::test::TestDateEntry, quor::test::TestDates, quor::test::TestPrintable,
               quor::test::TestRounding, quor::test::TestSystemMean)
