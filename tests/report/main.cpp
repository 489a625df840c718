#include "report/TestCompatibilityMatrix.h"
#include "report/TestReport.h"
#include "report/TestReportCalendar.h"
#include "report/TestReportStream.h"
#include "report/TestReportText.h"
#include "report/TestTextCharset.h"
#include "support/Hermetic.h"

#include <QApplication>

QUOR_TEST_MAIN(QApplication, quor::test::TestCompatibilityMatrix, quor::test::TestReport,
               quor::test::TestReportCalendar, quor::test::TestReportStream,
               quor::test::TestReportText, quor::test::TestTextCharset)
