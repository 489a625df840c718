#pragma once

#include <QString>

/// The per-user settings store: strings addressed by section and key, in one INI file named after
/// the program.
namespace quor {

/// The stored text; empty when there is none.
[[nodiscard]] QString getSetting(const QString& section, const QString& key);

/// A store that was damaged is whole again afterwards. @return false when it cannot be written
bool saveSetting(const QString& section, const QString& key, const QString& value);

/// "Options"/"FastStart" as it stands; "TRUE" when it is empty or missing.
[[nodiscard]] QString readFastStart();

} // namespace quor
