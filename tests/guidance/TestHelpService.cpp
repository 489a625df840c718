#include "TestHelpService.h"

#include "guidance/HelpAddress.h"
#include "guidance/HelpBrowser.h"
#include "guidance/HelpCollection.h"
#include "guidance/HelpService.h"
#include "guidance/HelpWindow.h"
#include "guidance/LateHelp.h"
#include "toolkit/LateModule.h"

#include "support/ScriptedDialogs.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMap>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <csignal>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

QString pathOf(const QString& page) {
    const QString file = QStringLiteral(QUOR_HELP_FOLDER "/Quor.chm");
    return page.isEmpty() ? file : file + u"::/"_s + page;
}

HelpBrowser* browser(const HelpService& help) {
    return help.window()->findChild<HelpBrowser*>();
}

QString shownPage(const HelpService& help) {
    return browser(help)->source().fileName();
}

template<typename Widget> Widget* part(const HelpService& help, const QString& name) {
    return help.window()->findChild<Widget*>(name);
}

void trigger(const HelpService& help, const QString& name) {
    part<QAction>(help, name)->trigger();
}

qsizetype helpWindows() {
    const QWidgetList all = QApplication::topLevelWidgets();
    return std::count_if(all.begin(), all.end(), [](const QWidget* widget) {
        return qobject_cast<const HelpWindow*>(widget) != nullptr;
    });
}

} // namespace

/// None lies beside this program, which has the help built in.
void TestHelpService::saysWhenTheModuleIsMissing() {
    QString fault;
    QVERIFY(loadModule({.file = "quor-help.so", .function = "quorHelp", .task = u"mostra la guida"},
                       fault) == nullptr);
    QVERIFY2(
        fault.startsWith(u"La parte del programma che mostra la guida non si può caricare"_s) &&
            fault.contains(u"manca \""_s) && fault.contains(u"quor-help.so\""_s),
        qPrintable(fault));
    ScriptedDialogs dialogs;
    dialogs.expectBox(u"Errore"_s, fault);
    LateHelp help;
    help.openHelp(nullptr, pathOf({}));
    QVERIFY(dialogs.finished());
    const std::unique_ptr<HelpOpener> module = quorHelp()->make();
    QVERIFY(dynamic_cast<HelpService*>(module.get()) != nullptr);
}

void TestHelpService::addressesAreRead_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("page");
    QTest::newRow("whole") << u"/opt/q/Quor.chm"_s << u"/opt/q"_s << QString();
    QTest::newRow("topic") << u"/opt/q/Quor.chm::/1nuovo.html"_s << u"/opt/q"_s << u"1nuovo.html"_s;
    QTest::newRow("colons in the folder")
        << u"/a::/b/Quor.chm::/Sistemi.html"_s << u"/a::/b"_s << u"Sistemi.html"_s;
}

void TestHelpService::addressesAreRead() {
    QFETCH(QString, path);
    QFETCH(QString, folder);
    QFETCH(QString, page);
    const HelpAddress expected{.folder = folder, .page = page};
    QCOMPARE(parseHelpPath(path), expected);
}

void TestHelpService::collectionIsFoundBesideTheProgramOrInstalled() {
    const QTemporaryDir prefix;
    const QDir root(prefix.path());
    QVERIFY(root.mkpath(u"bin"_s) && root.mkpath(u"share/quor"_s));
    const QString programFolder = root.filePath(u"bin"_s);
    QCOMPARE(findHelpCollection(programFolder), QString());

    const auto make = [&root](const QString& name) {
        QFile file(root.filePath(name));
        return file.open(QIODevice::WriteOnly);
    };
    QVERIFY(make(u"share/quor/Quor.qhc"_s));
    QCOMPARE(findHelpCollection(programFolder), root.filePath(u"share/quor/Quor.qhc"_s));
    QVERIFY(make(u"bin/Quor.qhc"_s));
    QCOMPARE(findHelpCollection(programFolder), root.filePath(u"bin/Quor.qhc"_s));
}

