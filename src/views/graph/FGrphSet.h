#pragma once

#include "core/Biorhythm.h"
#include "toolkit/ChildWindow.h"
#include "views/graph/WeekState.h"

#include <array>
#include <memory>

class QLabel;

namespace quor {

class PictureBox;

namespace Ui {
class FGrphSet;
}

/// The weekly state of the current biorhythm: the mean and the three cycles, half day by half day,
/// over the week of the calculation date. It copies what it shows when it is made; only its colours
/// change afterwards.
class FGrphSet : public ChildWindow {
    Q_OBJECT

  public:
    explicit FGrphSet(Program& program, QWidget* parent = nullptr);
    ~FGrphSet() override;
    FGrphSet(const FGrphSet&) = delete;
    FGrphSet& operator=(const FGrphSet&) = delete;
    FGrphSet(FGrphSet&&) = delete;
    FGrphSet& operator=(FGrphSet&&) = delete;

    /// Opens the options dialog with this window's colours.
    void SetOptions() override;

    /// Takes over what an options dialog reports and draws the rows again.
    void applyWeeklyOptions(const WeeklyColours& colours);

    [[nodiscard]] bool grows() const override { return true; }
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    [[nodiscard]] PictureBox* picture(WeekRow row) const;
    void redraw();
    void redrawRow(WeekRow row);
    void colourLegend();
    void alignWidths();

    Program& m_program;
    std::unique_ptr<Ui::FGrphSet> m_ui;
    std::array<PictureBox*, weekRows.size()> m_pictures{}; ///< by `WeekRow`

    Week m_week;
    WeeklyColours m_colours{}; ///< this window's copy
};

} // namespace quor
