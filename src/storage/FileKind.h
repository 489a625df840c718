#pragma once

#include <QString>

#include <cstdint>

namespace quor {

/// What a file holds, told by its name alone.
enum class FileKind : std::uint8_t { biorhythm, system, other };

/// By the last three characters of the path, "bio" or "brs", in any letter case. So the program
/// takes a file that it is told to open.
[[nodiscard]] FileKind fileKind(const QString& path);

/// By the ending, ".bio" or ".brs" in any letter case: for files that nobody has named on purpose,
/// and where a wrong name is an error.
[[nodiscard]] FileKind fileKindByEnding(const QString& path);

} // namespace quor
