#pragma once

#include "core/Biorhythm.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/Frame.h"

#include <QModelIndex>
#include <QPointer>

#include <cstdint>
#include <memory>

class QAbstractButton;

namespace quor {

class SystemTreeModel;

namespace Ui {
class FProj;
}

/// The window of the open system: its members as a tree, what each of them and the system as a
/// whole can show, and export and printing. One exists while a system is open, and closing it
/// closes the system.
class FProj : public ChildWindow {
    Q_OBJECT

  public:
    /// Opens the system.
    FProj(Program& program, Frame& frame, QWidget* parent = nullptr);
    ~FProj() override;
    FProj(const FProj&) = delete;
    FProj& operator=(const FProj&) = delete;
    FProj(FProj&&) = delete;
    FProj& operator=(FProj&&) = delete;

    /// Shows the members that a file brought.
    void fillTree();

    /// Takes the person of the record into the system; a name that a member has already is refused
    /// with a message, and so is a member beyond the largest number that a system can have.
    void addMember(const QString& name);

    /// Hands the whole system to the export window.
    void exportSystem();

    /// Makes the window usable again after an export or a print, for which it disabled itself
    /// together with its title bar.
    void unlock();

    /// What a guided tour leaves usable: everything, the two buttons that insert a member, or no
    /// button. The window can be closed by its frame whatever is left.
    enum class Usable : std::uint8_t { everything, insertion, nothing };
    void setUsable(Usable usable);
    [[nodiscard]] Usable usable() const { return m_usable; }

    [[nodiscard]] bool grows() const override { return true; }
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void changeEvent(QEvent* event) override;
    /// Asks whether to close the system and, where it has changes, whether to save them.
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void connectButtons();
    void giveTreeRoom();
    void enableSystemButtons(bool enabled);
    void enableMemberButtons(bool enabled);
    void showButtons();

    /// The one node that is selected; invalid when none is.
    [[nodiscard]] QModelIndex selectedNode() const;
    /// The member that is selected; nothing after a message that ends in the given words when
    /// none is.
    [[nodiscard]] QModelIndex selectedMember(const QString& purpose);
    /// False after a message when there is no member that a system view could be computed of.
    [[nodiscard]] bool hasMembers();

    /// Opens the view of a leaf in a window of its own; null for a member, which has none.
    ChildWindow* openView(const QModelIndex& node);
    /// The same for a click, which may be the first of two.
    void openClicked(const QModelIndex& node);
    void openSelectedView();
    void openMeanGraph();
    void openMeanStatistics();
    void openMeanForecasts();
    void openCompatibility();

    void insertNew();
    void insertExisting();
    void removeMember();
    void moveCalculationDate();
    void exportMember();
    void saveMember();
    void printMember();

    /// The member becomes the current biorhythm.
    void makeCurrent(const SystemMember& member);
    /// The curves begin where they do for this member.
    void startCurvesFor(const SystemMember& member);
    void lock();
    void lockWithFrame();

    /// The whole text of a node that is too long for the tree.
    void showNodeTip(QPoint position);

    Program& m_program;
    Frame& m_frame;
    std::unique_ptr<Ui::FProj> m_ui;
    SystemTreeModel* m_tree = nullptr;
    QPointer<ChildWindow> m_compatibility; ///< FComp while it is open; it closes with the system
    // What the members leave usable, and the tour.
    bool m_systemUsable = false; ///< what concerns the system as a whole, and removing
    bool m_memberUsable = false; ///< export and printing
    Usable m_usable = Usable::everything;
};

} // namespace quor
