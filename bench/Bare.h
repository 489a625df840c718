#pragma once

#include "toolkit/Drawing.h"
#include "toolkit/DrawingPainter.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QPolygon>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace quor::bench {

/// A drawing taken apart into plain vectors, and a bare loop that paints it with nothing but the
/// toolkit's own calls: the least that anybody has to do.
struct Bare {
    enum class Kind : std::uint8_t { line, curve, box, outline, text };
    struct Step {
        Kind kind;
        std::uint32_t index; ///< into the vector of the kind
        std::uint32_t pen;   ///< into `pens`
    };
    std::vector<Step> steps;
    std::vector<QPen> pens;
    std::vector<Stroke> strokes; ///< of the pens, while the drawing is taken apart
    std::vector<QLine> lines;
    std::vector<QPolygon> curves;
    std::vector<std::pair<QRect, QColor>> boxes;
    std::vector<QRect> outlines;
    struct Label {
        QPoint position;
        QString text;
        bool bold;
    };
    std::vector<Label> texts;
    QFont font;
    QFont boldFont;

    Bare(const Drawing& drawing, const QFont& drawingFont)
        : font(drawingFont)
        , boldFont(drawingFont) {
        boldFont.setBold(true);
        const int ascent = QFontMetrics(font).ascent();
        for (const Primitive& primitive : drawing.primitives) {
            if (const auto* line = std::get_if<Line>(&primitive)) {
                add(Kind::line, lines.size(), line->stroke);
                lines.emplace_back(line->from, line->to);
            } else if (const auto* curve = std::get_if<Curve>(&primitive)) {
                add(Kind::curve, curves.size(), curve->stroke);
                curves.push_back(
                    QPolygon(QList<QPoint>(curve->points.begin(), curve->points.end())));
            } else if (const auto* box = std::get_if<FilledBox>(&primitive)) {
                add(Kind::box, boxes.size(), {});
                boxes.emplace_back(box->area, toQColor(box->fill));
            } else if (const auto* outline = std::get_if<OutlineBox>(&primitive)) {
                add(Kind::outline, outlines.size(), outline->stroke);
                outlines.push_back(outline->area.adjusted(0, 0, -1, -1));
            } else if (const auto* text = std::get_if<Text>(&primitive)) {
                add(Kind::text, texts.size(), {.colour = text->colour});
                texts.push_back({text->topLeft + QPoint(0, ascent), text->text, text->bold});
            }
        }
    }

    void paint(QPainter& painter) const {
        auto current = static_cast<std::uint32_t>(-1);
        bool bold = false;
        painter.setFont(font);
        for (const Step& step : steps) {
            if (step.kind != Kind::box && step.pen != current) {
                current = step.pen;
                painter.setPen(pens[current]);
            }
            switch (step.kind) {
            case Kind::line:
                painter.drawLine(lines[step.index]);
                break;
            case Kind::curve:
                painter.setRenderHint(QPainter::Antialiasing, true);
                painter.drawPolyline(curves[step.index]);
                painter.setRenderHint(QPainter::Antialiasing, false);
                break;
            case Kind::box:
                painter.fillRect(boxes[step.index].first, boxes[step.index].second);
                break;
            case Kind::outline:
                painter.drawRect(outlines[step.index]);
                break;
            case Kind::text: {
                const Label& label = texts[step.index];
                if (label.bold != bold) {
                    bold = label.bold;
                    painter.setFont(bold ? boldFont : font);
                }
                painter.drawText(label.position, label.text);
                break;
            }
            }
        }
    }

  private:
    void add(Kind kind, std::size_t index, const Stroke& stroke) {
        auto found = std::find(strokes.begin(), strokes.end(), stroke);
        if (found == strokes.end()) {
            found = strokes.insert(strokes.end(), stroke);
            pens.push_back(toQPen(stroke));
        }
        steps.push_back({kind, static_cast<std::uint32_t>(index),
                         static_cast<std::uint32_t>(found - strokes.begin())});
    }
};

} // namespace quor::bench
