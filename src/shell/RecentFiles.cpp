#include "shell/RecentFiles.h"

#include "shell/StateFile.h"
#include "toolkit/ToolTipText.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// Of a name and of a folder each; more would make the menu as wide as the screen.
constexpr int largestEms = 40;

/// The separator that stands before the last group of the menu.
QAction* lastSeparator(const QMenu& menu) {
    const QList<QAction*> actions = menu.actions();
    const auto last = std::find_if(actions.rbegin(), actions.rend(),
                                   [](const QAction* action) { return action->isSeparator(); });
    return last != actions.rend() ? *last : nullptr;
}

/// The text as it is, with no access key in it.
QString literal(QString text) {
    return text.replace(u'&', u"&&"_s);
}

} // namespace

RecentFiles::RecentFiles(FileKind kind, const StateFile& state, QMenu* menu)
    : QMenu(u"Aperti &di recente"_s, menu)
    , m_kind(kind)
    , m_state(state) {
    setObjectName(kind == FileKind::system ? u"mnuSistemiRecenti"_s : u"mnuBioritmiRecenti"_s);
    setToolTipsVisible(true);
    menu->insertMenu(lastSeparator(*menu), this);
    menu->insertSeparator(menuAction());
    connect(menu, &QMenu::aboutToShow, this, &RecentFiles::refresh);
    refresh();
}

void RecentFiles::add(const QString& path) {
    m_state.addRecentFile(m_kind, path);
    refresh();
}

void RecentFiles::remove(const QString& path) {
    m_state.removeRecentFile(m_kind, path);
    refresh();
}

void RecentFiles::setUsable(bool usable) {
    m_usable = usable;
    showState();
}

void RecentFiles::refresh() {
    clear();
    const QStringList paths = m_state.recentFiles(m_kind);
    const QStringList texts = names(paths);
    for (qsizetype i = 0; i < paths.size(); ++i) {
        const QString& path = paths[i];
        QAction* entry = addAction(u"&%1 "_s.arg(i + 1) + literal(texts[i]));
        const QString shown = QDir::toNativeSeparators(path);
        entry->setToolTip(toolTipText(shown));
        entry->setStatusTip(shown);
        // Later: what follows a choice asks questions, and makes these entries anew.
        connect(
            entry, &QAction::triggered, this, [this, path] { emit chosen(path); },
            Qt::QueuedConnection);
    }
    if (!paths.isEmpty()) {
        addSeparator();
        connect(
            addAction(u"&Svuota elenco"_s), &QAction::triggered, this,
            [this] {
                m_state.clearRecentFiles(m_kind);
                refresh();
            },
            Qt::QueuedConnection);
    }
    showState();
}

void RecentFiles::showState() {
    for (QAction* entry : actions()) {
        entry->setEnabled(m_usable);
    }
    setEnabled(m_usable && !isEmpty());
}

/// The files' own names; those that several have, with their folders.
QStringList RecentFiles::names(const QStringList& paths) const {
    const QFontMetrics metrics = fontMetrics();
    const auto shortened = [&metrics](const QString& text) {
        return metrics.elidedText(text, Qt::ElideMiddle,
                                  largestEms * metrics.horizontalAdvance(u'm'));
    };
    QStringList fileNames;
    for (const QString& path : paths) {
        fileNames << QFileInfo(path).fileName();
    }
    QStringList shown;
    for (qsizetype i = 0; i < paths.size(); ++i) {
        QString text = shortened(fileNames[i]);
        if (fileNames.count(fileNames[i]) > 1) {
            const QString folder = QDir::toNativeSeparators(QFileInfo(paths[i]).path());
            text += u" (%1)"_s.arg(shortened(folder));
        }
        shown << text;
    }
    return shown;
}

} // namespace quor
