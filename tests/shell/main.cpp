#include "shell/TestBiorhythmViews.h"
#include "shell/TestChildArrangement.h"
#include "shell/TestCommandLine.h"
#include "shell/TestCommandStates.h"
#include "shell/TestEndRequests.h"
#include "shell/TestExportCommands.h"
#include "shell/TestFIns.h"
#include "shell/TestFileDrop.h"
#include "shell/TestFolders.h"
#include "shell/TestFramePlace.h"
#include "shell/TestGuide.h"
#include "shell/TestLocks.h"
#include "shell/TestMDIForm1.h"
#include "shell/TestMaximisedChild.h"
#include "shell/TestRecentFiles.h"
#include "shell/TestRecovery.h"
#include "shell/TestStateFile.h"
#include "shell/TestSystemCommands.h"
#include "support/Hermetic.h"

#include <QApplication>

QUOR_TEST_MAIN(QApplication, quor::test::TestBiorhythmViews, quor::test::TestChildArrangement,
               quor::test::TestCommandLine, quor::test::TestCommandStates,
               quor::test::TestEndRequests, quor::test::TestExportCommands, quor::test::TestFIns,
               quor::test::TestFolders, quor::test::TestGuide, quor::test::TestLocks,
               quor::test::TestMDIForm1, quor::test::TestMaximisedChild, quor::test::TestRecovery,
               quor::test::TestStateFile, quor::test::TestFramePlace, quor::test::TestRecentFiles,
               quor::test::TestFileDrop, quor::test::TestSystemCommands)
