#include "export/TestPrintDocument.h"

#include "export/PrintDocument.h"
#include "export/PrintQueueJob.h"
#include "export/SystemPrintDialog.h"

#include "export/PrintingFixture.h"
#include "support/ScriptedDialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPageRanges>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>

#include <functional>
#include <memory>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr int patience = 30000; // milliseconds, on a busy machine

/// The programs that can be found while it lives: those of one folder.
class SearchPath {
  public:
    explicit SearchPath(const QString& folder) { qputenv("PATH", folder.toLocal8Bit()); }
    ~SearchPath() { qputenv("PATH", m_previous); }
    SearchPath(const SearchPath&) = delete;
    SearchPath& operator=(const SearchPath&) = delete;
    SearchPath(SearchPath&&) = delete;
    SearchPath& operator=(SearchPath&&) = delete;

  private:
    QByteArray m_previous = qgetenv("PATH");
};

PrintableDocument twoPages() {
    return {.pdf = pdfWithPages({u"uno"_s, u"due"_s}), .name = u"Maria_stampa_Riepilogo"_s};
}

void expectPrint(ScriptedDialogs& dialogs, const std::optional<PrintChoice>& choice) {
    dialogs.expectPrint(u"Stampa"_s, u"Maria_stampa_Riepilogo"_s, 2, choice);
}

bool hasInk(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            if (colour.alpha() > 128 && colour.lightness() < 128) {
                return true;
            }
        }
    }
    return false;
}

bool jobsAreDone() {
    return QCoreApplication::instance()->findChild<PrintQueueJob*>() == nullptr;
}

} // namespace

void TestPrintDocument::initTestCase() {
    // No print system of the machine has a say here.
    qputenv("CUPS_SERVER", "/nonexistent/cups.sock");
}

void TestPrintDocument::cancelledPrintsNothing() {
    const QTemporaryDir folder;
    const SearchPath path(folder.path());
    ScriptedDialogs dialogs;
    expectPrint(dialogs, std::nullopt);
    printDocument(nullptr, twoPages());
    QVERIFY(dialogs.finished());
    QVERIFY(jobsAreDone());
}

void TestPrintDocument::aFileGetsTheVeryPages() {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"pagine di Niccolò.pdf"_s);
    const PrintableDocument document = twoPages();
    ScriptedDialogs dialogs;
    expectPrint(dialogs, PrintChoice{.printer = {}, .file = file});
    printDocument(nullptr, document);
    QCOMPARE(contentOf(file), document.pdf);
}

void TestPrintDocument::aFileGetsChosenPages() {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"pagine.pdf"_s);
    ScriptedDialogs dialogs;
    expectPrint(dialogs,
                PrintChoice{.printer = {}, .file = file, .pages = {{.first = 2, .last = 2}}});
    printDocument(nullptr, twoPages());
    QCOMPARE(textsOf(contentOf(file)), QStringList({u"due"_s}));
}

void TestPrintDocument::aFileGetsItsCopies_data() {
    QTest::addColumn<bool>("collate");
    QTest::addColumn<bool>("reverse");
    QTest::addColumn<QString>("pages");
    QTest::newRow("collated") << true << false << u"uno due uno due"_s;
    QTest::newRow("page by page") << false << false << u"uno uno due due"_s;
    QTest::newRow("the last one first") << true << true << u"due uno due uno"_s;
}

void TestPrintDocument::aFileGetsItsCopies() {
    QFETCH(const bool, collate);
    QFETCH(const bool, reverse);
    QFETCH(const QString, pages);
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"pagine.pdf"_s);
    ScriptedDialogs dialogs;
    expectPrint(
        dialogs,
        PrintChoice{
            .printer = {}, .file = file, .copies = 2, .collate = collate, .reverse = reverse});
    printDocument(nullptr, twoPages());
    QCOMPARE(textsOf(contentOf(file)).join(u' '), pages);
}

void TestPrintDocument::anotherSheetIsLaidOutAnew() {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"pagine.pdf"_s);
    std::vector<Sheet> asked;
    PrintableDocument document = twoPages();
    const QByteArray anew = pdfWithPages({u"tutto"_s});
    document.layOut = [&](QWidget* /*window*/, const Sheet& sheet, const auto& then) {
        asked.push_back(sheet);
        then(anew);
    };
    const auto printWith = [&](const Sheet& sheet) {
        ScriptedDialogs dialogs;
        expectPrint(dialogs, PrintChoice{.printer = {}, .file = file, .sheet = sheet});
        printDocument(nullptr, document);
        return contentOf(file);
    };
    const Sheet nearlyTheSame{.paper = {209.9, 297.04}, .margins = {10, 10.1, 9.9, 10}};
    QCOMPARE(printWith(nearlyTheSame), document.pdf);
    QVERIFY(asked.empty());
    for (const Sheet& other :
         {Sheet{.paper = {297, 210}}, Sheet{.margins = {10, 10, 10, 20}}, Sheet{.grey = true}}) {
        QCOMPARE(printWith(other), anew);
        QVERIFY(asked.back().isLike(other));
    }
    QCOMPARE(asked.size(), 3U);
}

