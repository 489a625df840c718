#pragma once

#include "core/Biorhythm.h"

#include <QDialog>

#include <array>
#include <memory>

namespace quor {

class ColourSwatch;

namespace Ui {
class FGrSetOpt;
}

/// The dialog that edits the three colours of the weekly state.
///
/// "&Ok" writes them into the biorhythm record, unless a system is open, and tells the opener by
/// `WeeklyOptionsChanged`; every other way of closing does neither. These colours never count as an
/// unsaved change.
class FGrSetOpt : public QDialog {
    Q_OBJECT

  public:
    FGrSetOpt(Program& program, QWidget* parent);
    ~FGrSetOpt() override;
    FGrSetOpt(const FGrSetOpt&) = delete;
    FGrSetOpt& operator=(const FGrSetOpt&) = delete;
    FGrSetOpt(FGrSetOpt&&) = delete;
    FGrSetOpt& operator=(FGrSetOpt&&) = delete;

    /// Hands over what the dialog is to start from.
    void initialise(const WeeklyColours& colours);

    void accept() override;

  signals:
    /// Emitted once, when the dialog closes by "&Ok".
    void WeeklyOptionsChanged(const quor::WeeklyColours& colours);

  private:
    void showState();
    void chooseColour(std::size_t index);

    Program& m_program;
    std::unique_ptr<Ui::FGrSetOpt> m_ui;
    std::array<ColourSwatch*, 3> m_swatches{}; ///< critical, stable, optimal
    WeeklyColours m_colours{};
};

} // namespace quor
