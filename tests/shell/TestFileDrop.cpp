#include "shell/TestFileDrop.h"

#include "shell/FrameFixture.h"

#include "storage/SystemFile.h"

#include <QDialog>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

constexpr auto everyAction = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;

/// What a file manager drags.
class Drag {
  public:
    explicit Drag(const QList<QUrl>& urls, Qt::DropActions actions = everyAction)
        : m_actions(actions) {
        m_data.setUrls(urls);
    }
    explicit Drag(const QString& path, Qt::DropActions actions = everyAction)
        : Drag(QList{QUrl::fromLocalFile(path)}, actions) {}

    /// Carries it onto a widget. @return whether it would be taken there
    bool enter(QWidget& widget) {
        QDragEnterEvent event({5, 5}, m_actions, &m_data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
        return event.isAccepted();
    }
    bool move(QWidget& widget) {
        QDragMoveEvent event({6, 6}, m_actions, &m_data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
        return event.isAccepted();
    }
    bool drop(QWidget& widget) {
        QDropEvent event({6, 6}, m_actions, &m_data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
        action = event.dropAction();
        return event.isAccepted();
    }

    Qt::DropAction action = Qt::IgnoreAction; ///< what the drop was taken for

  private:
    QMimeData m_data;
    Qt::DropActions m_actions;
};

QString writeSystem(const FrameFixture& fixture) {
    Program other;
    resetToStartUp(other);
    other.biorhythm.calculationDate = toDateValue(QDate(2026, 11, 21));
    other.state.systemCount = 1;
    other.state.systemMembers = {{u"Anna"_s, toDateValue(QDate(1981, 12, 25))}};
    QString path = fixture.folder.filePath(u"Famiglia.BRS"_s);
    if (saveSystemFile(path, other)) {
        qFatal("cannot write the test's own file");
    }
    return path;
}

QString writeToday(const FrameFixture& fixture, const QString& name = u"Anna"_s) {
    return fixture.write(name, {2026, 11, 21});
}

} // namespace

void TestFileDrop::aFileIsOpened() {
    FrameFixture fixture;
    const QString path = writeToday(fixture, u"Nicolò & figli"_s);
    Drag drag(path);
    QVERIFY(drag.enter(fixture.frame));
    QVERIFY(drag.move(fixture.frame));
    QVERIFY(drag.drop(fixture.frame));
    // Not while the file manager is still waiting for the end of the drop.
    QVERIFY(!fixture.program.biorhythm.isPresent());
    QCoreApplication::processEvents();
    QCOMPARE(fixture.program.biorhythm.name, u"Nicolò & figli"_s);
    QCOMPARE(fixture.program.state.filePath, path);
}

void TestFileDrop::wherever() {
    FrameFixture fixture;
    fixture.enter();
    Drag drag(writeToday(fixture));
    QMdiSubWindow* window = fixture.area()->subWindowList().constFirst();
    int places = 0;
    for (QWidget* widget : {static_cast<QWidget*>(fixture.area()), fixture.area()->viewport(),
                            static_cast<QWidget*>(window), window->widget(),
                            static_cast<QWidget*>(fixture.frame.statusBar())}) {
        QVERIFY2(drag.enter(*widget), widget->metaObject()->className());
        ++places;
    }
    // And whatever the window holds: its fields of text are for reading.
    for (QWidget* widget : window->widget()->findChildren<QWidget*>()) {
        if (!widget->isWindow() && widget->isVisible()) {
            QVERIFY2(drag.enter(*widget), qPrintable(widget->objectName()));
            ++places;
        }
    }
    QVERIFY(places > 10);
}

void TestFileDrop::theUsualQuestions() {
    FrameFixture fixture;
    fixture.enter();
    const QString path = fixture.write(u"Anna"_s); // of another day
    for (const Answer close : {Answer::no, Answer::yes}) {
        Drag drag(path);
        QVERIFY(drag.enter(fixture.frame) && drag.drop(fixture.frame));
        fixture.expectClosing(close);
        if (close == Answer::yes) {
            fixture.expectSaving(Answer::no);
            fixture.expectUpdate(Answer::no);
        }
        QCoreApplication::processEvents();
        QVERIFY(fixture.dialogs.finished());
        QCOMPARE(fixture.program.biorhythm.name,
                 close == Answer::yes ? u"Anna"_s : u"Maria Rossi"_s);
    }
    const QAction* recent =
        fixture.frame.findChild<QMenu*>(u"mnuBioritmiRecenti"_s)->actions().constFirst();
    QCOMPARE(recent->text(), u"&1 Anna.bio"_s);
}

void TestFileDrop::aSystem() {
    FrameFixture fixture;
    const QString path = writeSystem(fixture);
    Drag drag(path);
    QVERIFY(drag.enter(fixture.frame) && drag.drop(fixture.frame));
    QCoreApplication::processEvents();
    QVERIFY(fixture.program.state.systemOpen);
    QCOMPARE(fixture.program.state.systemFilePath, path);

    // The menu of biorhythms rests while a system is open, that of systems does not.
    Drag person(writeToday(fixture));
    QVERIFY(!person.enter(fixture.frame) && !person.drop(fixture.frame));
    QVERIFY(drag.enter(fixture.frame) && drag.drop(fixture.frame));
    fixture.dialogs.expectQuestion(
        u"Conferma"_s,
        u"Questo comporterà la chiusura del sistema aperto attualmente. Si desidera continuare "
        "ugualmente?"_s,
        Answer::no);
    QCoreApplication::processEvents();
    QVERIFY(fixture.dialogs.finished());
    QCOMPARE(fixture.program.state.systemCount, std::int16_t{1});
}

void TestFileDrop::whatIsRefused_data() {
    QTest::addColumn<QStringList>("urls");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("another kind") << QStringList{u"file://%1/x.txt"_s};
    QTest::newRow("no dot") << QStringList{u"file://%1/xbio"_s};
    QTest::newRow("missing") << QStringList{u"file://%1/missing.bio"_s};
    QTest::newRow("a folder") << QStringList{u"file://%1/folder.bio"_s};
    QTest::newRow("two") << QStringList{u"file://%1/Anna.bio"_s, u"file://%1/Lia.bio"_s};
    QTest::newRow("the same twice")
        << QStringList{u"file://%1/Anna.bio"_s, u"file://%1/Anna.bio"_s};
    QTest::newRow("from the network") << QStringList{u"https://example.org/Anna.bio"_s};
    QTest::newRow("of another machine") << QStringList{u"file://elsewhere.example%1/Anna.bio"_s};
    QTest::newRow("a null character") << QStringList{u"file://%1/x%00.bio"_s};
    QTest::newRow("relative") << QStringList{u"Anna.bio"_s};
}

void TestFileDrop::whatIsRefused() {
    QFETCH(QStringList, urls);
    FrameFixture fixture;
    const QString anna = writeToday(fixture);
    QVERIFY(!writeToday(fixture, u"Lia"_s).isEmpty());
    QVERIFY(QFile::copy(anna, fixture.folder.filePath(u"x.txt"_s)));
    QVERIFY(QFile::copy(anna, fixture.folder.filePath(u"xbio"_s)));
    QVERIFY(QDir(fixture.folder.path()).mkdir(u"folder.bio"_s));
    QList<QUrl> list;
    for (const QString& url : urls) {
        list << QUrl(QString(url).replace(u"%1"_s, fixture.folder.path()));
    }
    Drag drag(list);
    QVERIFY(!drag.enter(fixture.frame));
    QVERIFY(!drag.move(fixture.frame));
    QVERIFY(!drag.drop(fixture.frame));
    QCoreApplication::processEvents();
    QVERIFY(!fixture.program.biorhythm.isPresent());

    // With this machine's name it is welcome: some file managers give it.
    for (const QString& host : {QString(), u"localhost"_s, QSysInfo::machineHostName()}) {
        QVERIFY2(Drag(QList{QUrl(u"file://%1%2"_s.arg(host, anna))}).enter(fixture.frame),
                 qPrintable(host));
    }
}

void TestFileDrop::theFileStaysWhereItIs() {
    FrameFixture fixture;
    const QString path = writeToday(fixture);
    for (const auto& [actions, taken] :
         {std::pair{Qt::DropActions(everyAction), Qt::CopyAction},
          std::pair{Qt::MoveAction | Qt::CopyAction, Qt::CopyAction},
          std::pair{Qt::MoveAction | Qt::LinkAction, Qt::LinkAction}}) {
        Drag drag(path, actions);
        QVERIFY(drag.enter(fixture.frame) && drag.drop(fixture.frame));
        QCOMPARE(drag.action, taken);
    }
    Drag drag(path, Qt::MoveAction);
    QVERIFY(!drag.enter(fixture.frame) && !drag.drop(fixture.frame));
}

void TestFileDrop::whileOpeningIsLocked() {
    FrameFixture fixture;
    Drag person(writeToday(fixture));
    Drag system(writeSystem(fixture));
    const auto check = [&](bool expected) {
        for (Drag* drag : {&person, &system}) {
            QCOMPARE(drag->enter(fixture.frame), expected);
            QCOMPARE(drag->move(fixture.frame), expected);
        }
    };
    check(true);
    fixture.frame.lockCommands({}); // by a tour
    check(false);
    QVERIFY(!person.drop(fixture.frame));
    fixture.frame.unlockCommands();
    check(true);
    fixture.frame.setMenuEnabled(Menu::mnuFile, false); // while a system is exported
    QVERIFY(person.enter(fixture.frame));
    QVERIFY(!system.enter(fixture.frame));
    fixture.frame.setMenuEnabled(Menu::mnuFile, true);
    // While a person is; no event is sent to a disabled frame, but a drop may be on its way.
    fixture.frame.setEnabled(false);
    check(false);
    fixture.frame.setEnabled(true);
    check(true);
    // It changes while the mouse is over the frame.
    QVERIFY(person.enter(fixture.frame));
    fixture.frame.lockCommands({});
    QVERIFY(!person.move(fixture.frame));
    QVERIFY(!person.drop(fixture.frame));
    QCoreApplication::processEvents();
    QVERIFY(!fixture.program.biorhythm.isPresent());
}

void TestFileDrop::whileADialogIsOpen() {
    FrameFixture fixture;
    Drag drag(writeToday(fixture));
    QDialog dialog(&fixture.frame);
    dialog.open();
    QVERIFY(!drag.enter(fixture.frame));
    QVERIFY(!drag.drop(fixture.frame));
    dialog.close();
    QVERIFY(drag.enter(fixture.frame));
}

void TestFileDrop::lockedBetweenDropAndOpening() {
    FrameFixture fixture;
    Drag drag(writeToday(fixture));
    QVERIFY(drag.enter(fixture.frame) && drag.drop(fixture.frame));
    fixture.frame.lockCommands({});
    QCoreApplication::processEvents();
    QVERIFY(!fixture.program.biorhythm.isPresent());
}

} // namespace quor::test
