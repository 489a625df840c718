#include "export/TestWebBrowser.h"

#include "export/Paper.h"
#include "export/PreviewWindow.h"
#include "export/WebBrowser.h"

#include "export/PrintingFixture.h"
#include "support/ScriptedDialogs.h"

#include <QApplication>
#include <QSignalSpy>
#include <QUrl>

#include <cmath>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quor::test {

namespace {

constexpr int patience = 30000; // milliseconds, on a busy machine

/// A browser control whose renderer is a script: "$2" is the page, "$3" the file to write.
struct Browsing {
    explicit Browsing(const QByteArray& script) {
        QFile pages(folder.filePath(u"pages.pdf"_s));
        if (pages.open(QIODevice::WriteOnly)) {
            pages.write(pdf);
        }
        writeScript(folder.filePath(u"renderer"_s),
                    "cd '" + folder.path().toLocal8Bit() + "'\n" + script);
        browser->setRenderer(folder.filePath(u"renderer"_s));
    }

    void navigate() {
        browser->navigate(QUrl::fromLocalFile(folder.filePath(u"Maria_stampa_Riepilogo.html"_s)));
    }

    /// The reason of the failure that follows; empty when none does.
    QString failure() {
        navigate();
        return QTest::qWaitFor([this] { return failed.size() + complete.size() > 0; }, patience) &&
                       complete.isEmpty()
                   ? failed.constFirst().constFirst().toString()
                   : QString();
    }

    QTemporaryDir folder;
    QByteArray pdf = pdfWithPages({u"uno"_s, u"due"_s});
    std::unique_ptr<WebBrowser> browser = std::make_unique<WebBrowser>();
    QSignalSpy complete{browser.get(), &WebBrowser::documentComplete};
    QSignalSpy failed{browser.get(), &WebBrowser::navigationFailed};
};

constexpr const char* copyPages = "cp pages.pdf \"$3\"\n";
/// Leaves its own number and that of a process that it starts, and stays.
constexpr const char* stays = "sleep 1000 & echo $! > child\necho $$ > parent\nmv child "
                              "child.pid\nmv parent parent.pid\nwait\n";

/// Whether it is there and not only waiting to be taken off the list.
bool isRunning(const QByteArray& process) {
    const QByteArray state =
        contentOf(u"/proc/%1/stat"_s.arg(QString::fromLatin1(process.trimmed())));
    return !state.isEmpty() && !state.contains(") Z ");
}

} // namespace

void TestWebBrowser::initTestCase() {
    usePaper(quorPaper());
}

void TestWebBrowser::loadsAPage() {
    Browsing browsing(copyPages);
    QVERIFY(!browsing.browser->isBusy());
    browsing.navigate();
    QVERIFY(browsing.browser->isBusy());
    QVERIFY(browsing.browser->pages().isEmpty());
    QVERIFY(browsing.complete.isEmpty());
    QVERIFY(browsing.complete.wait(patience));
    QCOMPARE(browsing.browser->pages(), browsing.pdf);
    QVERIFY(!browsing.browser->isBusy());
    QVERIFY(browsing.failed.isEmpty());
    browsing.navigate();
    QVERIFY(browsing.browser->pages().isEmpty());
}

void TestWebBrowser::takesBlanksInAddresses() {
    Browsing browsing("printf '%s' \"$2\" > page\ncp pages.pdf \"$3\"\n");
    browsing.browser->navigate(QUrl(u"file:///tmp/una%20pagina.html"_s));
    QVERIFY(browsing.complete.wait(patience));
    QCOMPARE(contentOf(browsing.folder.filePath(u"page"_s)), "/tmp/una pagina.html");
}

void TestWebBrowser::failsWithAReason_data() {
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("reason");
    QTest::newRow("page") << 1
                          << u"La pagina da stampare manca o non si può impaginare (codice 1)."_s;
    QTest::newRow("file")
        << 3 << u"Le pagine non si possono scrivere nella cartella temporanea (codice 3)."_s;
    QTest::newRow("other") << 7
                           << u"Il programma che prepara le pagine è terminato con il codice 7."_s;
}

void TestWebBrowser::failsWithAReason() {
    QFETCH(const int, code);
    QFETCH(const QString, reason);
    Browsing browsing("cp pages.pdf \"$3\"\nexit " + QByteArray::number(code) + "\n");
    QCOMPARE(browsing.failure(), reason);
    QVERIFY(browsing.browser->pages().isEmpty());
    QVERIFY(!browsing.browser->isBusy());
}

void TestWebBrowser::failsOnPagesElsewhere() {
    Browsing browsing(copyPages);
    browsing.browser->navigate(QUrl(u"http://localhost/pagina.html"_s));
    QVERIFY(browsing.failed.isEmpty());
    QVERIFY(browsing.failed.wait(patience));
    QCOMPARE(browsing.failed.constFirst().constFirst().toString(),
             u"La pagina da stampare non è un file di questo computer."_s);
}

