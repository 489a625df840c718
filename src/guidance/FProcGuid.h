#pragma once

#include "core/Biorhythm.h"
#include "guidance/Tours.h"
#include "toolkit/Frame.h"

#include <QDialog>

#include <memory>
#include <span>

namespace quor {

namespace Ui {
class FProcGuid;
}

/// Leads through the tour whose number is in `guidedProcedureActive`, beside the frame that the
/// user goes on working in. Meanwhile the frame is locked but for what the step explains.
///
/// However the window goes, the tour is over then: the lock is gone and the number is 0. It also
/// goes when the tour cannot be continued: the user keeps the biorhythm or system that had to be
/// closed for it, or closes the system that it is about.
class FProcGuid : public QDialog {
    Q_OBJECT

  public:
    FProcGuid(Program& program, Frame& frame, QWidget* parent);
    ~FProcGuid() override;
    FProcGuid(const FProcGuid&) = delete;
    FProcGuid& operator=(const FProcGuid&) = delete;
    FProcGuid(FProcGuid&&) = delete;
    FProcGuid& operator=(FProcGuid&&) = delete;

    /// The dialog for a new biorhythm has closed.
    void entryFinished();
    /// The system has been closed.
    void systemClosed();

    void done(int result) override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    [[nodiscard]] const TourStep& step() const { return m_steps[m_step]; }
    [[nodiscard]] bool isLastStep() const { return m_step + 1 == m_steps.size(); }
    void showStep();
    void next();
    void endTour();

    Program& m_program;
    Frame& m_frame;
    std::unique_ptr<Ui::FProcGuid> m_ui;
    std::span<const TourStep> m_steps;
    std::size_t m_step = 0;
    bool m_waitsForEntry = false;
    bool m_placed = false;
    bool m_over = false;
};

} // namespace quor