void TestHelpService::opensOneWindowAtThePage() {
    HelpService help;
    help.openHelp(nullptr, pathOf(u"Sistemi.html"_s));
    QVERIFY(help.window()->isVisible());
    QCOMPARE(help.window()->windowTitle(), u"Guida di Quor"_s);
    QCOMPARE(shownPage(help), u"Sistemi.html"_s);
    QVERIFY(browser(help)->toPlainText().startsWith(u"I sistemi"_s));

    const HelpWindow* first = help.window();
    help.window()->showMinimized();
    help.openHelp(nullptr, pathOf({}));
    QCOMPARE(help.window(), first);
    QVERIFY(!help.window()->isMinimized());
    QCOMPARE(shownPage(help), u"indice.html"_s);
    QCOMPARE(helpWindows(), 1);

    trigger(help, u"back"_s);
    QCOMPARE(shownPage(help), u"Sistemi.html"_s);
    trigger(help, u"forward"_s);
    QCOMPARE(shownPage(help), u"indice.html"_s);
    trigger(help, u"back"_s);
    trigger(help, u"home"_s);
    QCOMPARE(shownPage(help), u"indice.html"_s);
}

void TestHelpService::closedWindowOpensAnew() {
    HelpService help;
    help.openHelp(nullptr, pathOf(u"2prev.html"_s));
    const QPointer first = help.window();
    first->close();
    QTRY_VERIFY(first.isNull());
    QCOMPARE(help.window(), nullptr);
    help.openHelp(nullptr, pathOf({}));
    QCOMPARE(shownPage(help), u"indice.html"_s);
    QVERIFY(!part<QAction>(help, u"back"_s)->isEnabled()); // nothing is remembered
}

void TestHelpService::copiesComeBackToTheirPaths() {
    const QTemporaryDir copies;
    const QString file = QStringLiteral(QUOR_HELP_FOLDER "/Quor.qhc");
    const auto pathOfCopy = [](HelpCollection& collection) {
        return collection.isReadable() ? collection.engine().collectionFile() : QString();
    };
    QString path;
    {
        HelpCollection first(file, copies.path());
        HelpCollection second(file, copies.path());
        path = pathOfCopy(first);
        QVERIFY(path.startsWith(copies.path()));
        QVERIFY(pathOfCopy(second).startsWith(copies.path()));
        QVERIFY(pathOfCopy(second) != path);
    }
    QVERIFY(QDir(copies.path()).isEmpty());
    HelpCollection again(file, copies.path());
    QCOMPARE(pathOfCopy(again), path);
}

void TestHelpService::unknownPageSaysSo() {
    HelpService help;
    help.openHelp(nullptr, pathOf(u"nessuna.html"_s));
    QVERIFY(browser(help)->toPlainText().contains(u"Pagina non trovata"_s));
    QVERIFY(browser(help)->toPlainText().contains(u"nessuna.html"_s));
}

void TestHelpService::linksOutsideAreNotFollowed() {
    HelpService help;
    help.openHelp(nullptr, pathOf(u"1nuovo.html"_s));
    const QString text = browser(help)->toPlainText();
    for (const char* address :
         {"http://example.org/", "file:///etc/hostname", "mailto:a@example.org"}) {
        browser(help)->setSource(QUrl(QString::fromLatin1(address)));
        QCOMPARE(shownPage(help), u"1nuovo.html"_s);
        QCOMPARE(browser(help)->toPlainText(), text);
    }
    browser(help)->setSource(QUrl(u"date.html"_s));
    QCOMPARE(shownPage(help), u"date.html"_s);
}

