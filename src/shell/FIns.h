#pragma once

#include "core/Biorhythm.h"
#include "toolkit/Frame.h"

#include <QDialog>

#include <memory>

namespace quor {

namespace Ui {
class FIns;
}

/// The dialog for a new biorhythm: a name, two dates and the views to open.
///
/// It keeps nothing of its own: a check box writes its flag into the record the moment it
/// changes, and "&Ok" stores the rest and applies the biorhythm. What cannot be accepted, or added
/// to the open system, stores nothing and leaves the dialog open.
class FIns : public QDialog {
    Q_OBJECT

  public:
    FIns(Program& program, Frame& frame, QWidget* parent);
    ~FIns() override;
    FIns(const FIns&) = delete;
    FIns& operator=(const FIns&) = delete;
    FIns(FIns&&) = delete;
    FIns& operator=(FIns&&) = delete;

    void accept() override;
    /// Refused while a guided tour waits for a biorhythm.
    void reject() override;

  private:
    Program& m_program;
    Frame& m_frame;
    std::unique_ptr<Ui::FIns> m_ui;
};

} // namespace quor
