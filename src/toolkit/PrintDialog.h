#pragma once

#include "toolkit/Dialogs.h"

#include <optional>

class QWidget;

namespace quor {

/// Asks where and how to print: a printer or a PDF file, copies, pages. Nothing when cancelled.
[[nodiscard]] std::optional<PrintChoice> askHowToPrint(QWidget* parent,
                                                       const PrintRequest& request);

/// What asks on the screen comes with the part of the program that prints, which is loaded when
/// there is something to print. Nobody asks before.
using PrintDialog = std::optional<PrintChoice> (*)(QWidget* parent, const PrintRequest& request);
void setSystemPrintDialog(PrintDialog dialog);
[[nodiscard]] PrintDialog systemPrintDialog();

} // namespace quor