void TestPrintDocument::pagesThatTheSheetDoesNotHaveAreReported() {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"pagine.pdf"_s);
    ScriptedDialogs dialogs;
    PrintableDocument document = twoPages();
    document.layOut = [](QWidget* /*window*/, const Sheet& /*sheet*/, const auto& then) {
        then(pdfWithPages({u"tutto"_s}));
    };
    expectPrint(dialogs, PrintChoice{.printer = {},
                                     .file = file,
                                     .pages = {{.first = 2, .last = 2}},
                                     .sheet = {.grey = true}});
    dialogs.expectBox(u"Stampa"_s,
                      u"Su questo foglio le pagine sono 1: di quelle scelte non ce n'è nessuna."_s);
    printDocument(nullptr, document);
    QVERIFY(dialogs.finished());
    QVERIFY(!QFileInfo::exists(file));
}

void TestPrintDocument::aFileThatCannotBeWrittenIsReported() {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"manca/pagine.pdf"_s);
    ScriptedDialogs dialogs;
    expectPrint(dialogs, PrintChoice{.printer = {}, .file = file});
    dialogs.expectBox(u"Stampa"_s, u"Impossibile scrivere il file \"%1\"."_s.arg(file));
    printDocument(nullptr, twoPages());
    QVERIFY(dialogs.finished());
}

void TestPrintDocument::nothingButAFileMakesWay() {
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pagine.pdf"_s);
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    ScriptedDialogs dialogs;
    expectPrint(dialogs, PrintChoice{.printer = {}, .file = pipe});
    dialogs.expectBox(u"Stampa"_s, u"Impossibile scrivere il file \"%1\"."_s.arg(pipe));
    printDocument(nullptr, twoPages());
    QVERIFY(dialogs.finished());
    QVERIFY(!QFileInfo(pipe).isFile());
}

void TestPrintDocument::pagesThatCannotBeChosenArePainted() {
    PrintableDocument document = twoPages();
    document.pdf += "%trailer\n"; // a comment that hides where its table is
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"pagine.pdf"_s);
    ScriptedDialogs dialogs;
    expectPrint(dialogs,
                PrintChoice{.printer = {}, .file = file, .pages = {{.first = 2, .last = 2}}});
    // Without help of a disk, which may be full.
    const QByteArray temporary = qgetenv("TMPDIR");
    qputenv("TMPDIR", QFile::encodeName(folder.filePath(u"manca"_s)));
    printDocument(nullptr, document);
    if (temporary.isNull()) {
        qunsetenv("TMPDIR");
    } else {
        qputenv("TMPDIR", temporary);
    }
    QVERIFY(dialogs.finished());
    QByteArray painted = contentOf(file);
    QBuffer buffer(&painted);
    buffer.open(QIODevice::ReadOnly);
    QPdfDocument pages;
    pages.load(&buffer);
    QCOMPARE(pages.pageCount(), 1);
    QCOMPARE(pages.pagePointSize(0).toSize(), QPageSize::sizePoints(QPageSize::A4));
    QVERIFY(hasInk(pages.render(0, pages.pagePointSize(0).toSize())));
    QCOMPARE(textsOf(painted), QStringList({QString()})); // it is a picture
}

void TestPrintDocument::aQueueGetsTheVeryFile() {
    const QTemporaryDir folder;
    const QString arguments = folder.filePath(u"arguments"_s);
    const QString received = folder.filePath(u"received"_s);
    writeScript(folder.filePath(u"lp"_s), "printf '%s\\n' \"$@\" > '" + arguments.toLocal8Bit() +
                                              "'\nexec /bin/cat > '" + received.toLocal8Bit() +
                                              "'\n");
    const SearchPath path(folder.path());
    const PrintableDocument document = twoPages();
    ScriptedDialogs dialogs;
    expectPrint(dialogs, PrintChoice{.printer = u"Ufficio"_s,
                                     .file = {},
                                     .copies = 3,
                                     .collate = false,
                                     .pages = {{.first = 1, .last = 2}, {.first = 2, .last = 2}},
                                     .options = {u"sides=one-sided"_s}});
    printDocument(nullptr, document);
    QTRY_VERIFY_WITH_TIMEOUT(jobsAreDone(), patience);
    QCOMPARE(contentOf(received), document.pdf);
    QCOMPARE(QString::fromUtf8(contentOf(arguments)).split(u'\n', Qt::SkipEmptyParts),
             QStringList({u"-d"_s, u"Ufficio"_s, u"-t"_s, u"Maria_stampa_Riepilogo"_s, u"-n"_s,
                          u"3"_s, u"-o"_s, u"collate=false"_s, u"-P"_s, u"1-2,2"_s, u"-o"_s,
                          u"sides=one-sided"_s}));
}

