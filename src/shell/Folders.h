#pragma once

#include <QString>

namespace quor {

struct Folders {
    QString userFiles; ///< where the file dialogs start
    QString exports;   ///< where exported pages and pictures go
};

/// The user's folders, made where they are missing: "UserFiles" and, inside it, "Esportazioni".
///
/// "UserFiles" lies in the program's folder when that can be written and is the user's own; for a
/// program installed for everybody it lies in the user's data folder. A folder that cannot be made
/// is named all the same: what needs it will say so.
/// @param programFolder where the executable lies
[[nodiscard]] Folders prepareFolders(const QString& programFolder);

/// Where the program keeps what it remembers by itself and nobody has to save: "quor" in
/// $XDG_STATE_HOME, or in ~/.local/state where that is unset or, against the rule for such
/// variables, relative. Not made here: whoever writes into it makes it.
[[nodiscard]] QString stateFolder();

} // namespace quor
