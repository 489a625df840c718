#include "export/PrintQueueJob.h"

#include "toolkit/Messages.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <QStringList>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quor {

namespace {

/// For a print server that does not answer.
constexpr auto timeLimit = 60s;
/// What the end of the program waits for a document on its way.
constexpr int farewell = 3000; // milliseconds

QString handOverProgram() {
    return QStandardPaths::findExecutable(u"lp"_s);
}

QStringList arguments(const PrintableDocument& document, const PrintChoice& choice) {
    QStringList words{u"-d"_s,       choice.printer, u"-t"_s,
                      document.name, u"-n"_s,        QString::number(choice.copies)};
    if (choice.copies > 1) {
        words << u"-o"_s << (choice.collate ? u"collate=true"_s : u"collate=false"_s);
    }
    if (!choice.pages.empty()) {
        QStringList spans;
        for (const PageSpan& span : choice.pages) {
            spans << (span.first == span.last ? QString::number(span.first)
                                              : u"%1-%2"_s.arg(span.first).arg(span.last));
        }
        words << u"-P"_s << spans.join(u',');
    }
    for (const QString& option : choice.options) {
        words << u"-o"_s << option;
    }
    return words;
}

} // namespace

bool PrintQueueJob::isPossible() {
    return !handOverProgram().isEmpty();
}

void PrintQueueJob::start(QWidget* parent, const PrintableDocument& document,
                          const PrintChoice& choice) {
    auto* job = new PrintQueueJob(parent, choice.printer);
    job->m_process.start(handOverProgram(), arguments(document, choice));
    job->m_process.write(document.pdf);
    job->m_process.closeWriteChannel();
}

PrintQueueJob::PrintQueueJob(QWidget* parent, QString printer)
    : QObject(QCoreApplication::instance())
    , m_parent(parent)
    , m_printer(std::move(printer)) {
    connect(&m_process, &QProcess::finished, this, [this](int code, QProcess::ExitStatus status) {
        const bool accepted = status == QProcess::NormalExit && code == 0;
        end(accepted ? QString()
                     : u"La stampante \"%1\" non accetta la stampa.\n%2"_s
                           .arg(m_printer, QString::fromLocal8Bit(m_process.readAllStandardError()))
                           .trimmed());
    });
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            end(u"Il sistema di stampa non si avvia."_s);
        }
    });
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        end(u"Il sistema di stampa non risponde: \"%1\" non ha ricevuto la stampa."_s.arg(
            m_printer));
    });
    m_limit.start(timeLimit);
}

PrintQueueJob::~PrintQueueJob() {
    m_process.disconnect(this);
    if (m_process.state() != QProcess::NotRunning && m_limit.isActive()) {
        m_process.waitForFinished(farewell);
    }
}

void PrintQueueJob::end(const QString& fault) {
    m_limit.stop();
    m_process.disconnect(this);
    deleteLater();
    if (!fault.isEmpty()) {
        showError(m_parent, fault, u"Stampa"_s);
    }
}

} // namespace quor