/// The toolkit lets an input method write into a text that is read only. A page that had grown
/// would be left from a place that it does not have when one comes back.
void TestHelpService::nobodyWritesIntoThePage() {
    HelpService help;
    help.openHelp(nullptr, pathOf(u"1nuovo.html"_s));
    HelpBrowser* page = browser(help);
    const QString text = page->toPlainText();
    QVERIFY(QTest::qWaitForWindowActive(help.window()));
    page->setFocus();
    QInputMethodEvent typing;
    typing.setCommitString(QString(4000, u'x'));
    QCoreApplication::sendEvent(page, &typing);
    QCOMPARE(page->toPlainText(), text);

    // From the last link of the page to another one, and back.
    QTest::keyClick(page, Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(page->textCursor().hasSelection());
    const int link = page->textCursor().position();
    QTest::keyClick(page, Qt::Key_Return);
    QVERIFY(shownPage(help) != u"1nuovo.html"_s);
    trigger(help, u"back"_s);
    QCOMPARE(shownPage(help), u"1nuovo.html"_s);
    QCOMPARE(page->textCursor().position(), link);
}

void TestHelpService::contentsFollowThePage() {
    HelpService help;
    help.openHelp(nullptr, pathOf(u"2prev.html"_s));
    auto* contents = part<QHelpContentWidget>(help, u"contents"_s);
    const auto current = [contents] { return contents->currentIndex().data().toString(); };
    QTRY_COMPARE(current(), u"Le previsioni"_s);
    const QModelIndex glossary = contents->indexOf(helpPageUrl(u"glossario.html"_s));
    QVERIFY(glossary.isValid());
    emit contents->clicked(glossary);
    QCOMPARE(shownPage(help), u"glossario.html"_s);
    QCOMPARE(current(), u"Glossario"_s);
    help.openHelp(nullptr, pathOf(u"date.html#oggi"_s));
    QCOMPARE(current(), u"Come scrivere le date"_s);
    trigger(help, u"back"_s);
    QCOMPARE(current(), u"Glossario"_s);

    // A section that is a place on a page stays the chosen one.
    const QModelIndex root = contents->indexOf(helpPageUrl({}));
    const QModelIndex section = contents->model()->index(1, 0, root);
    QCOMPARE(section.data().toString(), u"Leggere i risultati"_s);
    emit contents->clicked(section);
    QCOMPARE(browser(help)->source(), helpPageUrl(u"indice.html#leggere"_s));
    QCOMPARE(current(), u"Leggere i risultati"_s);
    trigger(help, u"home"_s);
    QCOMPARE(current(), u"Guida di Quor"_s);
}

void TestHelpService::firstPageHasItsSheetAndPictures() {
    HelpService help;
    help.openHelp(nullptr, pathOf(u"leggere-grafico.html"_s));
    QTextDocument* page = browser(help)->document();
    QVERIFY(!page->resource(QTextDocument::StyleSheetResource, QUrl(u"quor.css"_s)).isNull());
    const auto picture =
        page->resource(QTextDocument::ImageResource, QUrl(u"img/grafico.png"_s)).value<QPixmap>();
    QVERIFY(!picture.isNull());
    // It fits the page beside the contents, in the window as it opens on an ordinary screen.
    constexpr qreal widestPicture = 680;
    QVERIFY(picture.deviceIndependentSize().width() <= widestPicture);
}

void TestHelpService::indexFindsATerm() {
    HelpService help;
    help.openHelp(nullptr, pathOf({}));
    auto* index = part<QHelpIndexWidget>(help, u"index"_s);
    QTRY_VERIFY(index->model()->rowCount() > 40);
    auto* filter = part<QLineEdit>(help, u"indexFilter"_s);
    QTest::keyClicks(filter, u"inversione"_s);
    QTRY_COMPARE(index->model()->rowCount(), 1);
    QTest::keyClick(filter, Qt::Key_Return);
    QTRY_COMPARE(browser(help)->source(), helpPageUrl(u"glossario.html#inversione"_s));
}

void TestHelpService::searchFindsInversione() {
    HelpService help;
    help.openHelp(nullptr, pathOf({}));
    auto* field = part<QLineEdit>(help, u"searchText"_s);
    auto* results = part<QListWidget>(help, u"searchResults"_s);
    // At once, before the pages are indexed: the answer comes when they are.
    QTest::keyClicks(field, u"inversione"_s);
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(results->count() >= 2, 20000);
    QStringList titles;
    for (int row = 0; row < results->count(); ++row) {
        titles << results->item(row)->text();
    }
    QVERIFY2(titles.contains(u"Le previsioni"_s), qPrintable(titles.join(u'|')));
    QVERIFY(!titles.contains(u"Contatti"_s));

    emit results->itemActivated(
        results->item(static_cast<int>(titles.indexOf(u"Le previsioni"_s))));
    QCOMPARE(shownPage(help), u"2prev.html"_s);

    // As assistive tools do: they select without moving the current item along.
    const auto other = titles.indexOf(u"Le previsioni"_s) == 0 ? 1 : 0;
    results->selectionModel()->select(results->model()->index(other, 0),
                                      QItemSelectionModel::ClearAndSelect);
    QTRY_VERIFY(shownPage(help) != u"2prev.html"_s);
}

/// The thread of a search that has only just been started finds its object gone, now and then,
/// unless the collection outlives the window; and it must be gone when the program ends.
void TestHelpService::closesWhileItSearches() {
    for (int i = 0; i < 8; ++i) {
        HelpService help;
        help.openHelp(nullptr, pathOf({}));
        auto* field = part<QLineEdit>(help, u"searchText"_s);
        auto* results = part<QListWidget>(help, u"searchResults"_s);
        QTest::keyClicks(field, u"inversione"_s);
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_VERIFY_WITH_TIMEOUT(results->count() >= 2, 20000);
        QSignalSpy found(results->model(), &QAbstractItemModel::rowsInserted);
        for (int search = 0; search <= i % 3; ++search) {
            QTest::keyClick(field, Qt::Key_Return);
        }
        const QPointer<QWidget> viewer = field;
        delete help.window();
        QVERIFY(viewer.isNull());
        if (i % 2 == 0) { // else the program ends at once
            QTest::qWait(50);
        }
        QCOMPARE(found.count(), 0);
    }
}

void TestHelpService::searchTakesAnyText() {
    HelpService help;
    help.openHelp(nullptr, pathOf({}));
    auto* field = part<QLineEdit>(help, u"searchText"_s);
    // The tab by its access key, and one can type.
    QVERIFY(QTest::qWaitForWindowActive(help.window()));
    QTest::keyClick(help.window(), Qt::Key_C, Qt::AltModifier);
    QVERIFY(field->hasFocus());
    auto* note = part<QLabel>(help, u"searchNote"_s);
    auto* results = part<QListWidget>(help, u"searchResults"_s);
    const auto search = [&](const QString& text) {
        field->setText(text);
        QTest::keyClick(field, Qt::Key_Return);
    };
    search(u"\"inver* (l'umore AND"_s); // "and" is a word like any other, and no page has it
    QTRY_COMPARE_WITH_TIMEOUT(note->text(), u"Nessuna pagina trovata."_s, 20000);
    search(u"\"compatibil\" -"_s); // the beginning of a word
    QTRY_VERIFY(results->count() > 0);
    search(u" -*\" "_s);
    QCOMPARE(note->text(), u"Scrivere una o più parole da cercare."_s);
    QCOMPARE(results->count(), 0);
}

/// Threads fill the contents and the index, and may be done when the window is gone.
void TestHelpService::closesWhileItsListsAreFilled() {
    const auto collection =
        std::make_shared<HelpCollection>(QStringLiteral(QUOR_HELP_FOLDER "/Quor.qhc"));
    QVERIFY(collection->isReadable());
    auto window = std::make_unique<HelpWindow>(collection);
    const std::unique_ptr<QWidget> contents(collection->engine().contentWidget());
    const std::unique_ptr<QWidget> index(collection->engine().indexWidget());
    for (QWidget* list : {contents.get(), index.get()}) {
        list->setParent(nullptr); // else it would be gone as well
    }
    window.reset();
    for (QWidget* list : {contents.get(), index.get()}) {
        list->setCursor(Qt::ForbiddenCursor);
    }
    const QSignalSpy filled(collection->engine().contentModel(),
                            &QHelpContentModel::contentsCreated);
    const QSignalSpy indexed(collection->engine().indexModel(), &QHelpIndexModel::indexCreated);
    QTRY_VERIFY(!filled.isEmpty() && !indexed.isEmpty());
    for (const QWidget* list : {contents.get(), index.get()}) {
        QCOMPARE(list->cursor().shape(), Qt::ForbiddenCursor);
    }
}

void TestHelpService::findsInThePage() {
    HelpService help;
    help.openHelp(nullptr, pathOf(u"date.html"_s));
    auto* bar = part<QWidget>(help, u"findBar"_s);
    QVERIFY(!bar->isVisible());
    trigger(help, u"find"_s);
    QVERIFY(bar->isVisible());
    auto* field = part<QLineEdit>(help, u"findText"_s);
    const auto found = [&help] { return browser(help)->textCursor().selectionStart(); };

    field->setText(u"dicembre"_s);
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(browser(help)->textCursor().selectedText(), u"dicembre"_s);
    const int only = found();
    part<QAbstractButton>(help, u"findNext"_s)->click(); // round the page to the same place
    QCOMPARE(found(), only);

    field->setText(u"oggi"_s);
    part<QAbstractButton>(help, u"findNext"_s)->click();
    const int first = found();
    part<QAbstractButton>(help, u"findNext"_s)->click();
    QVERIFY(found() > first);
    part<QAbstractButton>(help, u"findPrevious"_s)->click();
    QCOMPARE(found(), first);

    field->setText(u"xyzzy"_s);
    part<QAbstractButton>(help, u"findNext"_s)->click();
    QCOMPARE(part<QLabel>(help, u"findNote"_s)->text(), u"Testo non trovato"_s);
    part<QAbstractButton>(help, u"findClose"_s)->click();
    QVERIFY(!bar->isVisible());
}

void TestHelpService::zoomGoesBackToNormal() {
    HelpService help;
    help.openHelp(nullptr, pathOf({}));
    const auto size = [&help] { return QFontInfo(browser(help)->font()).pointSizeF(); };
    const qreal normal = size();
    trigger(help, u"zoomIn"_s);
    trigger(help, u"zoomIn"_s);
    QVERIFY(size() > normal);
    trigger(help, u"zoomReset"_s);
    QCOMPARE(size(), normal);
    trigger(help, u"zoomOut"_s);
    QVERIFY(size() < normal);
}

void TestHelpService::staysUsableBesideAModalDialog_data() {
    QTest::addColumn<bool>("applicationModal");
    QTest::addColumn<bool>("helpFirst");
    QTest::newRow("application modal, help asked from it") << true << false;
    QTest::newRow("application modal, help already open") << true << true;
    QTest::newRow("window modal, help asked from it") << false << false;
    QTest::newRow("window modal, help already open") << false << true;
}

void TestHelpService::staysUsableBesideAModalDialog() {
    QFETCH(bool, applicationModal);
    QFETCH(bool, helpFirst);
    HelpService help;
    QWidget frame;
    frame.show();
    if (helpFirst) {
        help.openHelp(&frame, pathOf({}));
        QVERIFY(QTest::qWaitForWindowExposed(help.window()));
    }
    QDialog outer(&frame);
    outer.setWindowModality(applicationModal ? Qt::ApplicationModal : Qt::WindowModal);
    outer.show();
    QVERIFY(QTest::qWaitForWindowExposed(&outer));
    if (!helpFirst) {
        help.openHelp(&outer, pathOf({}));
        QVERIFY(QTest::qWaitForWindowExposed(help.window()));
    }
    QCOMPARE(helpWindows(), 1);
    const auto pressKey = [&help] {
        QTest::keyClick(help.window()->windowHandle(), Qt::Key_F, Qt::ControlModifier);
        const bool taken = part<QWidget>(help, u"findBar"_s)->isVisible();
        part<QAbstractButton>(help, u"findClose"_s)->click();
        return taken;
    };
    const auto isUsable = [&help] {
        // A click that is blocked never reaches the list.
        auto* tabs = part<QTabWidget>(help, u"tabs"_s);
        QTabBar* bar = tabs->tabBar();
        tabs->setCurrentIndex(0);
        const QPoint second = bar->mapTo(help.window(), bar->tabRect(1).center());
        QTest::mouseClick(help.window()->windowHandle(), Qt::LeftButton, {}, second);
        return tabs->currentIndex() == 1;
    };
    QVERIFY(isUsable());
    help.window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(help.window()));
    QVERIFY(pressKey());
    {
        // A box on top of the dialog, and back again.
        QDialog inner(&outer);
        inner.setModal(true);
        inner.show();
        QVERIFY(QTest::qWaitForWindowExposed(&inner));
        QVERIFY(isUsable());
        inner.hide();
        QCoreApplication::processEvents();
        QVERIFY(isUsable());
    }
    QVERIFY(isUsable());
    outer.hide();
    QCoreApplication::processEvents();
    QVERIFY(isUsable());
    QVERIFY(help.window()->isVisible());
}

