#include "storage/TestBiorhythmFile.h"
#include "storage/TestFileKind.h"
#include "storage/TestLineNotation.h"
#include "storage/TestNamedFile.h"
#include "storage/TestRecoveryStore.h"
#include "storage/TestRunLock.h"
#include "storage/TestSystemFile.h"
#include "storage/TestWholeFile.h"
#include "support/Hermetic.h"

#include <QCoreApplication>

QUOR_TEST_MAIN(QCoreApplication, quor::test::TestBiorhythmFile, quor::test::TestFileKind,
               quor::test::TestLineNotation, quor::test::TestNamedFile,
               quor::test::TestRecoveryStore, quor::test::TestRunLock, quor::test::TestSystemFile,
               quor::test::TestWholeFile)
