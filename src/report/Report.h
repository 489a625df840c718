#pragma once

#include <QString>

#include <cstdint>
#include <optional>

class QIODevice;
class QTextStream;

namespace quor {

enum class ReportFormat : std::uint8_t { text, json, csv, calendar };

/// Days of a table or a calendar: as many as are asked for, or those of a year.
inline constexpr std::int32_t maximumReportDays = 100'000;
inline constexpr std::int32_t defaultReportDays = 365;

/// A report as the command line asks for it.
struct ReportRequest {
    QString file; ///< a .bio or a .brs file
    ReportFormat format = ReportFormat::text;
    QString date; ///< the calculation date as it is typed; empty is the file's own
    std::optional<std::int32_t> days; ///< 1 to maximumReportDays; only for a table or a calendar
    QString outputFile;               ///< empty is the standard output
};

/// Writes the report of a file's person or system. It works on data of its own, needs no
/// application object and asks nothing. An output file appears whole or not at all; one that is no
/// regular file (a pipe, a device) is written as it comes.
/// @param standardOutput open for writing
/// @param errors one line where something is wrong
/// @return the exit status: 0; 1 when the file could not be read or the report not be written; 2
/// when the request is wrong
[[nodiscard]] int writeReport(const ReportRequest& request, QIODevice& standardOutput,
                              QTextStream& errors);

} // namespace quor
