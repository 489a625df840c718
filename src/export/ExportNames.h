#pragma once

#include "core/Biorhythm.h"
#include "views/graph/WeekState.h"

#include <QString>

#include <cstdint>
#include <vector>

/// Names of the exported files.
///
/// All files of one biorhythm lie side by side in one folder and share a prefix made of the
/// system's or the person's name and the calculation date: "Famiglia_Anna_15-03-2004_".
namespace quor {

/// The two variants of the summary page and its pictures.
enum class PageVariant : std::uint8_t { screen, print };

/// What one run exports: the record's person, or every member of the open system.
enum class ExportScope : std::uint8_t { person, wholeSystem };

/// A text as part of a file name, in composed characters. What a file name cannot hold on some
/// system (slashes, colon, asterisk, question mark, double quote, less and greater than, bar,
/// control characters, halves of characters) becomes "_", so that no name leaves its folder.
[[nodiscard]] QString fileNamePart(const QString& text);

/// A file's name without folder and extension: what stands after the last slash or backslash, up
/// to its first dot, without blanks around it.
[[nodiscard]] QString baseName(const QString& path);

/// "15-03-2004" under every locale.
[[nodiscard]] QString exportDate(DateValue date);

/// The prefix of the current person's files, without a folder.
///
/// With a system open it is base_name_date_, the base being the system file's, or "UntitledSystem"
/// where there is no file. Without a system it is base_date_, the base being the biorhythm file's,
/// or the person's name where there is no file. The variant for print has "stampa_" after that.
///
/// What comes before the date gets a mark of the whole at its end, "~" and eight hexadecimal
/// digits, where it had to be changed: where a character had to be replaced, or where a file's name
/// would become too long and is cut. In a system a member whose prefix another one would share, on
/// file systems that ignore case too, gets the mark as well; members equal in name get their place
/// in the list besides ("~0123abcd-2").
[[nodiscard]] QString exportPrefix(const Program& program, PageVariant variant);

/// The prefixes in a run over the open system, one for each member in their order: as above, but a
/// system without a file has no base. No two are equal, without regard to case.
[[nodiscard]] std::vector<QString> exportPrefixes(const Program& program, PageVariant variant);

/// The products, each behind a prefix with or without a folder.
[[nodiscard]] QString graphFile(const QString& prefix);
[[nodiscard]] QString weekFile(const QString& prefix, WeekRow row);
[[nodiscard]] QString summaryFile(const QString& prefix);

/// The path of a prefix in a folder.
[[nodiscard]] QString pathPrefix(const QString& folder, const QString& prefix);

} // namespace quor
