#include "export/Paper.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibrary>

#include <cstring>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

constexpr auto moduleName = "quor-paper.so";

const Paper*& loadedPaper() {
    static const Paper* loaded = nullptr;
    return loaded;
}

/// Beside the program after a build; where it is installed, in the folder for such modules.
QString modulePath() {
    const QDir program(QCoreApplication::applicationDirPath());
    QString beside = program.filePath(QString::fromLatin1(moduleName));
    if (QFileInfo::exists(beside)) {
        return beside;
    }
    return QDir::cleanPath(program.filePath(
        u"%1/%2"_s.arg(QStringLiteral(QUOR_MODULES), QString::fromLatin1(moduleName))));
}

} // namespace

const Paper* paper(QString& fault) {
    if (loadedPaper() != nullptr) {
        return loadedPaper();
    }
    const QString path = modulePath();
    QLibrary module(path);
    module.setLoadHints(QLibrary::ResolveAllSymbolsHint); // all of it or none
    using Function = const Paper* (*)();
    const auto function = reinterpret_cast<Function>(module.resolve("quorPaper"));
    if (function == nullptr) {
        fault =
            u"La parte del programma che mostra e stampa le pagine non si può caricare: %1."_s.arg(
                QFileInfo::exists(path) ? module.errorString()
                                        : u"manca \"%1\""_s.arg(QDir::toNativeSeparators(path)));
        return nullptr;
    }
    const Paper* found = function();
    if (std::strcmp(found->version, QUOR_VERSION) != 0) {
        // The program was renewed while this one ran.
        fault = u"La parte del programma che mostra e stampa le pagine è di un'altra versione: "
                "chiudere Quor e avviarlo di nuovo."_s;
        return nullptr;
    }
    loadedPaper() = found;
    return found;
}

void usePaper(const Paper* paper) {
    loadedPaper() = paper;
}

} // namespace quor
