#include "views/graph/WeekDrawing.h"

namespace quor {

namespace {

constexpr Colour frameBlue = 0xFF0000;

/// Adds the layers of one row to a drawing.
class WeekArtist {
  public:
    WeekArtist(const WeekPlot& plot, const WeekStyle& style)
        : m_plot(plot)
        , m_style(style) {}

    void drawBars(const HalfDays& values) {
        double begin = 0;
        for (const double value : values) {
            const double end = begin + 0.5;
            const QPoint tip(m_plot.x(begin), m_plot.y(value));
            const QPoint foot(m_plot.x(end), m_plot.weekBaseline);
            const auto state = static_cast<std::size_t>(dayClass(value));
            m_drawing.add(
                FilledBox{.area = boxBetween(tip, foot), .fill = m_style.colours.at(state)});
            begin = end;
        }
    }

    void drawLabel(const QString& label) {
        m_drawing.add(Text{.topLeft = {labelLeft(m_plot, m_style.labelWidth), m_plot.bottom()},
                           .text = label,
                           .bold = true});
    }

    void drawGrid(const QLocale& locale) {
        drawHorizontal(m_plot.weekBaseline, 1);
        for (int day = 0; day < daysInWeek; ++day) {
            const int x = m_plot.x(day);
            m_drawing.add(Line{.from = {x, m_plot.top()},
                               .to = {x, m_plot.bottom()},
                               .stroke = {.colour = gridGrey, .width = 1}});
            m_drawing.add(
                Text{.topLeft = {x, m_plot.bottom()}, .text = weekdayName(day + 1, locale)});
        }
        drawHorizontal(m_plot.top(), 2);
        drawHorizontal(m_plot.bottom(), 2);
        const QPoint bottomLeft(m_plot.x(m_style.weekday - 1), m_plot.bottom());
        const QPoint topRight(m_plot.x(m_style.weekday), m_plot.top());
        m_drawing.add(OutlineBox{.area = boxBetween(bottomLeft, topRight),
                                 .stroke = {.colour = frameBlue, .width = 2}});
    }

    [[nodiscard]] Drawing takeDrawing() { return std::move(m_drawing); }

  private:
    void drawHorizontal(int y, int width) {
        m_drawing.add(Line{.from = {m_plot.weekLeft, y},
                           .to = {m_plot.right(), y},
                           .stroke = {.colour = black, .width = width}});
    }

    const WeekPlot& m_plot;
    const WeekStyle& m_style;
    Drawing m_drawing;
};

} // namespace

Drawing drawWeekRow(std::int32_t weekStartDayCount, WeekRow row, const WeekPlot& plot,
                    const WeekStyle& style, const QLocale& locale) {
    WeekArtist artist(plot, style);
    artist.drawBars(weekValues(weekStartDayCount, row));
    artist.drawLabel(rowLabel(row));
    artist.drawGrid(locale);
    return artist.takeDrawing();
}

QString weekdayName(int weekday, const QLocale& locale) {
    return locale.dayName(weekday, QLocale::ShortFormat);
}

} // namespace quor
