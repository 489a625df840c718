#pragma once

#include "toolkit/Dialogs.h"

#include <optional>

class QPrinter;
class QWidget;

/// The print dialog of the system, behind the door of the boxes.
namespace quor {

[[nodiscard]] std::optional<PrintChoice> showSystemPrintDialog(QWidget* parent,
                                                               const PrintRequest& request);

/// What somebody chose in the dialog of this printer.
[[nodiscard]] PrintChoice printChoice(const QPrinter& printer, int pageCount);

} // namespace quor