void TestHelpService::survivesTheDialogItWasOpenedFrom() {
    HelpService help;
    {
        QDialog dialog;
        dialog.setModal(true);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        help.openHelp(&dialog, pathOf(u"1nuovo.html"_s));
        QVERIFY(QTest::qWaitForWindowExposed(help.window()));
    }
    QCoreApplication::processEvents();
    QVERIFY(help.window() != nullptr && help.window()->isVisible());
    QCOMPARE(help.window()->windowHandle()->transientParent(), nullptr);
    help.openHelp(nullptr, pathOf(u"date.html"_s));
    QCOMPARE(shownPage(help), u"date.html"_s);
    QCOMPARE(helpWindows(), 1);
}

void TestHelpService::missingHelpIsSaid() {
    HelpService help;
    const QTemporaryDir empty;
    ScriptedDialogs boxes;
    boxes.expectBox(u"Errore"_s, u"I file della guida non sono stati trovati.\n"
                                 "Per leggere la guida occorre installare di nuovo Quor."_s);
    help.openHelp(nullptr, empty.filePath(u"Quor.chm::/1nuovo.html"_s));
    QVERIFY(boxes.finished());
    QCOMPARE(help.window(), nullptr);
}

void TestHelpService::damagedHelpIsSaid_data() {
    QTest::addColumn<QString>("damage");
    for (const char* damage :
         {"empty collection", "no pages", "text", "half of the pages", "noise"}) {
        QTest::newRow(damage) << QString::fromLatin1(damage);
    }
}

