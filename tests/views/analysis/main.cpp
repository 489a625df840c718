#include "support/Hermetic.h"
#include "views/analysis/TestCompatibility.h"
#include "views/analysis/TestDayState.h"
#include "views/analysis/TestFComp.h"
#include "views/analysis/TestFPrev.h"
#include "views/analysis/TestFPrevMed.h"
#include "views/analysis/TestFStat.h"
#include "views/analysis/TestFStatMed.h"
#include "views/analysis/TestForecast.h"
#include "views/analysis/TestReference.h"
#include "views/analysis/TestStateBars.h"
#include "views/analysis/TestStatePlot.h"
#include "views/analysis/TestSystemReference.h"

#include <QApplication>

QUOR_TEST_MAIN(QApplication, quor::test::TestDayState, quor::test::TestStatePlot,
               quor::test::TestForecast, quor::test::TestReference, quor::test::TestSystemReference,
               quor::test::TestStateBars, quor::test::TestFStat, quor::test::TestFStatMed,
               quor::test::TestFPrev, quor::test::TestFPrevMed, quor::test::TestCompatibility,
               quor::test::TestFComp)
