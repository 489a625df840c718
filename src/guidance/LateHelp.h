#pragma once

#include <QString>

#include <memory>

class QWidget;

namespace quor {

/// Who shows the help: the one behind `ShowHelp`.
class HelpOpener {
  public:
    HelpOpener() = default;
    /// Closes the help.
    virtual ~HelpOpener() = default;
    HelpOpener(const HelpOpener&) = delete;
    HelpOpener& operator=(const HelpOpener&) = delete;
    HelpOpener(HelpOpener&&) = delete;
    HelpOpener& operator=(HelpOpener&&) = delete;

    /// Shows the page in the one window of the help and brings it to the front. Help that is
    /// missing or cannot be read is a message box.
    /// @param window the window that asks
    /// @param helpPath "<folder>/Quor.chm", for a topic followed by "::/1nuovo.html"
    virtual void openHelp(QWidget* window, const QString& helpPath) = 0;
};

/// What the module `quor-help` offers. It alone uses Qt's engine for help, with its database.
struct HelpModule {
    const char* version; ///< that of the program
    std::unique_ptr<HelpOpener> (*make)();
};

/// The module's one function.
extern "C" const HelpModule* quorHelp();

/// Loads the module when the help is opened for the first time.
class LateHelp : public HelpOpener {
  public:
    /// A module that cannot be loaded is a message box.
    void openHelp(QWidget* window, const QString& helpPath) override;

  private:
    std::unique_ptr<HelpOpener> m_help;
};

} // namespace quor
