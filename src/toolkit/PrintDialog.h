#pragma once

#include "toolkit/Dialogs.h"

#include <optional>

class QWidget;

namespace quor {

/// Asks where and how to print: a printer or a PDF file, copies, pages. Nothing when cancelled.
[[nodiscard]] std::optional<PrintChoice> askHowToPrint(QWidget* parent,
                                                       const PrintRequest& request);

} // namespace quor
