#pragma once

#include "export/ExportRunner.h"
#include "export/SummaryPage.h"
#include "toolkit/Frame.h"

#include <QDialog>
#include <QPointer>

#include <memory>

namespace quor {

namespace Ui {
class FStampaBio;
}

/// The window that prints the summary page of the current biorhythm, or shows its preview. Page and
/// pictures are those that an export for print has left in the export folder. What is missing is
/// exported first, and what does not say what the present data say after a question.
class FStampaBio : public QDialog {
    Q_OBJECT

  public:
    FStampaBio(Program& program, Frame& frame, PrintMode mode, QWidget* parent);
    ~FStampaBio() override;
    FStampaBio(const FStampaBio&) = delete;
    FStampaBio& operator=(const FStampaBio&) = delete;
    FStampaBio(FStampaBio&&) = delete;
    FStampaBio& operator=(FStampaBio&&) = delete;

    /// Closing ends what is going on.
    void done(int result) override;

  private:
    void leaveOut();
    void choose();
    void start();
    [[nodiscard]] SummarySections sections() const;
    void exportPage();
    void load(const QString& summaryPath);
    void documentComplete();
    void release();

    Program& m_program;
    Frame& m_frame;
    PrintMode m_mode;
    std::unique_ptr<Ui::FStampaBio> m_ui;
    QPointer<ExportRunner> m_runner; ///< while what is missing is being exported
    bool m_pending = false; ///< a page was sent to the browser and is neither printed nor shown yet
};

} // namespace quor