void TestHelpService::damagedHelpIsSaid() {
    QFETCH(QString, damage);
    const QTemporaryDir folder;
    const QString collection = folder.filePath(u"Quor.qhc"_s);
    const QString pages = folder.filePath(u"Quor.qch"_s);
    QVERIFY(QFile::copy(QStringLiteral(QUOR_HELP_FOLDER "/Quor.qhc"), collection));
    QVERIFY(QFile::copy(QStringLiteral(QUOR_HELP_FOLDER "/Quor.qch"), pages));
    const auto overwrite = [](const QString& name, const QByteArray& bytes) {
        QFile file(name);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    };
    if (damage == u"empty collection"_s) {
        QVERIFY(overwrite(collection, {}));
    } else if (damage == u"no pages"_s) {
        QVERIFY(QFile::remove(pages));
    } else if (damage == u"text"_s) {
        QVERIFY(overwrite(collection, "this is no help\n") &&
                overwrite(pages, "this is no help\n"));
    } else if (damage == u"half of the pages"_s) {
        QVERIFY(QFile::resize(pages, 30000));
    } else {
        // The help engine reads on after a query that failed, and says so.
        QTest::ignoreMessage(QtWarningMsg, "QSqlQuery::value: not positioned on a valid record");
        const QByteArray noise = QByteArray("SQLite format 3\0", 16) + QByteArray(5000, 'x');
        QVERIFY(overwrite(collection, noise) && overwrite(pages, noise));
    }
    HelpService help;
    ScriptedDialogs boxes;
    boxes.expectBox(u"Errore"_s, u"I file della guida sono danneggiati o non si possono leggere.\n"
                                 "Per leggere la guida occorre installare di nuovo Quor."_s);
    help.openHelp(nullptr, folder.filePath(u"Quor.chm"_s));
    QVERIFY(boxes.finished());
    QCOMPARE(help.window(), nullptr);
}

