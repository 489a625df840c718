#pragma once

#include "core/Biorhythm.h"

#include <QString>

#include <optional>

/// A file named on the command line, for work that asks nothing.
namespace quor {

/// Reads a .bio or a .brs file, told apart by their endings, into fresh data. Of a file that the
/// readers accept, what is missing or damaged has the value of a fresh start (the calculation date
/// is today); members of a damaged system that have neither name nor birth are left out. With a
/// system, `systemOpen` is true.
/// @return what is wrong, in the user's language: no such file, one of another kind, one that
/// cannot be read and why, one without any person
[[nodiscard]] std::optional<QString> openNamedFile(const QString& path, Program& program);

} // namespace quor
