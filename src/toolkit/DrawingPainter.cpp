#include "toolkit/DrawingPainter.h"

#include <QFontMetrics>
#include <QPainter>

#include <cmath>
#include <optional>

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

QPen pen(const Stroke& stroke) {
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

/// Paints primitive after primitive and changes the painter's state only where it differs.
class Brush {
  public:
    explicit Brush(QPainter& painter)
        : m_painter(painter)
        , m_font(painter.font())
        , m_boldFont(painter.font())
        , m_ascent(QFontMetrics(m_font).ascent()) {
        m_boldFont.setBold(true);
        m_painter.setBrush(Qt::NoBrush);
    }

    void operator()(const Line& line) {
        use(line.stroke);
        smooth(false);
        m_painter.drawLine(line.from, line.to);
    }

    void operator()(const Curve& curve) {
        use(curve.stroke);
        smooth(true);
        m_painter.drawPolyline(curve.points.data(), static_cast<int>(curve.points.size()));
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
    void use(const Stroke& stroke) {
        if (m_stroke != stroke) {
            m_stroke = stroke;
            m_painter.setPen(pen(stroke));
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

} // namespace

QColor toQColor(Colour colour) {
    return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
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
    Brush brush(painter);
    for (const Primitive& primitive : drawing.primitives) {
        std::visit(brush, primitive);
    }
    painter.restore();
}

} // namespace quor
