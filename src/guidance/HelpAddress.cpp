#include "guidance/HelpAddress.h"

#include <QDir>
#include <QFileInfo>
#include <QString>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace quor {

HelpAddress parseHelpPath(const QString& helpPath) {
    static const QString mark = u"::/"_s;
    const qsizetype at = helpPath.lastIndexOf(mark);
    const QString file = at < 0 ? helpPath : helpPath.first(at);
    return {.folder = QFileInfo(file).path(),
            .page = at < 0 ? QString() : helpPath.sliced(at + mark.size())};
}

QString findHelpCollection(const QString& programFolder) {
    const QDir folder(programFolder);
    for (const QString& place : {u"Quor.qhc"_s, u"../share/quor/Quor.qhc"_s}) {
        QString file = QDir::cleanPath(folder.filePath(place));
        if (QFileInfo(file).isFile()) {
            return file;
        }
    }
    return {};
}

QUrl helpPageUrl(const QString& page) {
    return QUrl(u"qthelp://quor/guida/"_s + (page.isEmpty() ? u"indice.html"_s : page));
}

} // namespace quor