void TestWebBrowser::failsWithoutRenderer() {
    Browsing browsing(copyPages);
    browsing.browser->setRenderer(u"/nonexistent/quor-render"_s);
    QCOMPARE(browsing.failure(),
             u"Manca il programma che prepara le pagine: \"/nonexistent/quor-render\"."_s);
}

void TestWebBrowser::failsWhenTheRendererDoesNotStart() {
    Browsing browsing(copyPages);
    writeScript(browsing.folder.filePath(u"renderer"_s), {});
    QFile file(browsing.folder.filePath(u"renderer"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("#!/nonexistent/shell\n");
    file.close();
    const QString reason = browsing.failure();
    QVERIFY2(reason.startsWith(u"Il programma che prepara le pagine non si avvia: "_s),
             qPrintable(reason));
}

void TestWebBrowser::failsWhenTheRendererCrashes() {
    Browsing browsing("cp pages.pdf \"$3\"\nkill -SEGV $$\n");
    QCOMPARE(browsing.failure(), u"Il programma che prepara le pagine si è interrotto."_s);
    QVERIFY(browsing.browser->pages().isEmpty());
}

void TestWebBrowser::failsWhenThereIsNoPage() {
    QCOMPARE(Browsing("exit 0\n").failure(),
             u"Il programma che prepara le pagine non ne ha prodotta nessuna."_s);
    QCOMPARE(Browsing("echo 'un errore' > \"$3\"\n").failure(),
             u"Il programma che prepara le pagine non ne ha prodotta nessuna."_s);
}

void TestWebBrowser::failsAfterTheTimeLimit() {
    Browsing browsing(stays);
    browsing.browser->setTimeLimit(2s);
    QCOMPARE(browsing.failure(),
             u"La preparazione delle pagine è durata più di 2 secondi ed è stata interrotta."_s);
    QVERIFY(!browsing.browser->isBusy());
    const QByteArray child = contentOf(browsing.folder.filePath(u"child.pid"_s));
    if (!child.isEmpty()) { // it got so far within the limit
        QTRY_VERIFY_WITH_TIMEOUT(!isRunning(child), patience);
    }
}

void TestWebBrowser::endsTheProcessesItStarted() {
    Browsing browsing(stays);
    browsing.navigate();
    const QString parentFile = browsing.folder.filePath(u"parent.pid"_s);
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(parentFile), patience);
    const QByteArray parent = contentOf(parentFile);
    const QByteArray child = contentOf(browsing.folder.filePath(u"child.pid"_s));
    QVERIFY(isRunning(parent));
    QVERIFY(isRunning(child));
    browsing.browser.reset();
    QTRY_VERIFY_WITH_TIMEOUT(!isRunning(parent) && !isRunning(child), patience);
    QVERIFY(browsing.failed.isEmpty());
}

void TestWebBrowser::onlyTheLastNavigationCounts() {
    Browsing browsing("case \"$2\" in *lenta*) exec sleep 1000;; esac\ncp pages.pdf \"$3\"\n");
    browsing.browser->navigate(QUrl::fromLocalFile(u"/tmp/lenta.html"_s));
    browsing.browser->navigate(QUrl::fromLocalFile(u"/tmp/lenta.html"_s));
    QTest::qWait(100);
    browsing.navigate();
    QVERIFY(browsing.complete.wait(patience));
    QTest::qWait(100);
    QCOMPARE(browsing.complete.size(), 1);
    QCOMPARE(browsing.failed.size(), 0);
}

void TestWebBrowser::stopsWithoutAWord() {
    Browsing browsing("touch started\nexec sleep 1000\n");
    browsing.navigate();
    browsing.browser->stop(); // before it has begun
    QTest::qWait(100);
    QVERIFY(!QFile::exists(browsing.folder.filePath(u"started"_s)));
    browsing.navigate();
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(browsing.folder.filePath(u"started"_s)), patience);
    browsing.browser->stop();
    QVERIFY(!browsing.browser->isBusy());
    QTest::qWait(100);
    QVERIFY(browsing.complete.isEmpty() && browsing.failed.isEmpty());
}

void TestWebBrowser::loadsAgain() {
    Browsing browsing(copyPages);
    browsing.navigate();
    QVERIFY(browsing.complete.wait(patience));
    browsing.navigate();
    QVERIFY(browsing.complete.wait(patience));
    QCOMPARE(browsing.complete.size(), 2);
    QCOMPARE(browsing.browser->pages(), browsing.pdf);
}

void TestWebBrowser::prints() {
    Browsing browsing(copyPages);
    ScriptedDialogs dialogs;
    browsing.browser->print(); // no pages, no dialog
    browsing.navigate();
    QVERIFY(browsing.complete.wait(patience));
    const QString file = browsing.folder.filePath(u"stampa.pdf"_s);
    dialogs.expectPrint(u"Stampa"_s, u"Maria_stampa_Riepilogo"_s, 2,
                        PrintChoice{.printer = {}, .file = file});
    browsing.browser->print();
    QCOMPARE(contentOf(file), browsing.pdf);
}

