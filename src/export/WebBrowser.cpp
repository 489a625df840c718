#include "export/WebBrowser.h"

#include "export/Paper.h"
#include "export/render/Arguments.h"
#include "toolkit/Messages.h"
#include "toolkit/TemporaryFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>

#include <unistd.h>
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quor {

namespace {

constexpr auto usualLimit = 30s;

/// In the renderer's process before it becomes the renderer: a group of its own, so that it can be
/// ended together with the processes that it starts; and should this program die, it goes too.
void separate() {
    setsid();
#ifdef Q_OS_LINUX
    prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
}

QString reasonFor(int exitCode) {
    switch (exitCode) {
    case render::pageFailed:
        return u"La pagina da stampare manca o non si può impaginare (codice 1)."_s;
    case render::writeFailed:
        return u"Le pagine non si possono scrivere nella cartella temporanea (codice 3)."_s;
    default:
        return u"Il programma che prepara le pagine è terminato con il codice %1."_s.arg(exitCode);
    }
}

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
    : QWidget(parent)
    , m_renderer(QCoreApplication::applicationDirPath() + u"/quor-render"_s) {
    hide(); // said by itself, so that a parent that is shown does not show it
    m_limit.setSingleShot(true);
    m_limit.setInterval(usualLimit);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        const auto seconds = std::chrono::ceil<std::chrono::seconds>(m_limit.intervalAsDuration());
        fail(
            u"La preparazione delle pagine è durata più di %1 secondi ed è stata interrotta."_s.arg(
                seconds.count()));
    });
}

WebBrowser::~WebBrowser() {
    endRenderer();
}

void WebBrowser::navigate(const QUrl& url) {
    stop();
    m_pages.clear();
    m_url = url;
    m_busy = true;
    ++m_navigation;
    QMetaObject::invokeMethod(
        this,
        [this, navigation = m_navigation] {
            if (m_busy && navigation == m_navigation) {
                startRenderer();
            }
        },
        Qt::QueuedConnection);
}

void WebBrowser::stop() {
    endRenderer();
    m_busy = false;
}

void WebBrowser::startRenderer() {
    if (!m_url.isLocalFile()) {
        fail(u"La pagina da stampare non è un file di questo computer."_s);
        return;
    }
    const QFileInfo renderer(m_renderer);
    if (!renderer.isFile() || !renderer.isExecutable()) {
        fail(u"Manca il programma che prepara le pagine: \"%1\"."_s.arg(
            QDir::toNativeSeparators(m_renderer)));
        return;
    }
    m_folder = makeTemporaryFolder();
    if (m_folder == nullptr) {
        fail(u"Non si può creare una cartella temporanea per le pagine da stampare."_s);
        return;
    }
    m_process = std::make_unique<QProcess>();
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardOutputFile(QProcess::nullDevice());
    m_process->setStandardErrorFile(QProcess::nullDevice());
    m_process->setChildProcessModifier(separate);
    connect(m_process.get(), &QProcess::finished, this, &WebBrowser::take);
    connect(m_process.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            fail(u"Il programma che prepara le pagine non si avvia: %1."_s.arg(
                m_process->errorString()));
        }
    });
    m_limit.start();
    m_process->start(m_renderer,
                     {u"--"_s, m_url.toLocalFile(), m_folder->filePath(u"pagine.pdf"_s)});
    m_group = m_process ? m_process->processId() : 0; // none when it did not start
}

/// Ends the renderer, however far it is, and everything that it has started, and removes its files.
void WebBrowser::endRenderer() {
    m_limit.stop();
    if (m_process) {
        m_process->disconnect(this);
        if (m_group > 0) {
            // Also when it has ended itself: a crash may leave its children behind.
            ::kill(static_cast<pid_t>(-m_group), SIGKILL);
        }
        if (m_process->state() != QProcess::NotRunning) {
            m_process->kill();
            m_process->waitForFinished();
        }
        // This may be one of its signals.
        m_process.release()->deleteLater();
    }
    m_group = 0;
    m_folder.reset();
}

void WebBrowser::take(int exitCode, QProcess::ExitStatus status) {
    if (status != QProcess::NormalExit) {
        fail(u"Il programma che prepara le pagine si è interrotto."_s);
        return;
    }
    if (exitCode != render::done) {
        fail(reasonFor(exitCode));
        return;
    }
    QFile file(m_folder->filePath(u"pagine.pdf"_s));
    const QByteArray pages = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (!pages.startsWith("%PDF-")) {
        fail(u"Il programma che prepara le pagine non ne ha prodotta nessuna."_s);
        return;
    }
    stop();
    m_pages = pages;
    emit documentComplete();
}

void WebBrowser::fail(const QString& reason) {
    stop();
    emit navigationFailed(reason);
}

void WebBrowser::print() {
    if (m_pages.isEmpty()) {
        return;
    }
    if (const Paper* paper = paperFor(window())) {
        paper->print(window(), {.pdf = m_pages, .name = nameOf(m_url)});
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
    m_preview->setDocument({.pdf = m_pages, .name = nameOf(m_url)});
    m_preview->show();
    m_preview->raise();
    m_preview->activateWindow();
}

} // namespace quor
