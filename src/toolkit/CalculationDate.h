#pragma once

#include "core/Dates.h"
#include "toolkit/Frame.h"

#include <QString>

#include <optional>

class QWidget;

/// The calculation date where the user meets it, with a person or with a system.
namespace quor {

/// Asks for another one in a box. Nothing, after a message, when what is typed is no date, and when
/// the box is cancelled.
[[nodiscard]] std::optional<DateValue> askCalculationDate(QWidget* parent, const QString& prompt);

/// Says it in the status bar.
void showCalculationDate(Frame& frame, DateValue date);

} // namespace quor
