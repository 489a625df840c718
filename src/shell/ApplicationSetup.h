#pragma once

class QApplication;

namespace quor {

/// The locale for dates: the system's, or Italian where the system has none ("C", "POSIX").
void setUpLocale();

/// Name, version, icon, Italian texts of the toolkit's own buttons, and the locale.
void setUpApplication(QApplication& application);

/// The version, as `--version` prints it.
const char* version();

} // namespace quor