void TestPrintDocument::aRefusedPrintIsReported() {
    const QTemporaryDir folder;
    writeScript(folder.filePath(u"lp"_s), "echo 'lp: coda ferma' >&2\nexit 1\n");
    const SearchPath path(folder.path());
    ScriptedDialogs dialogs;
    expectPrint(dialogs, PrintChoice{.printer = u"Ufficio"_s, .file = {}});
    dialogs.expectBox(u"Stampa"_s,
                      u"La stampante \"Ufficio\" non accetta la stampa.\nlp: coda ferma"_s);
    printDocument(nullptr, twoPages());
    QTRY_VERIFY_WITH_TIMEOUT(jobsAreDone(), patience);
    QVERIFY(dialogs.finished());
}

void TestPrintDocument::jobsEndWithTheirParentGone() {
    const QTemporaryDir folder;
    writeScript(folder.filePath(u"lp"_s), "/bin/sleep 0.3\nexit 1\n");
    const SearchPath path(folder.path());
    ScriptedDialogs dialogs;
    expectPrint(dialogs, PrintChoice{.printer = u"Ufficio"_s, .file = {}});
    dialogs.expectBox(u"Stampa"_s, u"La stampante \"Ufficio\" non accetta la stampa."_s);
    auto window = std::make_unique<QWidget>();
    printDocument(window.get(), twoPages());
    window.reset();
    QVERIFY(!jobsAreDone());
    QTRY_VERIFY_WITH_TIMEOUT(jobsAreDone(), patience);
    QVERIFY(dialogs.finished());
}

void TestPrintDocument::withoutPrintSystemAnUnknownPrinterIsReported() {
    const QTemporaryDir folder;
    const SearchPath path(folder.path());
    QVERIFY(!PrintQueueJob::isPossible());
    ScriptedDialogs dialogs;
    expectPrint(dialogs, PrintChoice{.printer = u"Ufficio"_s, .file = {}});
    dialogs.expectBox(u"Stampa"_s, u"La stampante \"Ufficio\" non accetta la stampa."_s);
    printDocument(nullptr, twoPages());
    QVERIFY(dialogs.finished());
}

void TestPrintDocument::unreadablePagesAreReported() {
    ScriptedDialogs dialogs;
    dialogs.expectBox(u"Stampa"_s, u"Le pagine da stampare non si possono leggere."_s);
    printDocument(nullptr, {.pdf = "%PDF-1.4 e nient'altro", .name = u"niente"_s});
    QVERIFY(dialogs.finished());
}

void TestPrintDocument::paintsPagesOnAPrinter() {
    const QTemporaryDir folder;
    QByteArray pdf = pdfWithPages({u"uno"_s, u"due"_s, u"tre"_s});
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::ReadOnly);
    QPdfDocument document;
    document.load(&buffer);
    const auto paint = [&](const QString& name, const std::vector<PageSpan>& spans) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath(name));
        return paintPages(printer, document, spans);
    };
    QVERIFY(paint(u"tutte.pdf"_s, {}));
    QCOMPARE(textsOf(contentOf(folder.filePath(u"tutte.pdf"_s))).size(), 3);
    QVERIFY(paint(u"una.pdf"_s, {{.first = 3, .last = 7}}));
    QByteArray painted = contentOf(folder.filePath(u"una.pdf"_s));
    QBuffer paintedBuffer(&painted);
    paintedBuffer.open(QIODevice::ReadOnly);
    QPdfDocument result;
    result.load(&paintedBuffer);
    QCOMPARE(result.pageCount(), 1);
    // The letters lie where they were, in their size.
    const QSize size = document.pagePointSize(2).toSize();
    const auto letters = [size](QPdfDocument& pages, int page) {
        const QImage image = pages.render(page, size);
        QRect ink;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor colour = image.pixelColor(x, y);
                if (colour.alpha() > 128 && colour.lightness() < 128) {
                    ink |= QRect(x, y, 1, 1);
                }
            }
        }
        return ink;
    };
    const QRect before = letters(document, 2);
    const QRect after = letters(result, 0);
    QVERIFY(before.width() > 20);
    constexpr int tolerance = 2; // pixels of a seventy-second of an inch
    QVERIFY((before.topLeft() - after.topLeft()).manhattanLength() <= 2 * tolerance);
    QVERIFY((before.bottomRight() - after.bottomRight()).manhattanLength() <= 2 * tolerance);
    QVERIFY(!paint(u"nessuna.pdf"_s, {{.first = 4, .last = 7}}));
}

