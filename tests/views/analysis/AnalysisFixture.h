#pragma once

#include "core/Biorhythm.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/ShowHelp.h"

#include "support/Hermetic.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTest>

#include <span>

/// What the tests of the day states' and forecasts' windows share.
namespace quor::test {

inline QDate calculationDay() {
    return {2004, 3, 15};
}

/// Maria, that many days old on the calculation day.
inline Program personAt(std::int32_t dayCount) {
    Program program;
    resetToStartUp(program);
    program.biorhythm.name = QStringLiteral("Maria");
    program.biorhythm.calculationDate = toDateValue(calculationDay());
    program.biorhythm.birthDate = program.biorhythm.calculationDate - dayCount;
    program.biorhythm.daysAtGraphStart = dayCountAtGraphStart(program.biorhythm);
    return program;
}

/// A system whose members are that many days old on the calculation day. The record holds somebody
/// else, as it does when a member has been entered last.
inline Program systemAt(std::span<const std::int32_t> dayCounts) {
    Program program = personAt(1234);
    program.state.systemOpen = true;
    program.state.systemCount = static_cast<std::int16_t>(dayCounts.size());
    for (const std::int32_t dayCount : dayCounts) {
        const auto number = program.state.systemMembers.size() + 1;
        program.state.systemMembers.push_back(
            {.name = QStringLiteral("Membro %1").arg(number),
             .birthDate = program.biorhythm.calculationDate - dayCount});
    }
    return program;
}

inline Program systemAt(std::initializer_list<std::int32_t> dayCounts) {
    return systemAt(std::span(dayCounts.begin(), dayCounts.size()));
}

/// The largest number of members that a system can have.
inline constexpr std::size_t mostMembers = 32'767;

inline QString boxText(const QWidget& window, const QString& box) {
    return window.findChild<QLineEdit*>(box)->text();
}

inline QStringList boxTexts(const QWidget& window, const QStringList& boxes) {
    QStringList texts;
    for (const QString& box : boxes) {
        texts << boxText(window, box);
    }
    return texts;
}

/// The values of a day state: physical, emotional, intellectual, mean.
inline QStringList stateTexts(const QWidget& window) {
    return boxTexts(window, {QStringLiteral("Text2"), QStringLiteral("Text3"),
                             QStringLiteral("Text4"), QStringLiteral("Text5")});
}

/// What the arrows of a day state say, in the same order.
inline QStringList arrowNames(const QWidget& window) {
    QStringList names;
    for (int i = 1; i <= 4; ++i) {
        names << window.findChild<QWidget*>(QStringLiteral("Image1_%1").arg(i))->accessibleName();
    }
    return names;
}

/// The dates of a forecast: inversion, maximum, minimum.
inline QStringList dates(const QWidget& window) {
    return boxTexts(window,
                    {QStringLiteral("Text1"), QStringLiteral("Text2"), QStringLiteral("Text3")});
}

/// The days to wait of a forecast, in the same order.
inline QStringList waits(const QWidget& window) {
    return boxTexts(window,
                    {QStringLiteral("Text4"), QStringLiteral("Text5"), QStringLiteral("Text6")});
}

/// The names of what the tab key visits, from the given control on.
inline QStringList tabOrder(const QWidget& window, const QString& from) {
    QStringList order;
    const QWidget* first = window.findChild<QWidget*>(from);
    const QWidget* next = first;
    do {
        if ((next->focusPolicy() & Qt::TabFocus) != 0) {
            order << next->objectName();
        }
        next = next->nextInFocusChain();
    } while (next != first);
    return order;
}

/// What a box leaves for its text: the style's part of it less the blank that the box keeps on
/// either side.
inline int roomIn(const QLineEdit& box) {
    QStyleOptionFrame option;
    option.initFrom(&box);
    option.lineWidth = box.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &box);
    return box.style()->subElementRect(QStyle::SE_LineEditContents, &option, &box).width() - 2 * 2;
}

/// Its button closes the window and its frame.
inline void verifyCloses(ChildWindow* child) {
    QMdiArea area;
    const QPointer<ChildWindow> window = child;
    const QPointer<QMdiSubWindow> frame = area.addSubWindow(window);
    frame->setAttribute(Qt::WA_DeleteOnClose);
    area.show();
    window->show();
    const QSignalSpy closed(window, &ChildWindow::closed);
    auto* button = window->findChild<QPushButton*>(QStringLiteral("Command1"));
    QCOMPARE(button->text(), QStringLiteral("&Chiudi"));
    button->click();
    QCOMPARE(closed.count(), 1);
    QTRY_VERIFY(!window && !frame);
}

/// Its help button opens that topic.
inline void verifyHelp(const QWidget& window, const QString& topic) {
    QStringList opened;
    setHelpViewer([&](QWidget* asking, const QString& path) {
        QCOMPARE(asking, &window);
        opened << path;
    });
    auto* button = window.findChild<QPushButton*>(QStringLiteral("Command2"));
    button->click();
    setHelpViewer({});
    QCOMPARE(button->text(), QStringLiteral("&?"));
    QCOMPARE(button->toolTip(), QStringLiteral("Guida di questa finestra"));
    QCOMPARE(opened, QStringList{helpPath(topic)});
}

/// The boxes take no typing, but what they show can be copied.
inline void verifyReadOnlyAndCopyable(const QWidget& window, const QStringList& boxes) {
    for (const QString& name : boxes) {
        auto* box = window.findChild<QLineEdit*>(name);
        const QString shown = box->text();
        QVERIFY(box->isReadOnly());
        QVERIFY(box->isEnabled());
        QTest::keyClicks(box, QStringLiteral("5"));
        QCOMPARE(box->text(), shown);
        box->setFocus();
        box->selectAll();
        QTest::keySequence(box, QKeySequence::Copy);
        QCOMPARE(QGuiApplication::clipboard()->text(), shown);
    }
}

} // namespace quor::test
