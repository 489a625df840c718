#pragma once

#include "core/Biorhythm.h"
#include "views/analysis/DayState.h"
#include "views/analysis/StatePlot.h"

#include <QWidget>

#include <array>

namespace quor {

class TrendArrow;

/// The picture of a day state: four bars above and below a zero line, between the lines of 10 and
/// -10, each with its trend arrow and its caption. The tab key reaches it, for those who have it
/// read out.
class StateBars : public QWidget {
    Q_OBJECT

  public:
    explicit StateBars(QWidget* parent = nullptr);

    /// @param colours of the bars, by `StateItem`
    void setState(const DayState& state, const std::array<Colour, stateItems.size()>& colours);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    /// The sizes of this picture, in units of which `ratio` make a pixel of the widget.
    [[nodiscard]] StatePictureSizes sizes(qreal ratio) const;
    [[nodiscard]] QSize hint(int lines) const;
    void paintPlot(QPainter& painter) const;
    void paintTexts(QPainter& painter) const;
    void placeArrows();

    DayState m_state;
    std::array<Colour, stateItems.size()> m_colours{};
    std::array<TrendArrow*, stateItems.size()> m_arrows{}; ///< Image1_1 .. Image1_4
};

} // namespace quor
