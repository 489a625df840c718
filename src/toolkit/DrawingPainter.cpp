#include "toolkit/DrawingPainter.h"

#include "toolkit/CurveStrips.h"

#include <QFontMetrics>
#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

namespace quor {

namespace {

/// Lengths of dashes and gaps in pixels: long enough to tell the three curves apart through the
/// diagonal triple stroke, which fills gaps of up to two pixels.
QList<qreal> dashes(Pattern pattern) {
    switch (pattern) {
    case Pattern::dash:
        return {9, 6};
    case Pattern::dashDot:
        return {9, 5, 2, 5};
    case Pattern::dashDotDot:
        return {9, 4, 2, 4, 2, 4};
    case Pattern::solid:
        break;
    }
    return {};
}

/// Paints primitive after primitive and changes the painter's state only where it differs.
class PrimitivePainter {
  public:
    explicit PrimitivePainter(QPainter& painter)
        : m_painter(painter)
        , m_font(painter.font())
        , m_boldFont(painter.font())
        , m_ascent(QFontMetrics(m_font).ascent()) {
        m_boldFont.setBold(true);
        m_painter.setBrush(Qt::NoBrush);
    }

    void operator()(const Line& line) {
        if (isColumnOrRow(line)) {
            // As a box, it ends where boxes beside it begin, on screens of one and a half pixels
            // for one too.
            operator()(
                FilledBox{.area = boxBetween(line.from, line.to), .fill = line.stroke.colour});
            return;
        }
        use(line.stroke);
        smooth(false);
        m_painter.drawLine(line.from, line.to);
    }

    void operator()(const Curve& curve) {
        use(curve.stroke);
        smooth(true);
        if (isPaintedInStrips(curve)) {
            drawInStrips(curve);
        } else {
            drawPolyline(curve.points);
        }
    }

    void operator()(const FilledBox& box) {
        smooth(false);
        m_painter.fillRect(box.area, toQColor(box.fill));
    }

    void operator()(const OutlineBox& box) {
        use(box.stroke);
        smooth(false);
        // A rectangle of the toolkit is stroked one pixel beyond its own right and bottom edge.
        m_painter.drawRect(box.area.adjusted(0, 0, -1, -1));
    }

    void operator()(const Text& text) {
        use(Stroke{.colour = text.colour});
        if (m_bold != text.bold) {
            m_bold = text.bold;
            m_painter.setFont(m_bold ? m_boldFont : m_font);
        }
        m_painter.drawText(text.topLeft + QPoint(0, m_ascent), text.text);
    }

  private:
    static bool isColumnOrRow(const Line& line) {
        return line.stroke.width == 1 && line.stroke.pattern == Pattern::solid &&
               (line.from.x() == line.to.x() || line.from.y() == line.to.y());
    }

    void use(const Stroke& stroke) {
        if (m_stroke != stroke) {
            m_stroke = stroke;
            m_painter.setPen(toQPen(stroke));
        }
    }

    void drawPolyline(std::span<const QPoint> points) {
        m_painter.drawPolyline(points.data(), static_cast<int>(points.size()));
    }

    /// Whether the curve is worth cutting and can be cut (see `CurveStrips`).
    [[nodiscard]] bool isPaintedInStrips(const Curve& curve) const {
        const QTransform device = m_painter.deviceTransform();
        return curve.points.size() > 4 * pointsOfStrip && device.type() <= QTransform::TxScale &&
               device.m11() > 0 && curve.stroke.width * std::max(device.m11(), device.m22()) > 1 &&
               m_painter.paintEngine()->type() == QPaintEngine::Raster &&
               std::is_sorted(curve.points.begin(), curve.points.end(),
                              [](QPoint a, QPoint b) { return a.x() < b.x(); });
    }

    void drawInStrips(const Curve& curve) {
        QPen pen = toQPen(curve.stroke);
        for (const CurveStrip& strip : cutIntoStrips(curve, m_painter.deviceTransform())) {
            if (curve.stroke.pattern != Pattern::solid) {
                pen.setDashOffset(strip.begin / curve.stroke.width);
            }
            m_painter.save();
            m_painter.setPen(pen);
            m_painter.setClipRect(strip.columns, Qt::IntersectClip);
            drawPolyline(strip.points);
            m_painter.restore();
        }
    }

    void smooth(bool on) {
        if (m_smooth != on) {
            m_smooth = on;
            m_painter.setRenderHint(QPainter::Antialiasing, on);
        }
    }

    QPainter& m_painter;
    QFont m_font;
    QFont m_boldFont;
    int m_ascent;
    bool m_bold = false;
    std::optional<Stroke> m_stroke;
    std::optional<bool> m_smooth;
};

/// The next primitive covers this one exactly, so that it need not be painted. So it is with most
/// lines and boxes of a graph of very many days, which share few columns of pixels.
bool isHidden(const Primitive& primitive, const Primitive& next) {
    if (const auto* box = std::get_if<FilledBox>(&primitive)) {
        const auto* nextBox = std::get_if<FilledBox>(&next);
        return nextBox != nullptr && box->area == nextBox->area;
    }
    const auto* line = std::get_if<Line>(&primitive);
    const auto* nextLine = std::get_if<Line>(&next);
    return line != nullptr && nextLine != nullptr && *line == *nextLine;
}

} // namespace

QColor toQColor(Colour colour) {
    return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

QPen toQPen(const Stroke& stroke) {
    QPen pen(toQColor(stroke.colour), stroke.width);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    QList<qreal> pattern = dashes(stroke.pattern);
    if (!pattern.isEmpty()) {
        for (qreal& length : pattern) {
            length /= stroke.width; // the toolkit counts in pen widths
        }
        pen.setDashPattern(pattern);
    } else {
        pen.setCapStyle(Qt::SquareCap);
    }
    return pen;
}

Colour fromQColor(const QColor& colour) {
    return colour.red() | (colour.green() << 8) | (colour.blue() << 16);
}

QColor readableOn(const QColor& background) {
    // Relative luminance of the sRGB colour; 0.179 is where black and white contrast equally.
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    const double luminance = 0.2126 * linear(background.redF()) +
                             0.7152 * linear(background.greenF()) +
                             0.0722 * linear(background.blueF());
    return luminance > 0.179 ? Qt::black : Qt::white;
}

void paint(QPainter& painter, const Drawing& drawing) {
    painter.save();
    PrimitivePainter primitivePainter(painter);
    const Primitive* previous = nullptr;
    for (const Primitive& primitive : drawing.primitives) {
        if (previous != nullptr && !isHidden(*previous, primitive)) {
            std::visit(primitivePainter, *previous);
        }
        previous = &primitive;
    }
    if (previous != nullptr) {
        std::visit(primitivePainter, *previous);
    }
    painter.restore();
}

} // namespace quor
