#pragma once

#include "report/ReportData.h"
#include "report/ReportStream.h"

namespace quor {

/// The report as JSON (UTF-8, without a mark at its beginning), as `docs/report.schema.json`
/// describes it. Cycle values are in [-1, 1] with 17 significant digits, dates are year-month-day,
/// one beyond the year 9999 is null. Control characters of names are escaped.
void writeJson(const ReportSubject& subject, ReportStream& stream);

} // namespace quor
