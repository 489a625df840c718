#pragma once

#include "core/Biorhythm.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/Frame.h"
#include "views/graph/GraphPlot.h"
#include "views/graph/GraphSource.h"

#include <array>
#include <memory>

class QCheckBox;

namespace quor {

namespace Ui {
class GraphWindow;
}

/// What is one window's own in the texts of its help frame.
struct GraphWording {
    QString whose; ///< completes "La curva fisica rappresenta lo stato fisico ..."
    QString about; ///< a paragraph about the values shown, or nothing
};

/// A graph: curves over a span of days centred on the calculation date, with the boxes that choose
/// them, the dates of the span and a help text. Whose curves they are is said by its source.
///
/// It copies what it shows when it is made; only its options dialog changes it afterwards. The
/// series is worked out once, and again when the span changes; everything else only draws it.
/// While the curves do not begin with the first day of the span, a line below the picture says so
/// and offers to open the graph anew.
class GraphWindow : public ChildWindow {
    Q_OBJECT

  public:
    ~GraphWindow() override;
    GraphWindow(const GraphWindow&) = delete;
    GraphWindow& operator=(const GraphWindow&) = delete;
    GraphWindow(GraphWindow&&) = delete;
    GraphWindow& operator=(GraphWindow&&) = delete;

    /// Opens the options dialog with this window's values.
    void SetOptions() override;

    /// Takes over what an options dialog reports.
    void applyGraphOptions(const GraphOptions& options);

    [[nodiscard]] bool grows() const override { return true; }
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    GraphWindow(Program& program, Frame& frame, std::unique_ptr<GraphSource> source,
                GraphWording wording, QWidget* parent);

    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void compute();
    /// Where the curves begin, when that is not the first day of the span; else nothing.
    [[nodiscard]] QString note() const;
    void showNote();
    /// Shows what a graph that is opened now with this one's options shows, in the same place.
    void reopen();
    void layOutWindow();
    void layOutPlot();
    void redraw();
    void colourCheckBoxes();
    [[nodiscard]] QString generalHelp() const;
    [[nodiscard]] QString elementHelp(GraphElement element) const;
    void chooseElement(GraphElement element, bool shown);
    /// Says in words what the picture shows, for those who cannot see it.
    void describePicture();
    void pressed(Qt::MouseButton button, QPoint position);
    void openMenuByKeyboard();
    /// The popup with the values of a day of the span.
    void showPopup(std::int32_t day, QPoint position);

    Program& m_program;
    Frame& m_frame;
    std::unique_ptr<GraphSource> m_source;
    GraphWording m_wording;
    std::unique_ptr<Ui::GraphWindow> m_ui;
    std::array<QCheckBox*, 5> m_checks{};

    GraphOptions m_options; ///< this window's copy
    ShowFlags m_showFlags{};
    ShowFlags m_drawnFlags{}; ///< those of the last drawing
    bool m_ofSystem = false;  ///< a system was open when the window was made
    DateValue m_calculationDate = 0;
    std::int32_t m_daysAround = 1;
    GraphSeries m_series; ///< of the current span
    GraphPlot m_plot;
};

} // namespace quor
