#pragma once

#include "toolkit/Commands.h"

#include <array>
#include <span>
#include <vector>

namespace quor {

/// Which commands, toolbar buttons and menus are usable: each has a state of its own, and above
/// those lies the lock of a guided tour while one is running. The own states may change under the
/// lock; when it is gone, everything is as if it had never been.
class CommandStates {
  public:
    /// As at every start, without a lock.
    CommandStates();

    void setCommandEnabled(Command command, bool enabled);
    /// @param position 1-based, separators counted
    void setToolEnabled(int position, bool enabled);
    void setMenuEnabled(Menu menu, bool enabled);

    /// Leaves the allowed commands, with their buttons, in their own states and disables all
    /// others.
    void lock(std::span<const Command> allowed);
    void unlock();
    [[nodiscard]] bool isLocked() const { return m_locked; }

    [[nodiscard]] bool isCommandEnabled(Command command) const;
    [[nodiscard]] bool isToolEnabled(int position) const;
    /// A menu can be opened whatever the lock says of its commands.
    [[nodiscard]] bool isMenuEnabled(Menu menu) const;

  private:
    [[nodiscard]] bool passes(Command command) const;

    std::array<bool, commandCount> m_commands{};
    std::array<bool, toolCount> m_tools{};
    std::array<bool, static_cast<std::size_t>(Menu::none)> m_menus{};
    bool m_locked = false;
    std::vector<Command> m_allowed;
};

} // namespace quor