void TestWebBrowser::previews() {
    Browsing browsing(copyPages);
    const auto windows = [&browsing] { return browsing.browser->findChildren<PreviewWindow*>(); };
    browsing.browser->printPreview();
    QVERIFY(windows().isEmpty());
    browsing.navigate();
    QVERIFY(browsing.complete.wait(patience));
    browsing.browser->printPreview();
    browsing.browser->printPreview();
    QCOMPARE(windows().size(), 1);
    QVERIFY(windows().constFirst()->isVisible());
    QCOMPARE(windows().constFirst()->pageCount(), 2);
    // The window has its own pages.
    browsing.browser->navigate(QUrl(u"http://localhost/"_s));
    QVERIFY(browsing.failed.wait(patience));
    QCOMPARE(windows().constFirst()->pageCount(), 2);
    windows().constFirst()->close();
    QTRY_VERIFY(windows().isEmpty());
}

void TestWebBrowser::saysWhenTheModuleIsMissing() {
    Browsing browsing(copyPages);
    browsing.navigate();
    QVERIFY(browsing.complete.wait(patience));
    usePaper(nullptr); // and none lies beside this program
    QString fault;
    QVERIFY(paper(fault) == nullptr);
    QVERIFY2(fault.contains(u"manca \""_s) && fault.contains(u"quor-paper.so\""_s),
             qPrintable(fault));
    ScriptedDialogs dialogs;
    dialogs.expectBox(u"Stampa"_s, fault);
    browsing.browser->print();
    dialogs.expectBox(u"Stampa"_s, fault);
    browsing.browser->printPreview();
    QVERIFY(dialogs.finished());
    QVERIFY(browsing.browser->findChildren<QDialog*>().isEmpty());
    usePaper(quorPaper());
}

void TestWebBrowser::staysHidden() {
    QWidget window;
    const WebBrowser browser(&window);
    window.show();
    QVERIFY(!browser.isVisible());
}

#ifdef QUOR_RENDERER
void TestWebBrowser::rendersForReal() {
    const QTemporaryDir folder;
    const QString page = folder.filePath(u"una pagina.html"_s);
    QFile file(page);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<HTML><BODY><P>Niccol\xf2</P><P style='page-break-before: always'>seconda</P>"
               "<P style='page-break-before: always'>terza</P></BODY></HTML>");
    file.close();
    WebBrowser browser;
    browser.setRenderer(QStringLiteral(QUOR_RENDERER));
    QSignalSpy complete(&browser, &WebBrowser::documentComplete);
    QSignalSpy failed(&browser, &WebBrowser::navigationFailed);
    browser.navigate(QUrl::fromLocalFile(page));
    QTRY_VERIFY_WITH_TIMEOUT(complete.size() + failed.size() == 1, patience);
    QVERIFY2(failed.isEmpty(), qPrintable(failed.value(0).value(0).toString()));
    QCOMPARE(textsOf(browser.pages()), QStringList({u"Niccolò"_s, u"seconda"_s, u"terza"_s}));

    ScriptedDialogs dialogs;
    const QString chosen = folder.filePath(u"scelte.pdf"_s);
    dialogs.expectPrint(
        u"Stampa"_s, u"una pagina"_s, 3,
        PrintChoice{.printer = {}, .file = chosen, .pages = {{.first = 2, .last = 3}}});
    browser.print();
    QCOMPARE(textsOf(contentOf(chosen)), QStringList({u"seconda"_s, u"terza"_s}));

    // On another sheet; its window may be gone before.
    const QString across = folder.filePath(u"orizzontale.pdf"_s);
    dialogs.expectPrint(u"Stampa"_s, u"una pagina"_s, 3,
                        PrintChoice{.printer = {}, .file = across, .sheet = {.paper = {210, 148}}});
    {
        WebBrowser brief;
        brief.setRenderer(QStringLiteral(QUOR_RENDERER));
        QSignalSpy loaded(&brief, &WebBrowser::documentComplete);
        brief.navigate(QUrl::fromLocalFile(page));
        QVERIFY(loaded.wait(patience));
        brief.print();
    }
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(across), patience);
    QCOMPARE(textsOf(contentOf(across)), QStringList({u"Niccolò"_s, u"seconda"_s, u"terza"_s}));
    QPdfDocument pages;
    pages.load(across);
    const QSizeF difference = pages.pagePointSize(0) - QSizeF(210, 148) * (72 / 25.4);
    QVERIFY(std::abs(difference.width()) < 1 && std::abs(difference.height()) < 1);

    browser.navigate(QUrl::fromLocalFile(folder.filePath(u"manca.html"_s)));
    QVERIFY(failed.wait(patience));
    QCOMPARE(failed.constFirst().constFirst().toString(),
             u"La pagina da stampare manca o non si può impaginare (codice 1)."_s);
}
#endif

} // namespace quor::test
