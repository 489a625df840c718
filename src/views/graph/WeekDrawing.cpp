#include "views/graph/WeekDrawing.h"

#include <QFontMetrics>

#include <algorithm>

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
        const QPoint topLeft(labelLeft(m_plot, m_style.labelWidth),
                             m_plot.bottom() + m_style.labelDrop);
        m_drawing.add(Text{.topLeft = topLeft, .text = label, .bold = true});
    }

    void drawGrid(const QLocale& locale) {
        drawHorizontal(m_plot.weekBaseline, 1);
        for (int day = 0; day < daysInWeek; ++day) {
            const int x = m_plot.x(day);
            m_drawing.add(Line{.from = {x, m_plot.top()},
                               .to = {x, m_plot.bottom()},
                               .stroke = {.colour = gridGrey, .width = 1}});
            m_drawing.add(Text{.topLeft = {x, m_plot.bottom()},
                               .text = weekdayName(day + 1, locale, m_style.names)});
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

WeekTextSizes measure(const QFont& font, const QLocale& locale, QLocale::FormatType names) {
    const QFontMetrics metrics(font);
    WeekTextSizes sizes;
    sizes.height = metrics.height();
    for (const WeekRow row : weekRows) {
        sizes.label = std::max(sizes.label, labelWidth(font, row));
    }
    int weekday = 1;
    for (int& width : sizes.names) {
        width = metrics.horizontalAdvance(weekdayName(weekday, locale, names));
        ++weekday;
    }
    return sizes;
}

} // namespace

Drawing drawWeekRow(std::int32_t weekStartDayCount, WeekRow row, const WeekPlot& plot,
                    const WeekStyle& style, const QLocale& locale) {
    WeekArtist artist(plot, style);
    artist.drawBars(weekValues(weekStartDayCount, row));
    artist.drawLabel(rowLabel(row));
    artist.drawGrid(locale);
    return artist.takeDrawing();
}

QString weekdayName(int weekday, const QLocale& locale, QLocale::FormatType format) {
    return locale.dayName(weekday, format);
}

int labelWidth(const QFont& font, WeekRow row) {
    QFont bold = font;
    bold.setBold(true);
    return QFontMetrics(bold).horizontalAdvance(rowLabel(row));
}

WeekTexts layOutTexts(const WeekPlot& plot, const std::vector<QFont>& fonts,
                      const QLocale& locale) {
    Q_ASSERT(!fonts.empty());
    for (const auto names : {QLocale::ShortFormat, QLocale::NarrowFormat}) {
        for (const QFont& font : fonts) {
            const WeekTextSizes sizes = measure(font, locale, names);
            if (const auto lines = fittingLines(plot, sizes)) {
                return {.font = font,
                        .labelDrop = *lines == WeekLines::two ? labelDrop(plot, sizes.height) : 0,
                        .names = names};
            }
        }
    }
    const QFont& last = fonts.back();
    return {.font = last,
            .labelDrop = labelDrop(plot, QFontMetrics(last).height()),
            .names = QLocale::NarrowFormat};
}

} // namespace quor
