#include "export/render/PagePrinter.h"

#include "storage/WholeFile.h"

#include <QFile>
#include <QFileInfo>
#include <QPageLayout>
#include <QPageSize>
#include <QUrl>
#include <QWebEngineScript>
#include <QWebEngineSettings>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor::render {

namespace {

/// The engine takes no more than 2 MB with a type, each byte of which may be written in three.
constexpr qint64 greatestContent = 600'000;

void restrict(QWebEngineSettings& settings) {
    using S = QWebEngineSettings;
    for (const S::WebAttribute off :
         {S::JavascriptEnabled, S::PluginsEnabled, S::PdfViewerEnabled, S::LocalStorageEnabled,
          S::LocalContentCanAccessRemoteUrls, S::HyperlinkAuditingEnabled, S::DnsPrefetchEnabled,
          S::WebGLEnabled, S::Accelerated2dCanvasEnabled, S::AutoLoadIconsForPage,
          S::ErrorPageEnabled}) {
        settings.setAttribute(off, false);
    }
    settings.setAttribute(S::AutoLoadImages, true);
    settings.setAttribute(S::LocalContentCanAccessFileUrls, true);
    settings.setAttribute(S::PrintElementBackgrounds, true);
}

bool namesItsCharacterSet(const QByteArray& page) {
    constexpr qsizetype looked = 1024; // as far as the engine looks
    return page.first(std::min(looked, page.size())).toLower().contains("charset") ||
           page.startsWith("\xEF\xBB\xBF"); // of UTF-8
}

/// Fits the page to a sheet with room for so many pixels: smaller where its widest row or its
/// highest picture has no place, and no section on two sheets that has place on one.
const QString fitToSheet = uR"(
{
    const width = %1, height = %2;
    const body = document.body.style;
    body.width = 'min-content';
    const widest = document.body.getBoundingClientRect().width;
    body.width = '';
    const heading = 60;
    const highest = Math.max(...Array.from(document.images, (image) => image.height), 0) + heading;
    const margin = 0.05; // that of the page; the other one may be used up
    const zoom = Math.min(1, (1 - margin) * width / widest, height / highest);
    if (zoom < 1) {
        document.documentElement.style.zoom = zoom;
    }
    for (const section of document.querySelectorAll('TABLE.c1')) {
        section.style.breakInside = 'avoid';
    }
}
)"_s;

/// Gives texts, lines and backgrounds the grey of their colour, so that texts stay texts, and has
/// the engine do the same with pictures.
const QString takeColours = uR"(
for (const element of document.querySelectorAll('*')) {
    const style = getComputedStyle(element);
    for (const property of ['color', 'background-color', 'border-top-color', 'border-right-color',
                            'border-bottom-color', 'border-left-color']) {
        const grey = style.getPropertyValue(property).replace(
            /(\d+), (\d+), (\d+)/, (all, red, green, blue) => {
                const light = Math.round(0.2126 * red + 0.7152 * green + 0.0722 * blue);
                return `${light}, ${light}, ${light}`;
            });
        element.style.setProperty(property, grey, 'important');
    }
    if (element.tagName === 'IMG') {
        element.style.setProperty('filter', 'grayscale(1)', 'important');
    }
}
)"_s;

QString preparation(const Arguments& arguments) {
    constexpr double pixelsPerMillimetre = 96 / 25.4;
    const QSizeF room = arguments.paper.shrunkBy(arguments.margins) * pixelsPerMillimetre;
    return fitToSheet.arg(room.width()).arg(room.height()) +
           (arguments.grey ? takeColours : QString());
}

} // namespace

LoadedPage::LoadedPage(QWebEngineProfile* profile)
    : QWebEnginePage(profile) {}

bool LoadedPage::acceptNavigationRequest(const QUrl& /*url*/, NavigationType /*type*/,
                                         bool isMainFrame) {
    return isMainFrame && !std::exchange(m_navigated, true);
}

PagePrinter::PagePrinter(Arguments arguments)
    : m_arguments(std::move(arguments))
    , m_requests(m_arguments.page)
    , m_page(&m_profile) {
    m_profile.setHttpCacheType(QWebEngineProfile::NoCache);
    m_profile.setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    m_profile.setSpellCheckEnabled(false);
    m_profile.setUrlRequestInterceptor(&m_requests);
    restrict(*m_page.settings());
    // Once: a page that wants to send its reader elsewhere "finishes" again when that is refused.
    connect(
        &m_page, &QWebEnginePage::loadFinished, this,
        [this](bool ok) {
            if (ok) {
                // In a world of its own: the page's scripts stay off.
                m_page.runJavaScript(preparation(m_arguments), QWebEngineScript::ApplicationWorld,
                                     [this](const QVariant& /*nothing*/) { print(); });
            } else {
                emit finished(pageFailed, u"la pagina non si può caricare"_s);
            }
        },
        Qt::SingleShotConnection);
    connect(&m_page, &QWebEnginePage::renderProcessTerminated, this,
            [this] { emit finished(pageFailed, u"il motore si è interrotto"_s); });
}

void PagePrinter::start() {
    QFile page(m_arguments.page);
    if (!QFileInfo(page).isFile() || !page.open(QIODevice::ReadOnly)) {
        emit finished(pageFailed,
                      u"la pagina manca o non si può leggere: %1"_s.arg(m_arguments.page));
        return;
    }
    const QUrl address = QUrl::fromLocalFile(QFileInfo(page).absoluteFilePath());
    const QByteArray content = page.read(greatestContent);
    // The engine guesses the character set of a file that names none, whatever its default is, and
    // takes some Italian texts for Czech. It does not guess when it is given the content and the
    // set.
    if (namesItsCharacterSet(content) || !page.atEnd()) {
        m_page.load(address);
    } else {
        m_page.setContent(content, u"text/html;charset=windows-1252"_s, address);
    }
}

void PagePrinter::print() {
    const QPageSize paper(m_arguments.paper, QPageSize::Millimeter, {}, QPageSize::ExactMatch);
    const QPageLayout layout(paper, QPageLayout::Portrait, m_arguments.margins,
                             QPageLayout::Millimeter);
    m_page.printToPdf([this](const QByteArray& pdf) { write(pdf); }, layout);
}

void PagePrinter::write(const QByteArray& pdf) {
    if (pdf.isEmpty()) {
        emit finished(pageFailed, u"la pagina non si può impaginare"_s);
        return;
    }
    if (const auto fault = writeWholeFile(m_arguments.pdf, pdf)) {
        emit finished(writeFailed,
                      u"il file non si può scrivere: %1: %2"_s.arg(m_arguments.pdf, *fault));
    } else {
        emit finished(done, {});
    }
}

} // namespace quor::render
