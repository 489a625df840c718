#pragma once

#include "export/ExportRun.h"
#include "toolkit/Frame.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

namespace quor {

class FEsp;

/// Drives a run of exports from the event loop, one product at a time, so that the interface stays
/// alive. While it goes on the progress window tells how far it is and the frame is disabled;
/// however it ends, the frame is as it was before.
class ExportRunner : public QObject {
    Q_OBJECT

  public:
    /// Starts the run. The progress window stays open after its end, for the user to close.
    /// @param owner what the run belongs to; the run ends early with it
    ExportRunner(Program& program, Frame& frame, ExportRequest request, QWidget* owner);
    ~ExportRunner() override;
    ExportRunner(const ExportRunner&) = delete;
    ExportRunner& operator=(const ExportRunner&) = delete;
    ExportRunner(ExportRunner&&) = delete;
    ExportRunner& operator=(ExportRunner&&) = delete;

    /// Closes the progress window with the run's end instead of leaving that to the user.
    void setClosesProgress(bool closes) { m_closesProgress = closes; }

  signals:
    /// A product was attempted.
    void logged(const QString& line);
    /// The run is over.
    /// @param summaryPath as of `ExportRun`
    /// @param errorText empty where there were no errors
    void finished(const QString& summaryPath, const QString& errorText);

  private:
    void advance();
    void release();

    ExportRun m_run;
    QPointer<QWidget> m_frame; ///< null in a program without a frame
    bool m_frameWasEnabled = false;
    bool m_closesProgress = false;
    bool m_announced = false; ///< the next product's caption has been shown
    QPointer<FEsp> m_progress;
    QTimer m_steps;
};

/// The size of the pictures of a run: by the screen that the window is on, or by the page of the
/// default printer.
[[nodiscard]] QSize exportPictureSize(PageVariant variant, const QWidget& window);

} // namespace quor
