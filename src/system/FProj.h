#pragma once

#include "core/Biorhythm.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/Frame.h"

namespace quor {

/// The window of the open system. One exists while a system is open, and closing it closes the
/// system.
class FProj : public ChildWindow {
    Q_OBJECT

  public:
    /// Opens the system.
    FProj(Program& program, Frame& frame, QWidget* parent = nullptr);

    /// Shows the members that a file brought.
    void fillTree();

    /// Takes the person of the record into the system; a name that a member has already is refused
    /// with a message, and so is a member beyond the largest number that a system can have.
    void addMember(const QString& name);

    /// Hands the whole system to the export window.
    void exportSystem();

    /// What a guided tour leaves usable: everything, the two buttons that insert a member, or no
    /// button. The window can be closed by its frame whatever is left.
    enum class Usable : std::uint8_t { everything, insertion, nothing };
    void setUsable(Usable usable);
    [[nodiscard]] Usable usable() const { return m_usable; }

  protected:
    /// Asks whether to close the system and, where it has changes, whether to save them.
    void closeEvent(QCloseEvent* event) override;

  private:
    Program& m_program;
    Frame& m_frame;
    Usable m_usable = Usable::everything;
};

} // namespace quor