void TestHelpService::aFullTemporaryFolderIsSaid() {
    const QTemporaryDir folder;
    const QByteArray before = qgetenv("TMPDIR");
    const auto finally = qScopeGuard([&before] {
        if (before.isNull()) {
            qunsetenv("TMPDIR");
        } else {
            qputenv("TMPDIR", before);
        }
    });
    HelpService help;
    ScriptedDialogs boxes;
    const auto openIn = [&](const QString& temporary) {
        qputenv("TMPDIR", QFile::encodeName(temporary));
        boxes.expectBox(u"Errore"_s, u"La guida non si può copiare nella cartella temporanea."_s);
        help.openHelp(nullptr, pathOf({}));
    };
    openIn(folder.filePath(u"manca"_s));
    QVERIFY(boxes.finished());
    rlimit old{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tight{.rlim_cur = 1000, .rlim_max = old.rlim_max};
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &tight), 0);
    openIn(folder.path());
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &old), 0);
    std::signal(SIGXFSZ, handler);
    QVERIFY(boxes.finished());
    QCOMPARE(help.window(), nullptr);

    // There is place again.
    help.openHelp(nullptr, pathOf({}));
    QVERIFY(help.window() != nullptr);
}

void TestHelpService::controlsHaveNames() {
    HelpService help;
    help.openHelp(nullptr, pathOf({}));
    for (const char* name : {"contents", "index", "indexFilter", "searchText", "searchResults",
                             "findText", "browser", "tabs"}) {
        const auto* widget = part<QWidget>(help, QString::fromLatin1(name));
        QVERIFY2(widget != nullptr && !widget->accessibleName().isEmpty(), name);
    }
    for (const char* name : {"back", "forward", "home", "zoomIn", "zoomOut", "zoomReset", "find"}) {
        const auto* action = part<QAction>(help, QString::fromLatin1(name));
        QVERIFY2(action != nullptr && !action->text().isEmpty(), name);
        QVERIFY2(!action->icon().isNull() && !action->shortcut().isEmpty(), name);
    }
}

