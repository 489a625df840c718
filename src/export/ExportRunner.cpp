#include "export/ExportRunner.h"

#include "export/ExportPictures.h"
#include "export/FEsp.h"
#include "export/Paper.h"
#include "toolkit/Twips.h"

#include <QScreen>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// The one that an earlier run has left open, or a new one.
FEsp* progressWindow(QWidget* owner) {
    for (auto* left : owner->findChildren<FEsp*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (left->isVisible()) {
            return left;
        }
    }
    return new FEsp(owner);
}

} // namespace

ExportRunner::ExportRunner(Program& program, Frame& frame, ExportRequest request, QWidget* owner)
    : QObject(owner)
    , m_run(program, std::move(request))
    , m_frame(frame.widget())
    , m_progress(progressWindow(owner)) {
    if (m_frame != nullptr) {
        m_frameWasEnabled = m_frame->isEnabled();
        m_frame->setEnabled(false);
        // The toolkit disables the frame's dialogs with it; these two are what stays usable.
        owner->window()->setEnabled(true);
        m_progress->setEnabled(true);
    }
    m_progress->startRun(m_run.steps(), u"Un attimo di pazienza mentre esporto le immagini"_s);
    m_progress->show();
    m_progress->raise();
    connect(&m_steps, &QTimer::timeout, this, &ExportRunner::advance);
    m_steps.start(0);
}

ExportRunner::~ExportRunner() {
    if (m_steps.isActive()) {
        release();
    }
}

/// Shows what comes next, and a turn of the event loop later makes it.
void ExportRunner::advance() {
    if (m_run.isOver()) {
        release();
        emit finished(m_run.summaryPath(), m_run.errorText());
        return;
    }
    if (!m_announced) {
        m_progress->beginProduct(m_run.caption());
        m_announced = true;
        return;
    }
    m_announced = false;
    const ExportResult result = m_run.next();
    m_progress->endProduct();
    emit logged(result.logLine);
}

void ExportRunner::release() {
    m_steps.stop();
    if (m_frame != nullptr) {
        m_frame->setEnabled(m_frameWasEnabled);
    }
    if (m_progress != nullptr) {
        m_progress->finishRun();
        if (m_closesProgress) {
            m_progress->close();
        }
    }
}

QSize exportPictureSize(PageVariant variant, const QWidget& window) {
    if (variant == PageVariant::screen) {
        const QScreen* screen = window.screen();
        return pictureSize(variant, fromPixels(screen->size() * screen->devicePixelRatio()));
    }
    QString fault; // told when there are pages to print
    const Paper* loaded = paper(fault);
    const auto points = loaded != nullptr ? loaded->usualPaper() : std::nullopt;
    if (!points) {
        return pictureSize(variant, defaultPaper());
    }
    constexpr double twipsPerPoint = twipsPerInch / 72;
    return pictureSize(variant, {.width = points->width() * twipsPerPoint,
                                 .height = points->height() * twipsPerPoint});
}

} // namespace quor
