#include "TestFOpt.h"

#include "guidance/FOpt.h"
#include "support/RecordingFrame.h"

#include <QPointer>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace quor::test {

void TestFOpt::opensTheTwoDialogs() {
    RecordingFrame frame;
    FOpt window(frame);
    QCOMPARE(window.windowTitle(), u"Opzioni"_s);
    auto* graph = window.findChild<QPushButton*>(u"Command1"_s);
    auto* week = window.findChild<QPushButton*>(u"Command2"_s);
    QCOMPARE(graph->text(), u"Opzioni del grafico"_s);
    QCOMPARE(week->text(), u"Opzioni della statistica settimanale"_s);
    graph->click();
    week->click();
    const QStringList expected{
        u"run "_s + QString::fromLatin1(commandInfo(Command::graphOptions).name),
        u"run "_s + QString::fromLatin1(commandInfo(Command::weeklyOptions).name)};
    QCOMPARE(frame.calls, expected);
}

void TestFOpt::closes() {
    RecordingFrame frame;
    const QPointer window = new FOpt(frame);
    window->show();
    auto* button = window->findChild<QPushButton*>(u"Command3"_s);
    QCOMPARE(button->text(), u"Chiudi"_s);
    button->click();
    QTRY_VERIFY(window.isNull());
    QVERIFY(frame.calls.isEmpty());
}

} // namespace quor::test
