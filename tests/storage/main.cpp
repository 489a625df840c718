#include "storage/TestBiorhythmFile.h"
#include "storage/TestLineNotation.h"
#include "storage/TestSystemFile.h"
#include "support/Hermetic.h"

#include <QCoreApplication>

QUOR_TEST_MAIN(QCoreApplication, quor::test::TestBiorhythmFile, quor::test::TestLineNotation,
               quor::test::TestSystemFile)
