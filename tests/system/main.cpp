#include "support/Hermetic.h"
#include "system/TestFProj.h"
#include "system/TestSystemOperations.h"
#include "system/TestSystemTreeModel.h"

#include <QApplication>

QUOR_TEST_MAIN(QApplication, quor::test::TestFProj, quor::test::TestSystemOperations,
               quor::test::TestSystemTreeModel)
