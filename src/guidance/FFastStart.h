#pragma once

#include "core/Biorhythm.h"
#include "guidance/Tours.h"
#include "toolkit/ChildWindow.h"
#include "toolkit/Frame.h"

#include <memory>

namespace quor {

namespace Ui {
class FFastStart;
}

/// The window that greets the user: it runs one of the two main tasks, or shows how it is done.
///
/// When it goes, by whatever way, it stores whether it is to greet at the next start.
class FFastStart : public ChildWindow {
    Q_OBJECT

  public:
    FFastStart(Program& program, Frame& frame, QWidget* parent = nullptr);
    ~FFastStart() override;
    FFastStart(const FFastStart&) = delete;
    FFastStart& operator=(const FFastStart&) = delete;
    FFastStart(FFastStart&&) = delete;
    FFastStart& operator=(FFastStart&&) = delete;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void choose(Command command);
    void showHow(Tour tour);
    void store();

    Program& m_program;
    Frame& m_frame;
    std::unique_ptr<Ui::FFastStart> m_ui;
    bool m_stored = false;
};

} // namespace quor
