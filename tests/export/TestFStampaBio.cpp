#include "export/TestFStampaBio.h"

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
    for (const QString& product : products()) {
        window.touch(product);
    }
    const QString file = window.tools.filePath(u"stampa.pdf"_s);
    window.dialogs.expectPrint(u"Stampa"_s, prefix + u"Riepilogo"_s, 1,
                               PrintChoice{.printer = {}, .file = file});
    window.run();
    QVERIFY(window.dialogs.finished());
    for (const QString& product : products()) {
        QCOMPARE(window.content(product), QByteArray("old"));
    }
    QFile printed(file);
    QVERIFY(printed.open(QIODevice::ReadOnly));
    QVERIFY(printed.readAll().startsWith("%PDF-"));
}

void TestFStampaBio::exportsAgainWhenOnePieceIsMissing() {
    for (const int missing : {0, 1, 5}) { // the page, the first week, the graph
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

void TestFStampaBio::pageThatIsNotThereIsTold() {
    Window window(PrintMode::preview);
    window.check(2)->click();
    window.check(3)->click(); // nothing is wanted, so nothing is exported
    window.setRenderer(u"test -f \"$2\" || exit 1"_s);
    window.dialogs.expectBox(u"Errore"_s,
                             u"La pagina da stampare manca o non si può impaginare (codice 1)."_s);
    window.run();
    QTRY_VERIFY(window.dialogs.finished());
    QVERIFY(window.files().isEmpty());
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
