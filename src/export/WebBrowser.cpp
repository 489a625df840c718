#include "export/WebBrowser.h"

#include "export/Paper.h"
#include "toolkit/Messages.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// What prints pages and shows them; where it cannot be loaded, a box says why.
const Paper* paperFor(QWidget* window) {
    QString fault;
    const Paper* loaded = paper(fault);
    if (loaded == nullptr) {
        showError(window, fault, u"Stampa"_s);
    }
    return loaded;
}

QString nameOf(const QUrl& url) {
    return QFileInfo(url.toLocalFile()).completeBaseName();
}

} // namespace

WebBrowser::WebBrowser(QWidget* parent)
    : QWidget(parent) {
    hide(); // said by itself, so that a parent that is shown does not show it
    connect(&m_renderer, &PageRenderer::finished, this, [this](const QByteArray& pdf) {
        m_pages = pdf;
        emit documentComplete();
    });
    connect(&m_renderer, &PageRenderer::failed, this, &WebBrowser::navigationFailed);
}

void WebBrowser::navigate(const QUrl& url) {
    m_pages.clear();
    m_url = url;
    m_renderer.start(url, Sheet{});
}

PrintableDocument WebBrowser::document() const {
    return {.pdf = m_pages,
            .name = nameOf(m_url),
            .layOut = [page = m_url, program = m_renderer.program(),
                       limit = m_renderer.timeLimit()](QWidget* window, const Sheet& sheet,
                                                       const auto& then) {
                // A print that was asked for goes on when its window closes.
                auto* renderer = new PageRenderer(QCoreApplication::instance());
                renderer->setProgram(program);
                renderer->setTimeLimit(limit);
                connect(renderer, &PageRenderer::finished, renderer,
                        [renderer, then](const QByteArray& pdf) {
                            renderer->deleteLater();
                            then(pdf);
                        });
                connect(renderer, &PageRenderer::failed, renderer,
                        [renderer, parent = QPointer(window)](const QString& reason) {
                            renderer->deleteLater();
                            showError(parent, reason, u"Errore"_s);
                        });
                renderer->start(page, sheet);
            }};
}

void WebBrowser::print() {
    if (m_pages.isEmpty()) {
        return;
    }
    if (const Paper* paper = paperFor(window())) {
        paper->print(window(), document());
    }
}

void WebBrowser::printPreview() {
    if (m_pages.isEmpty()) {
        return;
    }
    if (m_preview == nullptr) {
        const Paper* paper = paperFor(window());
        if (paper == nullptr) {
            return;
        }
        m_preview = paper->makePreview(window());
    }
    m_preview->setDocument(document());
    m_preview->show();
    m_preview->raise();
    m_preview->activateWindow();
}

} // namespace quor
