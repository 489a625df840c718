#include "shell/Folders.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// A folder of the whole machine holds nobody's files, even where the administrator may write.
bool isInstalled(const QString& folder) {
    return folder.startsWith(u"/usr/"_s) || folder.startsWith(u"/opt/"_s);
}

QString homeOfUserFiles(const QString& programFolder) {
    QString folder = QDir::cleanPath(programFolder);
    if (!isInstalled(folder) && QFileInfo(folder).isWritable()) {
        return folder;
    }
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .filePath(u"quor"_s);
}

} // namespace

Folders prepareFolders(const QString& programFolder) {
    Folders folders;
    folders.userFiles = QDir(homeOfUserFiles(programFolder)).filePath(u"UserFiles"_s);
    folders.exports = QDir(folders.userFiles).filePath(u"Esportazioni"_s);
    QDir().mkpath(folders.exports);
    return folders;
}

QString stateFolder() {
    QString home = qEnvironmentVariable("XDG_STATE_HOME");
    if (!QDir::isAbsolutePath(home)) {
        home = QDir::home().filePath(u".local/state"_s);
    }
    return QDir(home).filePath(u"quor"_s);
}

} // namespace quor