/// With the find bar open, no two things that one sees at once answer to the same letter.
void TestHelpService::accessKeysAreTold() {
    HelpService help;
    help.openHelp(nullptr, pathOf({}));
    trigger(help, u"find"_s);
    auto* tabs = part<QTabWidget>(help, u"tabs"_s);
    QCOMPARE(tabs->count(), 3);
    for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        QStringList captions;
        for (int other = 0; other < tabs->count(); ++other) {
            captions << tabs->tabText(other);
        }
        for (const auto* button : help.window()->findChildren<QPushButton*>()) {
            if (button->isVisible()) {
                captions << button->text();
            }
        }
        for (const auto* label : help.window()->findChildren<QLabel*>()) {
            if (label->isVisible() && label->buddy() != nullptr) {
                captions << label->text();
            }
        }
        QVERIFY(captions.size() >= 7); // the tabs and the find bar at least
        QMap<QString, QString> owners;
        for (const QString& caption : captions) {
            const QString key = QKeySequence::mnemonic(caption).toString();
            QVERIFY2(!key.isEmpty(), qPrintable(caption));
            QVERIFY2(!owners.contains(key), qPrintable(caption + u" / "_s + owners.value(key)));
            owners.insert(key, caption);
        }
    }
}

} // namespace quor::test
