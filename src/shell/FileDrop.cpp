#include "shell/FileDrop.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QSysInfo>
#include <QUrl>
#include <QWidget>

#include <utility>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// The path of a file of this machine; empty for anything else.
QString localPath(QUrl url) {
    if (!url.isLocalFile()) {
        return {};
    }
    const QString host = url.host();
    if (!host.isEmpty() && host != u"localhost"_s &&
        host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) != 0) {
        return {};
    }
    url.setHost({}); // it would become a part of the path
    const QString path = url.toLocalFile();
    return path.contains(QChar::Null) ? QString() : path; // no file can be called so
}

/// The one file of the program's that is being dragged; empty where it is another thing, or more
/// than one.
QString fileIn(const QMimeData* data) {
    const QList<QUrl> urls = data != nullptr ? data->urls() : QList<QUrl>();
    if (urls.size() != 1) {
        return {};
    }
    const QString path = localPath(urls.constFirst());
    const bool isOurs = fileKindByEnding(path) != FileKind::other;
    return isOurs && QFileInfo(path).isFile() ? path : QString();
}

} // namespace

FileDrop::FileDrop(QWidget* window, std::function<bool(FileKind)> canOpen)
    : QObject(window)
    , m_canOpen(std::move(canOpen)) {
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::DragEnter: {
        auto& drag = *static_cast<QDragEnterEvent*>(event);
        m_path = fileIn(drag.mimeData());
        answer(drag, isWelcome(m_path));
        return true;
    }
    case QEvent::DragMove:
        // Whether a file can be opened may change under the mouse; what it carries cannot.
        answer(*static_cast<QDragMoveEvent*>(event), isWelcome(m_path));
        return true;
    case QEvent::Drop: {
        auto& drop = *static_cast<QDropEvent*>(event);
        const QString path = fileIn(drop.mimeData());
        answer(drop, isWelcome(path));
        if (drop.isAccepted()) {
            QMetaObject::invokeMethod(
                this, [this, path] { emit dropped(path); }, Qt::QueuedConnection);
        }
        return true;
    }
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool FileDrop::isWelcome(const QString& path) const {
    return !path.isEmpty() && m_canOpen(fileKind(path));
}

/// The file stays where it is, whatever its program would rather do with it.
void FileDrop::answer(QDropEvent& event, bool welcome) const {
    const Qt::DropActions offered = event.possibleActions();
    const Qt::DropAction action =
        offered.testFlag(Qt::CopyAction) ? Qt::CopyAction : Qt::LinkAction;
    if (welcome && offered.testFlag(action)) {
        event.setDropAction(action);
        event.accept();
    } else {
        event.ignore();
    }
}

} // namespace quor
