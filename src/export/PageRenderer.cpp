#include "export/PageRenderer.h"

#include "export/render/Arguments.h"
#include "toolkit/TemporaryFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <utility>

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

/// What the renderer is told of a sheet; nothing of its usual one.
QStringList wordsFor(const Sheet& sheet) {
    QStringList words;
    if (!sheet.isLike({.grey = sheet.grey})) {
        const QMarginsF& margins = sheet.margins;
        words << u"--paper"_s << u"%1x%2"_s.arg(sheet.paper.width()).arg(sheet.paper.height())
              << u"--margin"_s
              << u"%1,%2,%3,%4"_s.arg(margins.left())
                     .arg(margins.top())
                     .arg(margins.right())
                     .arg(margins.bottom());
    }
    if (sheet.grey) {
        words << u"--grey"_s;
    }
    return words;
}

} // namespace

PageRenderer::PageRenderer(QObject* parent)
    : QObject(parent)
    , m_program(QCoreApplication::applicationDirPath() + u"/quor-render"_s) {
    m_limit.setSingleShot(true);
    m_limit.setInterval(usualLimit);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        const auto seconds = std::chrono::ceil<std::chrono::seconds>(m_limit.intervalAsDuration());
        fail(
            u"La preparazione delle pagine è durata più di %1 secondi ed è stata interrotta."_s.arg(
                seconds.count()));
    });
}

PageRenderer::~PageRenderer() {
    endProcess();
}

void PageRenderer::start(const QUrl& page, const Sheet& sheet) {
    stop();
    m_page = page;
    m_sheet = sheet;
    m_busy = true;
    ++m_started;
    QMetaObject::invokeMethod(
        this,
        [this, started = m_started] {
            if (m_busy && started == m_started) {
                startProcess();
            }
        },
        Qt::QueuedConnection);
}

void PageRenderer::stop() {
    endProcess();
    m_busy = false;
}

void PageRenderer::startProcess() {
    if (!m_page.isLocalFile()) {
        fail(u"La pagina da stampare non è un file di questo computer."_s);
        return;
    }
    const QFileInfo renderer(m_program);
    if (!renderer.isFile() || !renderer.isExecutable()) {
        fail(u"Manca il programma che prepara le pagine: \"%1\"."_s.arg(
            QDir::toNativeSeparators(m_program)));
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
    connect(m_process.get(), &QProcess::finished, this, &PageRenderer::take);
    connect(m_process.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            fail(u"Il programma che prepara le pagine non si avvia: %1."_s.arg(
                m_process->errorString()));
        }
    });
    m_limit.start();
    m_process->start(m_program,
                     wordsFor(m_sheet) + QStringList{u"--"_s, m_page.toLocalFile(),
                                                     m_folder->filePath(u"pagine.pdf"_s)});
    m_group = m_process ? m_process->processId() : 0; // none when it did not start
}

/// Ends the renderer, however far it is, and everything that it has started, and removes its files.
void PageRenderer::endProcess() {
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

void PageRenderer::take(int exitCode, QProcess::ExitStatus status) {
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
    emit finished(pages);
}

void PageRenderer::fail(const QString& reason) {
    stop();
    emit failed(reason);
}

} // namespace quor
