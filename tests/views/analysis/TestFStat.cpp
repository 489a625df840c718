#include "views/analysis/TestFStat.h"

#include "toolkit/ShowHelp.h"
#include "views/analysis/FStat.h"
#include "views/analysis/StateBars.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

Program personAt(std::int32_t dayCount) {
    Program program;
    resetToStartUp(program);
    program.biorhythm.name = u"Maria"_s;
    program.biorhythm.calculationDate = toDateValue(QDate(2004, 3, 15));
    program.biorhythm.birthDate = program.biorhythm.calculationDate - dayCount;
    program.biorhythm.daysAtGraphStart = dayCountAtGraphStart(program.biorhythm);
    return program;
}

QStringList boxTexts(const QWidget& window) {
    QStringList texts;
    for (const QString& name : {u"Text2"_s, u"Text3"_s, u"Text4"_s, u"Text5"_s}) {
        texts << window.findChild<QLineEdit*>(name)->text();
    }
    return texts;
}

QStringList arrowNames(const QWidget& window) {
    QStringList names;
    for (int i = 1; i <= 4; ++i) {
        names << window.findChild<QWidget*>(u"Image1_%1"_s.arg(i))->accessibleName();
    }
    return names;
}

} // namespace

void TestFStat::knownPerson() {
    Program program = personAt(0);
    program.biorhythm.birthDate = toDateValue(QDate(1981, 12, 25));
    program.biorhythm.daysAtGraphStart = dayCountAtGraphStart(program.biorhythm);
    const FStat window(program);
    QCOMPARE(boxTexts(window), (QStringList{u"-7"_s, u"-8"_s, u"-4"_s, u"-6"_s}));
    QCOMPARE(arrowNames(window),
             (QStringList{u"Stato fisico in salita"_s, u"Stato emotivo in salita"_s,
                          u"Stato intellettivo in salita"_s, u"Media in salita"_s}));
    QCOMPARE(window.findChild<StateBars*>()->accessibleDescription(),
             u"Fisico -7, Emotivo -8, Intellettivo -4, Media -6"_s);
}

void TestFStat::zeroCrossing() {
    const FStat window(personAt(0));
    QCOMPARE(boxTexts(window), (QStringList{u"0"_s, u"0"_s, u"0"_s, u"0"_s}));
    for (const QString& name : arrowNames(window)) {
        QVERIFY(name.endsWith(u" in salita"_s));
    }
    // No plus sign before a positive value, and the emotional maximum.
    const FStat later(personAt(7));
    QCOMPARE(boxTexts(later), (QStringList{u"9"_s, u"10"_s, u"10"_s, u"10"_s}));
    const FStat before(personAt(-7));
    QCOMPARE(boxTexts(before), (QStringList{u"-9"_s, u"-10"_s, u"-10"_s, u"-10"_s}));
}

void TestFStat::boxesAreReadOnlyAndCopyable() {
    FStat window(personAt(8116));
    for (const QString& name : {u"Text2"_s, u"Text3"_s, u"Text4"_s, u"Text5"_s}) {
        auto* box = window.findChild<QLineEdit*>(name);
        const QString text = box->text();
        QVERIFY(box->isReadOnly());
        QVERIFY(box->isEnabled());
        QTest::keyClicks(box, u"5"_s);
        QCOMPARE(box->text(), text);
        box->setFocus();
        box->selectAll();
        QTest::keySequence(box, QKeySequence::Copy);
        QCOMPARE(QGuiApplication::clipboard()->text(), text);
    }
}

void TestFStat::barsWearTheCurveColours() {
    Program program = personAt(7);
    program.biorhythm.curveColours = {0x102030, 0x405060, 0x708090, 0xA0B0C0, 0};
    FStat window(program);
    window.resize(window.sizeHint());
    const QImage image = window.grab().toImage();
    for (const QRgb colour : {0x302010U, 0x605040U, 0x908070U, 0xC0B0A0U}) {
        bool found = false;
        for (int y = 0; y < image.height() && !found; ++y) {
            for (int x = 0; x < image.width() && !found; ++x) {
                found = (image.pixel(x, y) & 0xFFFFFF) == colour;
            }
        }
        QVERIFY(found);
    }
}

void TestFStat::staysAsItWasMade() {
    Program program = personAt(8116);
    const FStat first(program);
    program = personAt(7);
    const FStat second(program);
    QCOMPARE(boxTexts(first), (QStringList{u"-7"_s, u"-8"_s, u"-4"_s, u"-6"_s}));
    QCOMPARE(boxTexts(second), (QStringList{u"9"_s, u"10"_s, u"10"_s, u"10"_s}));
}

void TestFStat::titleAndObjectName() {
    const FStat window(personAt(1));
    QCOMPARE(window.windowTitle(), u"Stato Odierno"_s);
    QCOMPARE(window.objectName(), u"FStat"_s);
}

void TestFStat::closes() {
    QMdiArea area;
    const QPointer<FStat> window = new FStat(personAt(1));
    const QPointer<QMdiSubWindow> frame = area.addSubWindow(window);
    frame->setAttribute(Qt::WA_DeleteOnClose);
    area.show();
    window->show();
    const QSignalSpy closed(window, &ChildWindow::closed);
    auto* button = window->findChild<QPushButton*>(u"Command1"_s);
    QCOMPARE(button->text(), u"&Chiudi"_s);
    button->click();
    QCOMPARE(closed.count(), 1);
    QTRY_VERIFY(!window && !frame);
}

void TestFStat::helpOpensItsTopic() {
    FStat window(personAt(1));
    QStringList opened;
    setHelpViewer([&](QWidget* asking, const QString& path) {
        QCOMPARE(asking, &window);
        opened << path;
    });
    auto* button = window.findChild<QPushButton*>(u"Command2"_s);
    QCOMPARE(button->text(), u"&?"_s);
    QCOMPARE(button->toolTip(), u"Guida di questa finestra"_s);
    button->click();
    setHelpViewer({});
    QCOMPARE(opened, QStringList{helpPath(u"2stato.html"_s)});
}

void TestFStat::tabOrder() {
    const FStat window(personAt(1));
    QStringList order;
    const QWidget* first = window.findChild<QWidget*>(u"Text2"_s);
    const QWidget* next = first;
    do {
        if ((next->focusPolicy() & Qt::TabFocus) != 0) {
            order << next->objectName();
        }
        next = next->nextInFocusChain();
    } while (next != first);
    QCOMPARE(order, (QStringList{u"Text2"_s, u"Text3"_s, u"Text4"_s, u"Text5"_s, u"Command1"_s,
                                 u"Command2"_s}));
}

void TestFStat::labelsBelongToTheirBoxes() {
    const FStat window(personAt(1));
    QMap<QString, QString> labels;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        QVERIFY(label->buddy());
        labels[label->buddy()->objectName()] = label->text();
    }
    QCOMPARE(labels, (QMap<QString, QString>{{u"Text2"_s, u"Stato fisico:"_s},
                                             {u"Text3"_s, u"Stato emotivo:"_s},
                                             {u"Text4"_s, u"Stato intellettivo:"_s},
                                             {u"Text5"_s, u"Media:"_s}}));
}

void TestFStat::fitsItsTexts() {
    FStat window(personAt(-7));
    window.resize(window.minimumSizeHint());
    window.layout()->activate();
    for (const auto* box : window.findChildren<QLineEdit*>()) {
        const int text = box->fontMetrics().horizontalAdvance(u"-10"_s);
        QVERIFY(box->width() >= text + 4);
        QVERIFY(box->width() < 4 * text); // a small box for a small number
    }
}

} // namespace quor::test
