#include "export/render/PagePrinter.h"

#include "storage/LineNotation.h"

#include <QFileInfo>
#include <QPageLayout>
#include <QPageSize>
#include <QWebEngineSettings>

#include <utility>

using namespace Qt::StringLiterals;

namespace quor::render {

namespace {

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
    // Of pages that do not say.
    settings.setDefaultTextEncoding(u"windows-1252"_s);
}

} // namespace

LoadedPage::LoadedPage(QUrl url, QWebEngineProfile* profile)
    : QWebEnginePage(profile)
    , m_url(std::move(url)) {}

bool LoadedPage::acceptNavigationRequest(const QUrl& url, NavigationType /*type*/,
                                         bool isMainFrame) {
    return isMainFrame && url == m_url;
}

PagePrinter::PagePrinter(Arguments arguments)
    : m_arguments(std::move(arguments))
    , m_requests(m_arguments.page)
    , m_page(QUrl::fromLocalFile(QFileInfo(m_arguments.page).absoluteFilePath()), &m_profile) {
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
                print();
            } else {
                emit finished(pageFailed, u"la pagina non si può caricare"_s);
            }
        },
        Qt::SingleShotConnection);
    connect(&m_page, &QWebEnginePage::renderProcessTerminated, this,
            [this] { emit finished(pageFailed, u"il motore si è interrotto"_s); });
}

void PagePrinter::start() {
    const QFileInfo page(m_arguments.page);
    if (!page.isFile() || !page.isReadable()) {
        emit finished(pageFailed,
                      u"la pagina manca o non si può leggere: %1"_s.arg(m_arguments.page));
        return;
    }
    m_page.load(QUrl::fromLocalFile(page.absoluteFilePath()));
}

void PagePrinter::print() {
    const QPageSize paper(m_arguments.paper, QPageSize::Millimeter);
    const double margin = m_arguments.margin;
    const QPageLayout layout(paper, QPageLayout::Portrait, {margin, margin, margin, margin},
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
