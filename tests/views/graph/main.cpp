#include "support/Hermetic.h"
#include "views/graph/TestDaysEntry.h"
#include "views/graph/TestFGrOpt.h"
#include "views/graph/TestFGrph.h"
#include "views/graph/TestGraphDrawing.h"
#include "views/graph/TestGraphPlot.h"

#include <QApplication>

QUOR_TEST_MAIN(QApplication, quor::test::TestDaysEntry, quor::test::TestFGrOpt,
               quor::test::TestFGrph, quor::test::TestGraphDrawing, quor::test::TestGraphPlot)
