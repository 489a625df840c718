#include "toolkit/LateModule.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>

#include <cstring>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// Beside the program after a build; where it is installed, in the folder for such modules. A
/// report has no application object to ask.
QString modulePath(const QString& file) {
    const QDir program(QFileInfo(QFile::symLinkTarget(u"/proc/self/exe"_s)).path());
    QString beside = program.filePath(file);
    if (QFileInfo::exists(beside)) {
        return beside;
    }
    return QDir::cleanPath(program.filePath(u"%1/%2"_s.arg(QStringLiteral(QUOR_MODULES), file)));
}

QString taskOf(const LateModule& module) {
    return QString::fromUtf16(module.task);
}

} // namespace

QFunctionPointer loadModule(const LateModule& module, QString& fault) {
    const QString path = modulePath(QString::fromLatin1(module.file));
    QLibrary library(path);
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint); // all of it or none
    const QFunctionPointer function = library.resolve(module.function);
    if (function == nullptr) {
        fault = u"La parte del programma che %1 non si può caricare: %2."_s.arg(
            taskOf(module), QFileInfo::exists(path)
                                ? library.errorString()
                                : u"manca \"%1\""_s.arg(QDir::toNativeSeparators(path)));
    }
    return function;
}

bool isOfThisVersion(const LateModule& module, const char* version, QString& fault) {
    if (std::strcmp(version, QUOR_VERSION) == 0) {
        return true;
    }
    fault =
        u"La parte del programma che %1 è di un'altra versione: chiudere Quor e avviarlo di nuovo."_s
            .arg(taskOf(module));
    return false;
}

} // namespace quor
