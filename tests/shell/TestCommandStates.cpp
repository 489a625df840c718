#include "shell/TestCommandStates.h"

#include "shell/CommandStates.h"

#include <array>

namespace quor::test {

namespace {

constexpr int saveTool = 7;
constexpr int graphTool = 9;
constexpr int helpTool = 20;

} // namespace

void TestCommandStates::atStart() {
    const CommandStates states;
    QVERIFY(!states.isLocked());
    for (const CommandInfo& info : commandTable()) {
        QCOMPARE(states.isCommandEnabled(info.command), info.needs == Needs::nothing);
    }
    for (const ToolInfo& info : toolTable()) {
        QCOMPARE(states.isToolEnabled(info.position), !info.startsDisabled);
    }
    for (const MenuInfo& info : menuTable()) {
        QVERIFY(states.isMenuEnabled(info.menu));
    }
}

void TestCommandStates::theLockLiesAboveTheStates() {
    CommandStates states;
    states.setCommandEnabled(Command::mnuGrafico, true);
    states.setToolEnabled(graphTool, true);
    constexpr std::array allowed{Command::mnuGrafico, Command::mnuSalvaBioritmo};
    states.lock(allowed);
    QVERIFY(states.isLocked());
    // What is allowed is as it is by itself: the graph is there, there is nothing to save.
    for (const CommandInfo& info : commandTable()) {
        QCOMPARE(states.isCommandEnabled(info.command), info.command == Command::mnuGrafico);
    }
    for (const ToolInfo& info : toolTable()) {
        QCOMPARE(states.isToolEnabled(info.position), info.position == graphTool);
    }
    // One lock replaces another.
    constexpr std::array help{Command::mnuHlpCompleto};
    states.lock(help);
    QVERIFY(!states.isToolEnabled(graphTool));
    QVERIFY(states.isToolEnabled(helpTool));
    states.unlock();
    QVERIFY(!states.isLocked());
    QVERIFY(states.isCommandEnabled(Command::mnuCalcola));
    QVERIFY(states.isToolEnabled(graphTool));
    QVERIFY(!states.isToolEnabled(saveTool));
}

void TestCommandStates::changesUnderTheLockAreKept() {
    CommandStates states;
    states.lock({});
    states.setCommandEnabled(Command::mnuSalvaBioritmo, true);
    states.setToolEnabled(saveTool, true);
    states.setCommandEnabled(Command::mnuCalcola, false);
    states.setToolEnabled(helpTool, false);
    QVERIFY(!states.isCommandEnabled(Command::mnuSalvaBioritmo));
    QVERIFY(!states.isToolEnabled(saveTool));
    states.unlock();
    QVERIFY(states.isCommandEnabled(Command::mnuSalvaBioritmo));
    QVERIFY(states.isToolEnabled(saveTool));
    QVERIFY(!states.isCommandEnabled(Command::mnuCalcola));
    QVERIFY(!states.isToolEnabled(helpTool));
}

void TestCommandStates::menusCanBeOpened() {
    CommandStates states;
    states.setMenuEnabled(Menu::mnuBioritmi, false);
    states.lock({});
    QVERIFY(states.isMenuEnabled(Menu::mnuHelp));
    QVERIFY(!states.isMenuEnabled(Menu::mnuBioritmi));
    states.setMenuEnabled(Menu::mnuBioritmi, true);
    states.unlock();
    QVERIFY(states.isMenuEnabled(Menu::mnuBioritmi));
}

} // namespace quor::test
