#include "export/TestFStampaBio.h"

#include "export/ExportRun.h"
#include "export/FStampaBio.h"
#include "export/Paper.h"
#include "export/PreviewWindow.h"
#include "export/WebBrowser.h"

#include "export/WindowFrame.h"

#include <QApplication>
#include <QBuffer>
#include <QCheckBox>
#include <QPainter>
#include <QPdfWriter>
#include <QPushButton>

namespace quor::test {

namespace {

const QString prefix = u"Maria Rossi_15-03-2004_stampa_"_s;
const QString question = u"Le pagine già esportate non corrispondono ai dati attuali. Rifarle?"_s;

QStringList products() {
    QStringList files{prefix + u"Riepilogo.html"_s};
    for (int i = 0; i < 4; ++i) {
        files << prefix + u"StatoSettimana%1.png"_s.arg(i);
    }
    return files << prefix + u"grafico.png"_s;
}

QByteArray emptyPage() {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    QPainter painter(&writer);
    painter.end();
    return bytes;
}

/// The window with a renderer that only copies a finished file.
struct Window : ExportFixture {
    explicit Window(PrintMode mode)
        : window(new FStampaBio(program, frame, mode, &frame.window)) {
        write(u"page.pdf"_s, emptyPage());
        setRenderer(u"cp '%1' \"$3\""_s.arg(tools.filePath(u"page.pdf"_s)));
    }

