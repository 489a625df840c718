#pragma once

#include <QIcon>
#include <QString>

/// The program's pictures, keyed by "Imm" and the name of the picture ("ImmGrafico").
///
/// They are drawn with one neutral line colour, which follows the palette of the moment, light or
/// dark; a disabled picture is faded.
namespace quor {

/// An empty icon for a key that there is no picture for.
[[nodiscard]] QIcon picture(const QString& key);

/// The emblem, the same on every palette.
[[nodiscard]] QIcon emblem();

} // namespace quor
