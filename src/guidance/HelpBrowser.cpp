#include "guidance/HelpBrowser.h"

#include "guidance/HelpAddress.h"

#include <QByteArray>
#include <QFont>
#include <QFontInfo>
#include <QFontMetrics>
#include <QHelpEngine>
#include <QImage>
#include <QInputMethodEvent>
#include <QPixmap>
#include <QSize>
#include <QString>
#include <QTextDocument>
#include <QUrl>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// Help pictures hold four pixels for each point of a page, so that they are sharp on fine screens.
constexpr qreal pictureRatio = 2;

bool isHelpUrl(const QUrl& url) {
    return url.scheme() == u"qthelp"_s;
}

QString missingPage(const QUrl& url) {
    return u"<html><head><title>Pagina non trovata</title></head><body>"
           "<h1>Pagina non trovata</h1>"
           "<p>La pagina <b>%1</b> non fa parte di questa guida.</p>"
           "<p><a href=\"qthelp://quor/guida/indice.html\">Vai alla pagina iniziale</a></p>"
           "</body></html>"_s.arg(url.fileName().toHtmlEscaped());
}

} // namespace

HelpBrowser::HelpBrowser(QHelpEngine& engine, QWidget* parent)
    : QTextBrowser(parent)
    , m_engine(engine)
    , m_textSize(QFontInfo(font()).pointSizeF()) {
    setOpenExternalLinks(false);
    setAccessibleName(u"Pagina della guida"_s);
    document()->setDocumentMargin(fontMetrics().height());
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    // All pages lie in one folder; `source()` is still the page before while a page loads.
    const QUrl url = helpPageUrl({}).resolved(name);
    if (!isHelpUrl(url)) {
        return {};
    }
    const QByteArray bytes = m_engine.fileData(url);
    switch (type) {
    case QTextDocument::HtmlResource:
        return bytes.isEmpty() ? missingPage(url) : QString::fromUtf8(bytes);
    case QTextDocument::StyleSheetResource:
        return QString::fromUtf8(bytes);
    case QTextDocument::ImageResource:
        return loadPicture(bytes);
    default:
        return bytes;
    }
}

/// Made for this screen once, smoothly: the page itself would scale it in the roughest way.
QVariant HelpBrowser::loadPicture(const QByteArray& bytes) const {
    QImage picture = QImage::fromData(bytes);
    if (picture.isNull()) {
        return {};
    }
    const qreal ratio = devicePixelRatioF();
    if (ratio < pictureRatio) {
        // In true colours: a picture with few colours would be dithered to them again.
        picture = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                      .scaled((QSizeF(picture.size()) * ratio / pictureRatio).toSize(),
                              Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        picture.setDevicePixelRatio(ratio);
    } else {
        picture.setDevicePixelRatio(pictureRatio);
    }
    return QPixmap::fromImage(picture);
}

void HelpBrowser::resetZoom() {
    QFont textFont = font();
    textFont.setPointSizeF(m_textSize);
    setFont(textFont);
}

/// The toolkit would write into the page although it is read only, and later go back to a place
/// that only the page with that text had.
void HelpBrowser::inputMethodEvent(QInputMethodEvent* event) {
    event->ignore();
}

void HelpBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
    const QUrl url = source().resolved(name);
    if (isHelpUrl(url)) {
        QTextBrowser::doSetSource(url, type);
    }
}

} // namespace quor
