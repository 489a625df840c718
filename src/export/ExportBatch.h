#pragma once

#include <QString>

class QTextStream;

namespace quor {

/// An export without windows, as the command line asks for it.
struct BatchRequest {
    QString file;         ///< a .bio or a .brs file
    QString outputFolder; ///< made where missing; empty is the current one
    bool forPrint = false;
    QString date; ///< the calculation date as it is typed; empty is the file's own
};

/// Exports graph, weekly state and summary page of a file's person, or of all members of its
/// system, and works on data of its own. It needs a QGuiApplication, on any platform, for the
/// fonts.
/// @param output a line for each product: its path and what became of it
/// @param errors a line for each failure
/// @return the exit status: 0, or 1 when anything failed
[[nodiscard]] int exportBatch(const BatchRequest& request, QTextStream& output,
                              QTextStream& errors);

} // namespace quor
