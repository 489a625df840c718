#include "export/cups/TestCups.h"

#include "export/PrintDocument.h"
#include "export/PrintQueueJob.h"
#include "export/SystemPrintDialog.h"

#include "export/PrintingFixture.h"
#include "support/ScriptedDialogs.h"

#include <QApplication>
#include <QPrinter>
#include <QPrinterInfo>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

QString queue() {
    return qEnvironmentVariable("QUOR_TEST_QUEUE");
}

PrintableDocument threePages() {
    return {.pdf = pdfWithPages({u"uno"_s, u"due"_s, u"tre"_s}), .name = u"prova"_s};
}

bool printed() {
    return QTest::qWaitFor(
        [] { return QCoreApplication::instance()->findChild<PrintQueueJob*>() == nullptr; }, 60000);
}

} // namespace

void TestCups::theDialogKnowsTheQueue() {
    QVERIFY(QPrinterInfo::availablePrinterNames().contains(queue()));
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrinterName(queue());
    QVERIFY(printer.isValid());
    printer.setCopyCount(2);
    printer.setPageLayout(layoutOf({.paper = {210, 148}}));
    printer.setColorMode(QPrinter::GrayScale);
    printer.setPageOrder(QPrinter::LastPageFirst);
    const PrintChoice choice = printChoice(printer, 3);
    QCOMPARE(choice.printer, queue());
    QVERIFY(choice.file.isEmpty());
    QCOMPARE(choice.copies, 2);
    QVERIFY(
        choice.sheet.isLike({.paper = {210, 148}, .margins = choice.sheet.margins, .grey = true}));
    for (const QString& option :
         {u"media=A5"_s, u"print-color-mode=monochrome"_s, u"outputorder=reverse"_s}) {
        QVERIFY2(choice.options.contains(option), qPrintable(choice.options.join(u' ')));
    }
}

void TestCups::printsChosenPages() {
    ScriptedDialogs dialogs;
    dialogs.expectPrint(u"Stampa"_s, u"prova"_s, 3,
                        PrintChoice{.printer = queue(),
                                    .file = {},
                                    .copies = 2,
                                    .pages = {{.first = 2, .last = 3}},
                                    .options = {u"media=A4"_s, u"sides=one-sided"_s}});
    printDocument(nullptr, threePages());
    QVERIFY(printed());
}

void TestCups::printsOnAnotherSheet() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrinterName(queue());
    printer.setPageLayout(layoutOf({.paper = {210, 148}}));
    QByteArray pdf;
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setPageLayout(layoutOf({.paper = {210, 148}, .margins = {}}));
        QPainter painter(&writer);
        const QRect sheet = writer.pageLayout().fullRectPixels(writer.resolution());
        // Twenty millimetres from the left, thirty from the top.
        painter.fillRect(QRect(sheet.width() * 20 / 210, sheet.height() * 30 / 148,
                               sheet.width() * 100 / 210, sheet.height() * 50 / 148),
                         Qt::black);
    }
    ScriptedDialogs dialogs;
    dialogs.expectPrint(u"Stampa"_s, u"prova"_s, 1, printChoice(printer, 1));
    printDocument(nullptr, {.pdf = pdf, .name = u"prova"_s});
    QVERIFY(printed());
}

void TestCups::paintsWithoutTheHandOverProgram() {
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "/nonexistent");
    ScriptedDialogs dialogs;
    dialogs.expectPrint(
        u"Stampa"_s, u"prova"_s, 3,
        PrintChoice{.printer = queue(), .file = {}, .pages = {{.first = 1, .last = 2}}});
    printDocument(nullptr, threePages());
    qputenv("PATH", path);
}

void TestCups::reportsAnUnknownQueue() {
    class Listener : public ScriptedDialogs {
      public:
        Answer message(QWidget* /*parent*/, const MessageBox& box) override {
            texts << box.text;
            return Answer::ok;
        }
        QStringList texts;
    };
    Listener dialogs;
    dialogs.expectPrint(u"Stampa"_s, u"prova"_s, 3,
                        PrintChoice{.printer = u"Nessuna"_s, .file = {}});
    printDocument(nullptr, threePages());
    QVERIFY(printed());
    QCOMPARE(dialogs.texts.size(), 1);
    // What follows is in the words of the print system.
    QVERIFY(dialogs.texts.constFirst().startsWith(
        u"La stampante \"Nessuna\" non accetta la stampa.\n"_s));
}

} // namespace quor::test
