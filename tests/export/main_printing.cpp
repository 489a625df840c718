#include "TestPdfPages.h"
#include "TestPreviewWindow.h"
#include "TestPrintDocument.h"
#include "TestWebBrowser.h"

#include "support/Hermetic.h"

#include <QApplication>

QUOR_TEST_MAIN(QApplication, quor::test::TestPdfPages, quor::test::TestPrintDocument,
               quor::test::TestWebBrowser, quor::test::TestPreviewWindow)
