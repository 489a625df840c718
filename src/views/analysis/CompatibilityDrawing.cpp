#include "views/analysis/CompatibilityDrawing.h"

#include "core/Cycles.h"

#include <array>
#include <cmath>

namespace quor {

namespace {

using Values = std::array<double, CompatibilityPlot::lastDay() + 1>;

Values cycleValues(std::int32_t dayCount, Period period) {
    const std::int32_t first = phase(dayCount, period);
    Values values{};
    std::int32_t day = 0;
    for (double& value : values) {
        value = std::sin((first + day) * angleStep(period));
        ++day;
    }
    return values;
}

Values meanValues(std::int32_t dayCount) {
    const Values physical = cycleValues(dayCount, Period::physical);
    const Values emotional = cycleValues(dayCount, Period::emotional);
    const Values intellectual = cycleValues(dayCount, Period::intellectual);
    Values values{};
    for (std::size_t day = 0; day < values.size(); ++day) {
        values.at(day) = meanOfCycles(physical.at(day), emotional.at(day), intellectual.at(day));
    }
    return values;
}

Values curveValues(StateItem item, std::int32_t dayCount) {
    switch (item) {
    case StateItem::physical:
        return cycleValues(dayCount, Period::physical);
    case StateItem::emotional:
        return cycleValues(dayCount, Period::emotional);
    case StateItem::intellectual:
        return cycleValues(dayCount, Period::intellectual);
    case StateItem::mean:
        break;
    }
    return meanValues(dayCount);
}

void addCurve(Drawing& drawing, const Values& values, Colour colour,
              const CompatibilityPlot& plot) {
    for (const int shift : {-1, 0, 1}) {
        Curve curve{.points = {}, .stroke = {.colour = colour, .width = 1}};
        curve.points.reserve(values.size());
        int day = 0;
        for (const double value : values) {
            curve.points.emplace_back(plot.x(day) + shift, plot.y(value) + shift);
            ++day;
        }
        drawing.add(std::move(curve));
    }
}

void addGrid(Drawing& drawing, const CompatibilityPlot& plot) {
    const Stroke thin{.colour = gridGrey, .width = 1};
    drawing.add(
        Line{.from = {plot.x0, plot.yMid}, .to = {plot.right(), plot.yMid}, .stroke = thin});
    for (int day = 0; day <= CompatibilityPlot::lastDay(); ++day) {
        const int x = plot.x(day);
        drawing.add(Line{.from = {x, plot.bottom()}, .to = {x, plot.top()}, .stroke = thin});
    }
    drawing.add(OutlineBox{.area = boxBetween({plot.x0, plot.top()}, {plot.right(), plot.bottom()}),
                           .stroke = {.colour = gridGrey, .width = 2}});
}

} // namespace

Colour secondPersonColour(Colour firstColour) {
    constexpr Colour bits = 0xFFFFFF;
    return ((firstColour & bits) - 50) & bits;
}

Drawing drawEmptyPanel(QSize panel) {
    Drawing drawing;
    drawing.add(FilledBox{.area = QRect(QPoint(), panel), .fill = panelGround});
    return drawing;
}

Drawing drawCompatibilityPanel(const ComparedCurves& curves, QSize panel,
                               const CompatibilityPlot& plot) {
    Drawing drawing = drawEmptyPanel(panel);
    addCurve(drawing, curveValues(curves.item, curves.firstDayCount), curves.firstColour, plot);
    addCurve(drawing, curveValues(curves.item, curves.secondDayCount),
             secondPersonColour(curves.firstColour), plot);
    addGrid(drawing, plot);
    drawing.add(
        Text{.topLeft = plot.textTopLeft, .text = curves.text, .colour = white, .bold = true});
    return drawing;
}

} // namespace quor
