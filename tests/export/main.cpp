#include "export/TestExportBatch.h"
#include "export/TestExportNames.h"
#include "export/TestExportPictures.h"
#include "export/TestExportPng.h"
#include "export/TestExportRun.h"
#include "export/TestHtmlText.h"
#include "export/TestLeftProducts.h"
#include "export/TestSummaryPage.h"
#include "support/Hermetic.h"

#include <QGuiApplication>

QUOR_TEST_MAIN(QGuiApplication, quor::test::TestExportNames, quor::test::TestSummaryPage,
               quor::test::TestExportPng, quor::test::TestExportPictures, quor::test::TestExportRun,
               quor::test::TestExportBatch, quor::test::TestHtmlText, quor::test::TestLeftProducts)
