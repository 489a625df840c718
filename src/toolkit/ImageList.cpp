#include "toolkit/ImageList.h"

#include "toolkit/PictureRaster.h"
#include "toolkit/qt/Versions.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

// Outside the namespace: the macro declares a function of the resource compiler.
static void initialisePictures() {
    Q_INIT_RESOURCE(pictures);
}

namespace quor {

namespace {

constexpr int fullOpacity = 255;
/// Of a picture that cannot be used at the moment.
constexpr int disabledOpacity = 89;

/// Renders a picture at the size that is asked for, in the palette of the moment.
class PaletteIconEngine : public QIconEngine {
  public:
    PaletteIconEngine(QString key, QByteArray svg)
        : m_key(std::move(key))
        , m_svg(std::move(svg)) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode,
               QIcon::State /*state*/) override {
        const qreal ratio = painter->device()->devicePixelRatioF();
        painter->drawPixmap(area, render(area.size() * ratio, mode, ratio));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override {
        return render(size, mode, 1.0);
    }

    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/,
                         qreal scale) override {
        return render(qt::scaledPixmapPixels(size, scale), mode, scale);
    }

    [[nodiscard]] QIconEngine* clone() const override {
        return new PaletteIconEngine(m_key, m_svg);
    }

    bool isNull() override { return m_svg.isEmpty(); }

  private:
    /// @param size in pixels of the screen
    QPixmap render(QSize size, QIcon::Mode mode, qreal scale) const {
        if (size.isEmpty()) {
            return {}; // a tab or a title bar squeezed to nothing asks for one
        }
        const QPalette palette = QGuiApplication::palette();
        const QColor line = palette.color(mode == QIcon::Selected ? QPalette::HighlightedText
                                                                  : QPalette::WindowText);
        const bool disabled = mode == QIcon::Disabled;
        const QString cacheKey = u"quor_%1_%2x%3_%4_%5_%6"_s.arg(m_key)
                                     .arg(size.width())
                                     .arg(size.height())
                                     .arg(line.rgb())
                                     .arg(disabled)
                                     .arg(scale);
        QPixmap pixmap;
        if (QPixmapCache::find(cacheKey, &pixmap)) {
            return pixmap;
        }
        const int opacity = disabled ? disabledOpacity : fullOpacity;
        if (const auto raster = rasterPicture(m_key.toLatin1(), size, line.rgb(), opacity)) {
            pixmap = QPixmap::fromImage(*raster);
        } else {
            pixmap = draw(size, line, opacity);
        }
        pixmap.setDevicePixelRatio(scale);
        QPixmapCache::insert(cacheKey, pixmap);
        return pixmap;
    }

    [[nodiscard]] QPixmap draw(QSize size, const QColor& line, int opacity) const {
        QByteArray svg = m_svg;
        svg.replace("currentColor", line.name().toLatin1());
        QSvgRenderer renderer(svg);
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        if (opacity != fullOpacity) {
            // As a whole, so that strokes do not shine through each other.
            painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
            painter.fillRect(pixmap.rect(), QColor(0, 0, 0, opacity));
        }
        return pixmap;
    }

    QString m_key;
    QByteArray m_svg;
};

QIcon loadPicture(const QString& name) {
    initialisePictures();
    QFile file(u":/pictures/%1.svg"_s.arg(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QIcon(new PaletteIconEngine(name, file.readAll()));
}

} // namespace

QIcon picture(const QString& key) {
    return key.startsWith(u"Imm"_s) ? loadPicture(key.sliced(3)) : QIcon();
}

QIcon emblem() {
    return loadPicture(u"quor"_s);
}

} // namespace quor
