#include "shell/CommandStates.h"

#include <algorithm>

namespace quor {

namespace {

std::size_t index(Command command) {
    return static_cast<std::size_t>(command);
}

std::size_t index(Menu menu) {
    return static_cast<std::size_t>(menu);
}

std::size_t toolIndex(int position) {
    return static_cast<std::size_t>(position) - 1;
}

} // namespace

CommandStates::CommandStates() {
    for (const CommandInfo& info : commandTable()) {
        m_commands.at(index(info.command)) = info.needs == Needs::nothing;
    }
    for (const ToolInfo& info : toolTable()) {
        m_tools.at(info.index()) = !info.startsDisabled;
    }
    m_menus.fill(true);
}

void CommandStates::setCommandEnabled(Command command, bool enabled) {
    m_commands.at(index(command)) = enabled;
}

void CommandStates::setToolEnabled(int position, bool enabled) {
    m_tools.at(toolIndex(position)) = enabled;
}

void CommandStates::setMenuEnabled(Menu menu, bool enabled) {
    m_menus.at(index(menu)) = enabled;
}

void CommandStates::lock(std::span<const Command> allowed) {
    m_locked = true;
    m_allowed.assign(allowed.begin(), allowed.end());
}

void CommandStates::unlock() {
    m_locked = false;
    m_allowed.clear();
}

bool CommandStates::isCommandEnabled(Command command) const {
    return m_commands.at(index(command)) && passes(command);
}

bool CommandStates::isToolEnabled(int position) const {
    const std::size_t tool = toolIndex(position);
    return m_tools.at(tool) && passes(toolTable()[tool].command);
}

bool CommandStates::isMenuEnabled(Menu menu) const {
    return m_menus.at(index(menu));
}

bool CommandStates::passes(Command command) const {
    return !m_locked || std::ranges::find(m_allowed, command) != m_allowed.end();
}

} // namespace quor
