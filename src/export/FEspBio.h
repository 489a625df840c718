#pragma once

#include "export/ExportRunner.h"
#include "toolkit/Frame.h"

#include <QDialog>
#include <QPointer>

#include <memory>

namespace quor {

namespace Ui {
class FEspBio;
}

/// The window that exports the current biorhythm, or every member of the open system: pictures and
/// a summary page into the export folder. It stands beside the frame, which may be disabled while
/// it is open, and other windows stay where they are.
class FEspBio : public QDialog {
    Q_OBJECT

  public:
    FEspBio(Program& program, Frame& frame, QWidget* parent);
    ~FEspBio() override;
    FEspBio(const FEspBio&) = delete;
    FEspBio& operator=(const FEspBio&) = delete;
    FEspBio(FEspBio&&) = delete;
    FEspBio& operator=(FEspBio&&) = delete;

    /// Closing ends what is going on.
    void done(int result) override;

  private:
    void choose();
    void startRun();
    void endRun(const QString& errorText);
    void setChoicesEnabled(bool enabled);
    void log(const QString& line);

    Program& m_program;
    Frame& m_frame;
    std::unique_ptr<Ui::FEspBio> m_ui;
    QPointer<ExportRunner> m_runner; ///< while a run goes on
};

} // namespace quor
