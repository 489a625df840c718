#include "views/graph/GraphDrawing.h"

namespace quor {

namespace {

/// Adds the layers of one graph to a drawing.
class GraphArtist {
  public:
    GraphArtist(const GraphPlot& plot, const GraphStyle& style)
        : m_plot(plot)
        , m_style(style) {}

    void drawBars(const std::vector<Colour>& bars) {
        std::int32_t day = 0;
        for (const Colour colour : bars) {
            const QPoint bottomLeft(m_plot.x(day) + 1, m_plot.bottom());
            const QPoint topRight(m_plot.x(day + 1) - 1, m_plot.top());
            m_drawing.add(FilledBox{.area = boxBetween(bottomLeft, topRight), .fill = colour});
            ++day;
        }
    }

    void drawMean(const std::vector<double>& values) {
        m_drawing.add(Curve{.points = points(values, 0),
                            .stroke = {.colour = colour(GraphElement::mean), .width = 2}});
    }

    void drawCycle(const std::vector<double>& values, GraphElement element, Pattern pattern) {
        for (const int shift : {-1, 0, 1}) {
            m_drawing.add(
                Curve{.points = points(values, shift),
                      .stroke = {.colour = colour(element), .width = 1, .pattern = pattern}});
        }
    }

    void drawAxes(const QLocale& locale) {
        drawHorizontal(m_plot.baseline, 1);
        for (std::int32_t day = 0; day <= m_plot.lastDay(); ++day) {
            drawVertical(day, {.colour = gridGrey, .width = 1});
        }
        drawDayNumbers(locale);
        drawVertical(m_plot.daysAround, {.colour = black, .width = 2});
        drawHorizontal(m_plot.bottom(), 2);
        drawHorizontal(m_plot.top(), 2);
    }

    [[nodiscard]] Drawing takeDrawing() { return std::move(m_drawing); }

  private:
    [[nodiscard]] Colour colour(GraphElement element) const {
        return m_style.colours.at(static_cast<std::size_t>(element));
    }

    [[nodiscard]] std::vector<QPoint> points(const std::vector<double>& values, int shift) const {
        std::vector<QPoint> points;
        points.reserve(values.size());
        std::int32_t day = 0;
        for (const double value : values) {
            points.emplace_back(m_plot.x(day) + shift, m_plot.y(value) + shift);
            ++day;
        }
        return points;
    }

    void drawHorizontal(int y, int width) {
        m_drawing.add(Line{.from = {m_plot.x(0), y},
                           .to = {m_plot.right(), y},
                           .stroke = {.colour = black, .width = width}});
    }

    void drawVertical(std::int32_t day, const Stroke& stroke) {
        const int x = m_plot.x(day);
        m_drawing.add(
            Line{.from = {x, m_plot.bottom()}, .to = {x, m_plot.top()}, .stroke = stroke});
    }

    void drawDayNumbers(const QLocale& locale) {
        int y = 0;
        switch (static_cast<DayIndexPosition>(m_style.dayIndexPosition)) {
        case DayIndexPosition::top:
            y = m_plot.top();
            break;
        case DayIndexPosition::centre:
            y = m_plot.baseline;
            break;
        case DayIndexPosition::bottom:
            y = m_plot.bottom() - m_style.textHeight;
            break;
        case DayIndexPosition::none:
        default:
            return;
        }
        const ShortDateFormat format = ShortDateFormat::of(locale);
        const DateValue firstDate = m_style.calculationDate - m_plot.daysAround;
        for (std::int32_t day = 0; day < m_plot.lastDay(); ++day) {
            m_drawing.add(
                Text{.topLeft = {m_plot.x(day), y}, .text = format.text(firstDate + day).left(2)});
        }
    }

    const GraphPlot& m_plot;
    const GraphStyle& m_style;
    Drawing m_drawing;
};

} // namespace

Drawing drawGraph(const GraphSeries& series, const GraphPlot& plot, const GraphStyle& style,
                  const QLocale& locale) {
    const auto shows = [&](GraphElement element) {
        return style.show.at(static_cast<std::size_t>(element));
    };
    GraphArtist artist(plot, style);
    if (shows(GraphElement::enhance)) {
        artist.drawBars(series.bars);
    }
    if (shows(GraphElement::mean)) {
        artist.drawMean(series.mean);
    }
    if (shows(GraphElement::physical)) {
        artist.drawCycle(series.physical, GraphElement::physical, Pattern::dash);
    }
    if (shows(GraphElement::emotional)) {
        artist.drawCycle(series.emotional, GraphElement::emotional, Pattern::dashDot);
    }
    if (shows(GraphElement::intellectual)) {
        artist.drawCycle(series.intellectual, GraphElement::intellectual, Pattern::dashDotDot);
    }
    artist.drawAxes(locale);
    return artist.takeDrawing();
}

} // namespace quor
