#pragma once

#include "report/ReportData.h"
#include "report/ReportStream.h"

#include <cstdint>

namespace quor {

/// The report as a table after RFC 4180: a line of names, then a line for each day from the
/// calculation date on, ended by CR LF. No field ever needs quotes.
///
/// The columns are data (year-month-day), giorni, fisico, emotivo, intellettivo, media; giorni
/// counts from the birth, negative before it. Of a system the column is called tra_giorni, counts
/// from the calculation date, and the values are the means over the members. Values are in [-1, 1],
/// with a decimal point and 17 significant digits.
/// @param days so many that the last one lies in year 9999 or before
void writeCsv(const ReportSubject& subject, std::int32_t days, ReportStream& stream);

} // namespace quor
