#pragma once

#include "export/ExportBatch.h"
#include "report/Report.h"

#include <QString>
#include <QStringList>

#include <cstdint>

/// What the program was started with.
///
/// Long options stand first ("--open FILE"). Anything else is the command-line text: the arguments
/// joined by one blank, a path that the shell of the desktop has put between double quotes. One
/// empty argument names nothing.
namespace quor {

enum class StartMode : std::uint8_t {
    plain,           ///< nothing named
    commandLineText, ///< `text` is the text as it is
    openFile,        ///< `text` is a file named in the ordinary way
    exportFile,      ///< `batch` says what to export, without a window
    reportFile,      ///< `report` says what to report, without a window
    showHelp,
    showVersion,
    wrongUse, ///< `text` says what is wrong, in one line
};

struct StartRequest {
    StartMode mode = StartMode::plain;
    QString text{};
    BatchRequest batch{};
    ReportRequest report{};
};

/// @param arguments without the program's name
[[nodiscard]] StartRequest parseArguments(const QStringList& arguments);

/// What "--help" prints.
[[nodiscard]] QString usageText();

/// The path in a command-line text: blanks around it go, then its first and last character, which
/// are taken to be the quotes without a look.
[[nodiscard]] QString pathInCommandLineText(const QString& text);

} // namespace quor
