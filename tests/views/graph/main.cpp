#include "support/Hermetic.h"
#include "views/graph/TestFGrSetOpt.h"
#include "views/graph/TestFGrphSet.h"
#include "views/graph/TestWeekDrawing.h"
#include "views/graph/TestWeekPlot.h"
#include "views/graph/TestWeekState.h"

#include <QApplication>

QUOR_TEST_MAIN(QApplication, quor::test::TestFGrSetOpt, quor::test::TestFGrphSet,
               quor::test::TestWeekDrawing, quor::test::TestWeekPlot, quor::test::TestWeekState)
