#include "TestFAbout.h"
#include "TestFFastStart.h"
#include "TestFOpt.h"
#include "TestFProcGuid.h"
#include "TestHelpKey.h"
#include "TestHelpPages.h"
#include "TestHelpService.h"

#include "support/Hermetic.h"

#include <QApplication>

QUOR_TEST_MAIN(QApplication, quor::test::TestHelpPages, quor::test::TestHelpService,
               quor::test::TestHelpKey, quor::test::TestFAbout, quor::test::TestFOpt,
               quor::test::TestFFastStart, quor::test::TestFProcGuid)