    /// @param command of a shell, whose arguments are those of the renderer: "--", page, file
    void setRenderer(const QString& command) {
        const QString path = write(u"renderer"_s, "#!/bin/sh\n" + command.toUtf8() + '\n');
        QFile::setPermissions(path, QFile::ReadUser | QFile::WriteUser | QFile::ExeUser);
        browser()->setRenderer(path);
    }
    QString write(const QString& name, const QByteArray& bytes) const {
        QFile file(tools.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            qFatal("cannot write the test's own file");
        }
        return file.fileName();
    }
    void touch(const QString& name) const {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write("old") != 3) {
            qFatal("cannot write the test's own file");
        }
    }
    void exportPages() {
        ExportRun run(program, {.graph = true,
                                .weekly = true,
                                .page = true,
                                .variant = PageVariant::print,
                                .folder = folder.path(),
                                .pictureSize = {200, 100}}); // another paper
        while (!run.isOver()) {
            QVERIFY(!run.next().failed);
        }
    }
    [[nodiscard]] QByteArray content(const QString& name) const {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    [[nodiscard]] WebBrowser* browser() const {
        return control<WebBrowser>(*window, u"WebBrowser1"_s);
    }
    [[nodiscard]] QCheckBox* check(int number) const {
        return control<QCheckBox>(*window, u"Check%1"_s.arg(number));
    }
    [[nodiscard]] QPushButton* button(int number) const {
        return control<QPushButton>(*window, u"Command%1"_s.arg(number));
    }
    [[nodiscard]] PreviewWindow* preview() const { return window->findChild<PreviewWindow*>(); }

    /// Starts, and waits until the window can be used again.
    void run() {
        button(1)->click();
        for (const int number : {1, 2, 3}) {
            QVERIFY(!button(number)->isEnabled());
        }
        QTRY_VERIFY_WITH_TIMEOUT(button(1)->isEnabled(), 20000);
        QVERIFY(button(2)->isEnabled());
        QVERIFY(button(3)->isEnabled());
        QVERIFY(frame.window.isEnabled());
    }

    QTemporaryDir tools;
    QPointer<FStampaBio> window;
};

} // namespace

void TestFStampaBio::initTestCase() {
    usePaper(quorPaper());
}

void TestFStampaBio::wearsTheModeAndHasEverythingChosen() {
    const Window print(PrintMode::print);
    QCOMPARE(print.window->windowTitle(), u"Stampa"_s);
    QCOMPARE(print.button(1)->text(), u"&Stampa"_s);
    for (const int number : {1, 2, 3}) {
        QVERIFY(print.check(number)->isChecked());
    }
    const Window preview(PrintMode::preview);
    QCOMPARE(preview.button(1)->text(), u"&Anteprima di stampa"_s);
}

void TestFStampaBio::pageGoesWithItsPictures() {
    const Window window(PrintMode::print);
    window.check(2)->click();
    QVERIFY(window.check(1)->isChecked());
    window.check(3)->click();
    QVERIFY(!window.check(1)->isChecked());
    QVERIFY(!window.check(1)->isEnabled());
    window.check(3)->click();
    QVERIFY(window.check(1)->isChecked());
    QVERIFY(window.check(1)->isEnabled());
    window.check(2)->click();
    window.check(1)->click(); // its pictures go with it
    for (const int number : {1, 2, 3}) {
        QVERIFY(!window.check(number)->isChecked());
    }
    QVERIFY(!window.check(1)->isEnabled());
}

void TestFStampaBio::exportsWhatIsMissingAndPreviews() {
    Window window(PrintMode::preview);
    window.run();
    QCOMPARE(window.files(), products());
    QVERIFY(window.preview() != nullptr);
    QVERIFY(window.preview()->isVisible());
    QCOMPARE(window.preview()->pageCount(), 1);
}

void TestFStampaBio::printsWhatIsThere() {
    Window window(PrintMode::print);
    window.exportPages();
    QHash<QString, QByteArray> before;
    for (const QString& product : products()) {
        before[product] = window.content(product);
    }
    const QString file = window.tools.filePath(u"stampa.pdf"_s);
    window.dialogs.expectPrint(u"Stampa"_s, prefix + u"Riepilogo"_s, 1,
                               PrintChoice{.printer = {}, .file = file});
    window.run();
    QVERIFY(window.dialogs.finished());
    for (const QString& product : products()) {
        QCOMPARE(window.content(product), before[product]);
    }
    QFile printed(file);
    QVERIFY(printed.open(QIODevice::ReadOnly));
    QVERIFY(printed.readAll().startsWith("%PDF-"));
}

void TestFStampaBio::asksAboutWhatIsOutdated_data() {
    QTest::addColumn<Answer>("answer");
    QTest::newRow("yes") << Answer::yes;
    QTest::newRow("no") << Answer::no;
    QTest::newRow("cancel") << Answer::cancel;
}

/// The page of somebody with the same name must not be taken for this one's.
void TestFStampaBio::asksAboutWhatIsOutdated() {
    QFETCH(const Answer, answer);
    Window window(PrintMode::preview);
    window.program.biorhythm.birthDate -= 1;
    window.exportPages();
    window.program.biorhythm.birthDate += 1;
    const QByteArray page = window.content(products().first());
    const QByteArray graph = window.content(products().last());
    window.dialogs.expectOpenQuestion(u"Conferma"_s, question, answer);
    if (answer == Answer::cancel) {
        window.button(1)->click();
        QVERIFY(window.button(1)->isEnabled());
        QVERIFY(!window.browser()->isBusy());
    } else {
        window.run();
    }
    QVERIFY(window.dialogs.finished());
    QCOMPARE(window.preview() != nullptr, answer != Answer::cancel);
    const bool again = answer == Answer::yes;
    QCOMPARE(window.content(products().first()) != page, again);
    QCOMPARE(window.content(products().last()) != graph, again);
    if (again) { // and now it is current
        window.preview()->close();
        window.run();
    }
}

void TestFStampaBio::asksAboutOtherSections() {
    Window window(PrintMode::preview);
    window.exportPages();
    const QByteArray week = window.content(products().at(1));
    window.check(3)->click();
    window.dialogs.expectOpenQuestion(u"Conferma"_s, question, Answer::yes);
    window.run();
    QVERIFY(!window.content(products().first()).contains("StatoSettimana"));
    QCOMPARE(window.content(products().at(1)), week); // not ticked

    window.check(2)->click(); // nothing is: a page without pictures
    window.dialogs.expectOpenQuestion(u"Conferma"_s, question, Answer::yes);
    window.run();
    QVERIFY(window.dialogs.finished());
    QVERIFY(!window.content(products().first()).contains("IMG"));
    window.run();
}

void TestFStampaBio::exportsAgainWhenOnePieceIsMissing() {
    for (const int missing : {0, 1, 4, 5}) { // the page, the first week and the last, the graph
        Window window(PrintMode::preview);
        for (const QString& product : products()) {
            window.touch(product);
        }
        QVERIFY(QFile::remove(window.folder.filePath(products().at(missing))));
        window.run();
        for (const QString& product : products()) {
            QVERIFY(window.content(product).size() > 3);
        }
    }
    // Only what is wanted counts as missing.
    Window window(PrintMode::preview);
    window.check(3)->click();
    window.run();
    QCOMPARE(window.files(), (QStringList{products().first(), products().last()}));
}

void TestFStampaBio::failedExportIsTold() {
    Window window(PrintMode::print);
    window.program.state.exportFolder = window.folder.filePath(u"manca"_s);
    window.dialogs.expectBox(u"Avviso"_s, u"La stampa è stata interrotta.\nSono stati rilevati "
                                          "degli errori durante l'esportazione."_s);
    window.run();
    QTRY_VERIFY(window.dialogs.finished());
    QVERIFY(!window.browser()->isBusy());
}

void TestFStampaBio::failedRendererIsTold_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("reason");
    QTest::newRow("status") << u"exit 9"_s
                            << u"Il programma che prepara le pagine è terminato con il codice 9."_s;
    QTest::newRow("crash") << u"kill -SEGV $$"_s
                           << u"Il programma che prepara le pagine si è interrotto."_s;
    QTest::newRow("too slow") << u"sleep 60"_s
                              << u"La preparazione delle pagine è durata più di 1 secondi ed è "
                                 "stata interrotta."_s;
}

