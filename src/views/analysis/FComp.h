#pragma once

#include "core/Biorhythm.h"
#include "toolkit/ChildWindow.h"
#include "views/analysis/Compatibility.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

class QComboBox;

namespace quor {

class ElidedLabel;
class PictureBox;

namespace Ui {
class FComp;
}

/// Compares two members of the open system. It copies the members, the calculation date and the
/// curves' colours when it is made: what happens to the system afterwards does not concern it.
class FComp : public ChildWindow {
    Q_OBJECT

  public:
    explicit FComp(const Program& program, QWidget* parent = nullptr);
    ~FComp() override;
    FComp(const FComp&) = delete;
    FComp& operator=(const FComp&) = delete;
    FComp(FComp&&) = delete;
    FComp& operator=(FComp&&) = delete;

    [[nodiscard]] bool grows() const override { return true; }
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    /// One of the two lists and who is chosen in it.
    struct Choice {
        QComboBox* list = nullptr;
        int member = -1; ///< in the order of the lists; -1 until a person is chosen
        QString name;
        DateValue birthDate = 0;
        std::int32_t dayCount = 0; ///< on the calculation date; 0 until a person is chosen
    };

    /// What the panels show.
    struct Shown {
        Compatibility compatibility;
        std::array<int, 2> members{};
        std::array<QString, 2> names;
        std::array<std::int32_t, 2> dayCounts{};
    };

    void fillLists(const AppState& state);
    void choose(Choice& choice);
    void compare();
    void showNames();
    void showNote();
    void describePanels();
    void setPanelSizes();
    void drawPanel(std::size_t panel);
    void drawPanels();

    std::unique_ptr<Ui::FComp> m_ui;
    std::array<PictureBox*, compatibilityPanels.size()> m_panels{};
    std::array<std::array<ElidedLabel*, 2>, compatibilityPanels.size()> m_names{};

    std::vector<DateValue> m_birthDates; ///< of the members, in the order of the lists
    DateValue m_calculationDate = 0;
    std::array<Colour, stateItems.size()> m_colours{}; ///< of the curves, by `StateItem`
    std::array<Choice, 2> m_choices{};
    std::optional<Shown> m_shown; ///< nothing until two persons have been compared
};

} // namespace quor
