#pragma once

#include "core/Biorhythm.h"

#include <QDialog>

#include <array>
#include <memory>

namespace quor {

class ColourSwatch;

namespace Ui {
class FGrOpt;
}

/// The dialog that edits a graph's colours, span and day numbers.
///
/// "&Ok" writes them into the biorhythm record, unless a system is open, and tells the opener by
/// `GraphOptionsChanged`; every other way of closing does neither.
class FGrOpt : public QDialog {
    Q_OBJECT

  public:
    FGrOpt(Program& program, QWidget* parent);
    ~FGrOpt() override;
    FGrOpt(const FGrOpt&) = delete;
    FGrOpt& operator=(const FGrOpt&) = delete;
    FGrOpt(FGrOpt&&) = delete;
    FGrOpt& operator=(FGrOpt&&) = delete;

    /// Hands over what the dialog is to start from.
    void initialise(const GraphOptions& options);

    void accept() override;

  signals:
    /// Emitted once, when the dialog closes by "&Ok".
    void GraphOptionsChanged(const quor::GraphOptions& options);

  private:
    void showState();
    void chooseColour(std::size_t index);
    void store();

    Program& m_program;
    std::unique_ptr<Ui::FGrOpt> m_ui;
    std::array<ColourSwatch*, 4> m_swatches{};
    GraphOptions m_options;
};

} // namespace quor
