#pragma once

#include <QFunctionPointer>
#include <QString>

/// Parts of the program that lie in modules of their own and are loaded when they are needed for
/// the first time: what they link would take time and memory at every start.
namespace quor {

/// Such a part. Its one function returns a table, which tells the version of the program it belongs
/// to.
struct LateModule {
    const char* file;     ///< "quor-paper.so"
    const char* function; ///< "quorPaper"
    const char16_t* task; ///< what the part does, in the user's words: "mostra la guida"
};

/// Loads the module from beside the program or from where it is installed.
/// @param fault where it cannot be loaded: one sentence for the user
/// @return its function, or null
[[nodiscard]] QFunctionPointer loadModule(const LateModule& module, QString& fault);

/// False where the program was renewed while this one ran.
/// @param version that of the module
/// @param fault one sentence for the user then
[[nodiscard]] bool isOfThisVersion(const LateModule& module, const char* version, QString& fault);

} // namespace quor