void TestPrintDocument::readsTheChoiceOfAPrinter() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(u"/tmp/pagine.pdf"_s);
    PrintChoice choice = printChoice(printer, 5);
    QCOMPARE(choice.file, u"/tmp/pagine.pdf"_s);
    QVERIFY(choice.printer.isEmpty());
    QVERIFY(choice.pages.empty());

    printer.setPageRanges(QPageRanges::fromString(u"1-2,4,9"_s));
    QVERIFY(printChoice(printer, 5).pages.empty()); // written down, not chosen
    printer.setPrintRange(QPrinter::PageRange);
    choice = printChoice(printer, 5);
    const std::vector<PageSpan> expected{{.first = 1, .last = 2}, {.first = 4, .last = 4}};
    QVERIFY(choice.pages == expected);
}

void TestPrintDocument::readsTheSheetOfAPrinter() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(u"/tmp/pagine.pdf"_s);
    const Sheet across{.paper = {210, 148}, .margins = {10, 20, 30, 40}, .grey = true};
    printer.setPageLayout(layoutOf(across));
    printer.setColorMode(QPrinter::GrayScale);
    printer.setCopyCount(3);
    printer.setPageOrder(QPrinter::LastPageFirst);
    const PrintChoice choice = printChoice(printer, 1);
    QVERIFY(choice.sheet.isLike(across));
    QCOMPARE(printer.pageLayout().pageSize().id(), QPageSize::A5);
    QCOMPARE(choice.copies, 3);
    QVERIFY(choice.reverse);
}

