#include "support/Hermetic.h"
#include "toolkit/TestBusyCursor.h"
#include "toolkit/TestCommands.h"
#include "toolkit/TestDialogs.h"
#include "toolkit/TestDrawing.h"
#include "toolkit/TestItemChoice.h"
#include "toolkit/TestLateInput.h"
#include "toolkit/TestLineText.h"
#include "toolkit/TestListEscape.h"
#include "toolkit/TestLongCurves.h"
#include "toolkit/TestPictures.h"
#include "toolkit/TestSettingsStore.h"
#include "toolkit/TestToolTipText.h"
#include "toolkit/TestWindowTitle.h"

#include <QApplication>

QUOR_TEST_MAIN(QApplication, quor::test::TestBusyCursor, quor::test::TestCommands,
               quor::test::TestDialogs, quor::test::TestDrawing, quor::test::TestItemChoice,
               quor::test::TestLateInput, quor::test::TestLineText, quor::test::TestListEscape,
               quor::test::TestLongCurves, quor::test::TestPictures, quor::test::TestSettingsStore,
               quor::test::TestToolTipText, quor::test::TestWindowTitle)
