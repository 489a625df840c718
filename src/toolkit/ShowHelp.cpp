#include "toolkit/ShowHelp.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

HelpViewer& currentViewer() {
    static HelpViewer viewer;
    return viewer;
}

} // namespace

void ShowHelp(QWidget* window, const QString& helpPath) {
    if (currentViewer()) {
        currentViewer()(window, helpPath);
    }
}

void setHelpViewer(HelpViewer viewer) {
    currentViewer() = std::move(viewer);
}

QString helpPath(const QString& topic) {
    const QString file = QDir(QCoreApplication::applicationDirPath()).filePath(u"Quor.chm"_s);
    return topic.isEmpty() ? file : file + u"::/"_s + topic;
}

} // namespace quor
