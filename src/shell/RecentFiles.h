#pragma once

#include "storage/FileKind.h"

#include <QMenu>

namespace quor {

class StateFile;

/// The submenu of the files of one kind that were last opened or saved, the newest first, in the
/// menu of that kind above its last group.
class RecentFiles : public QMenu {
    Q_OBJECT

  public:
    /// @param menu the submenu's own menu; whenever that opens, the state file is read again
    /// @param state outlives the submenu
    RecentFiles(FileKind kind, const StateFile& state, QMenu* menu);

    /// The file was opened or saved.
    void add(const QString& path);
    /// The file is not there any more.
    void remove(const QString& path);

    /// Whether a file can be opened at all. An empty list is disabled in any case.
    void setUsable(bool usable);

  signals:
    /// Comes when all menus are closed.
    void chosen(const QString& path);

  private:
    void refresh();
    void showState();
    [[nodiscard]] QStringList names(const QStringList& paths) const;

    FileKind m_kind;
    const StateFile& m_state;
    bool m_usable = true;
};

} // namespace quor
