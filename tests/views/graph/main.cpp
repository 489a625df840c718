#include "support/Hermetic.h"
#include "views/graph/TestDaysEntry.h"
#include "views/graph/TestFGrOpt.h"
#include "views/graph/TestFGrSetOpt.h"
#include "views/graph/TestFGrph.h"
#include "views/graph/TestFGrphMed.h"
#include "views/graph/TestFGrphSet.h"
#include "views/graph/TestGraphDrawing.h"
#include "views/graph/TestGraphPlot.h"
#include "views/graph/TestGraphSeries.h"
#include "views/graph/TestGraphText.h"
#include "views/graph/TestWeekDrawing.h"
#include "views/graph/TestWeekPlot.h"
#include "views/graph/TestWeekState.h"

#include <QApplication>

QUOR_TEST_MAIN(QApplication, quor::test::TestDaysEntry, quor::test::TestFGrOpt,
               quor::test::TestFGrSetOpt, quor::test::TestFGrph, quor::test::TestFGrphMed,
               quor::test::TestFGrphSet, quor::test::TestGraphDrawing, quor::test::TestGraphPlot,
               quor::test::TestGraphSeries, quor::test::TestGraphText, quor::test::TestWeekDrawing,
               quor::test::TestWeekPlot, quor::test::TestWeekState)