namespace {

/// Opens the print dialog, has it used, and says what was chosen.
std::optional<PrintChoice> inTheDialog(const QTemporaryDir& folder,
                                       const std::function<void(QDialog&)>& use) {
    QTimer::singleShot(0, QCoreApplication::instance(), [&folder, use] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        dialog->findChild<QLineEdit*>(u"filename"_s)->setText(folder.filePath(u"pagine.pdf"_s));
        use(*dialog);
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    return showSystemPrintDialog(nullptr, {.title = u"Stampa"_s, .document = {}, .pageCount = 2});
}

/// Opens the properties from the print dialog and accepts them.
void inTheProperties(const QDialog& dialog, const std::function<void(QDialog&)>& use) {
    QTimer::singleShot(0, QCoreApplication::instance(), [use] {
        auto* properties = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        use(*properties);
        properties->accept();
    });
    dialog.findChild<QPushButton*>(u"properties"_s)->click();
}

} // namespace

void TestPrintDocument::offersAFileWhatItCanHave() {
    const QTemporaryDir folder;
    QStringList hidden;
    QStringList tabs;
    QStringList sizes;
    const auto choice = inTheDialog(folder, [&](QDialog& dialog) {
        for (const auto* control : dialog.findChildren<QWidget*>()) {
            if (control->isHidden() && !control->objectName().isEmpty()) {
                hidden << control->objectName();
            }
        }
        inTheProperties(dialog, [&](QDialog& properties) {
            const auto* pages = properties.findChild<QTabWidget*>(u"tabs"_s);
            for (int i = 0; i < pages->count(); ++i) {
                tabs << (pages->isTabVisible(i) ? pages->tabText(i) : QString());
            }
            QVERIFY(properties.findChild<QWidget*>(u"pagesPerSheetButtonGroup"_s)->isHidden());
            auto* combo = properties.findChild<QComboBox*>(u"pageSizeCombo"_s);
            for (int i = 0; i < combo->count(); ++i) {
                if (combo->model()->flags(combo->model()->index(i, 0)) & Qt::ItemIsEnabled) {
                    sizes << combo->itemData(i).value<QPageSize>().key();
                }
            }
            combo->setCurrentIndex(combo->findData(QVariant::fromValue(QPageSize(QPageSize::A5))));
            properties.findChild<QRadioButton*>(u"landscape"_s)->click();
            properties.findChild<QDoubleSpinBox*>(u"leftMargin"_s)->setValue(25);
        });
        dialog.findChild<QRadioButton*>(u"grayscale"_s)->setChecked(true);
        dialog.findChild<QSpinBox*>(u"copies"_s)->setValue(2);
    });
    for (const QString& name : {u"duplex"_s, u"pageSetCombo"_s, u"pagesRadioButton"_s}) {
        QVERIFY2(hidden.contains(name), qPrintable(name));
    }
    QVERIFY(!hidden.contains(u"gbPrintRange"_s));
    QCOMPARE(tabs.count(QString()), tabs.size() - 1);
    QVERIFY(!tabs.constFirst().isEmpty());
    QVERIFY(sizes.contains(u"A4"_s) && sizes.contains(u"A6"_s));
    QVERIFY(!sizes.contains(u"A8"_s));
    QVERIFY(choice.has_value());
    QVERIFY(choice->sheet.isLike({.paper = {210, 148}, .margins = {25, 10, 10, 10}, .grey = true}));
    QCOMPARE(choice->copies, 2);
}

void TestPrintDocument::asksAgainWhenTheSheetIsTooSmall() {
    const QTemporaryDir folder;
    ScriptedDialogs dialogs;
    dialogs.expectBox(u"Errore"_s,
                      u"Fra i margini restano 50 x 277 mm, e la pagina ne chiede almeno 80 x 60.\n"
                      "Scegliere un foglio più grande o margini più piccoli."_s);
    const auto choice = inTheDialog(folder, [](QDialog& dialog) {
        inTheProperties(dialog, [](QDialog& properties) {
            properties.findChild<QDoubleSpinBox*>(u"leftMargin"_s)->setValue(150);
        });
        // Once more, after the box.
        QTimer::singleShot(0, &dialog, [&dialog] {
            QTimer::singleShot(0, &dialog, [&dialog] {
                inTheProperties(dialog, [](QDialog& properties) {
                    properties.findChild<QDoubleSpinBox*>(u"leftMargin"_s)->setValue(20);
                });
                dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
            });
        });
    });
    QVERIFY(dialogs.finished());
    QVERIFY(choice.has_value());
    QVERIFY(choice->sheet.isLike({.margins = {20, 10, 10, 10}}));
}

/// Qt's own dialog, and a name with the character that ends names: it warns of the file
/// that it asks for.
void TestPrintDocument::theNameOfAFileIsOneThatAFileCanHave() {
    QString name = u"nobody was asked"_s;
    QTimer::singleShot(0, QCoreApplication::instance(), [&name] {
        QWidget* dialog = QApplication::activeModalWidget();
        auto* field = dialog->findChild<QLineEdit*>(u"filename"_s);
        field->clear();
        QGuiApplication::clipboard()->setText(QString(QChar(u'\0')) + u"dopo"_s);
        field->paste();
        name = field->text();
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QVERIFY(
        !showSystemPrintDialog(nullptr, {.title = u"Stampa"_s, .document = {}, .pageCount = 1}));
    QCOMPARE(name, u"dopo"_s);
}

/// Qt's own dialog opens the file to see whether it can be written.
void TestPrintDocument::nobodyWaitsForAPipe() {
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"tubo.pdf"_s);
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    ScriptedDialogs dialogs;
    dialogs.expectBox(u"Errore"_s, u"\"%1\" non è un file: niente ne prende il posto."_s.arg(pipe));
    int stillAsked = 0;
    int toolkitsBoxes = 0;
    QTimer::singleShot(0, QCoreApplication::instance(), [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        auto* field = dialog->findChild<QLineEdit*>(u"filename"_s);
        QVERIFY(field->isEnabled());
        const auto printInto = [&](const QString& path) {
            field->setText(path);
            dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
            stillAsked += dialog->isVisible() ? 1 : 0;
        };
        printInto(pipe);
        // Its own check is still made.
        QTimer::singleShot(0, dialog, [&toolkitsBoxes] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(box != nullptr);
            ++toolkitsBoxes;
            box->close();
        });
        printInto(folder.path());
        printInto(folder.filePath(u"pagine.pdf"_s));
    });
    const auto choice =
        showSystemPrintDialog(nullptr, {.title = u"Stampa"_s, .document = {}, .pageCount = 1});
    QCOMPARE(stillAsked, 2);
    QCOMPARE(toolkitsBoxes, 1);
    QVERIFY(choice.has_value());
    QCOMPARE(choice->file, folder.filePath(u"pagine.pdf"_s));
}

} // namespace quor::test
