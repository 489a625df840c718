#include "export/TestFEspBio.h"
#include "export/TestFStampaBio.h"
#include "support/Hermetic.h"

#include <QApplication>

QUOR_TEST_MAIN(QApplication, quor::test::TestFEspBio, quor::test::TestFStampaBio)
