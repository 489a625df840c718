#pragma once

#include "report/ReportData.h"
#include "report/ReportStream.h"
#include "report/TextCharset.h"

#include <QLocale>

namespace quor {

/// The report to be read in a terminal: Italian, 80 columns, dates and numbers as the windows write
/// them. Where the character set has no arrows and bars, "^", "v" and "#" stand for them.
void writeText(const ReportSubject& subject, TextCharset charset, ReportStream& stream,
               const QLocale& locale = QLocale());

} // namespace quor