void TestFStampaBio::failedRendererIsTold() {
    QFETCH(const QString, command);
    QFETCH(const QString, reason);
    Window window(PrintMode::preview);
    window.setRenderer(command);
    window.browser()->setTimeLimit(std::chrono::seconds(1));
    window.dialogs.expectBox(u"Errore"_s, reason);
    window.run();
    QTRY_VERIFY(window.dialogs.finished());
    QVERIFY(window.preview() == nullptr);
}

void TestFStampaBio::nothingToPrintIsTold() {
    for (const PrintMode mode : {PrintMode::print, PrintMode::preview}) {
        Window window(mode);
        window.check(2)->click();
        window.check(3)->click();
        window.setRenderer(u"exit 9"_s); // not even asked
        window.dialogs.expectBox(u"Errore"_s,
                                 u"Non c'è niente da stampare: la pagina non esiste ancora.\n"
                                 "Seleziona cosa vuoi stampare!"_s);
        window.button(1)->click();
        QVERIFY(window.dialogs.finished());
        QVERIFY(window.button(1)->isEnabled());
        QVERIFY(!window.browser()->isBusy());
        QVERIFY(window.frame.window.isEnabled());
        QVERIFY(window.files().isEmpty());
    }
}

void TestFStampaBio::closingInTheMiddleLeavesNothing() {
    Window window(PrintMode::preview);
    const QString running = window.tools.filePath(u"running"_s);
    window.setRenderer(u"echo $$ > '%1'; exec sleep 60"_s.arg(running));
    window.window->show();
    window.button(1)->click();
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(running).size() > 0, 20000);
    QFile file(running);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray process = file.readAll().trimmed();
    QVERIFY(QFileInfo::exists(u"/proc/"_s + QString::fromLatin1(process)));
    window.window->close();
    QTRY_VERIFY(window.window == nullptr);
    QVERIFY(window.frame.window.isEnabled());
    QTRY_VERIFY(!QFileInfo::exists(u"/proc/"_s + QString::fromLatin1(process)));
}

} // namespace quor::test
