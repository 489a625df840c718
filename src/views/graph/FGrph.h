#pragma once

#include "core/Biorhythm.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/Frame.h"
#include "views/graph/GraphPlot.h"

#include <array>
#include <memory>

class QCheckBox;

namespace quor {

namespace Ui {
class FGrph;
}

/// The graph of the current biorhythm: its curves over a span of days centred on the calculation
/// date. It copies what it shows when it is made; only its options dialog changes it afterwards.
class FGrph : public ChildWindow {
    Q_OBJECT

  public:
    FGrph(Program& program, Frame& frame, QWidget* parent = nullptr);
    ~FGrph() override;
    FGrph(const FGrph&) = delete;
    FGrph& operator=(const FGrph&) = delete;
    FGrph(FGrph&&) = delete;
    FGrph& operator=(FGrph&&) = delete;

    /// Opens the options dialog with this window's values.
    void SetOptions() override;

    /// Takes over what an options dialog reports. The curves still begin with the day count that
    /// was current when the window was made.
    void applyGraphOptions(const GraphOptions& options);

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void layOutWindow();
    void layOutPlot();
    void redraw(std::int32_t startDayCount);
    void colourCheckBoxes();
    void chooseElement(GraphElement element, bool shown);
    void pressed(Qt::MouseButton button, QPoint position);

    Program& m_program;
    Frame& m_frame;
    std::unique_ptr<Ui::FGrph> m_ui;
    std::array<QCheckBox*, 5> m_checks{};

    GraphOptions m_options; ///< this window's copy
    ShowFlags m_showFlags{};
    DateValue m_calculationDate = 0;
    std::int32_t m_daysAround = 1;
    std::int32_t m_startDayCount = 0; ///< day count of the first day drawn
    GraphPlot m_plot;
};

} // namespace quor
