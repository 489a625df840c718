#pragma once

#include "storage/FileKind.h"

#include <QObject>

#include <functional>

class QDropEvent;
class QMimeData;
class QWidget;

namespace quor {

/// Lets one file of the program's be dropped on a window, wherever in it: the cursor says whether
/// it would be taken.
class FileDrop : public QObject {
    Q_OBJECT

  public:
    /// @param canOpen whether a file of this kind can be opened now
    FileDrop(QWidget* window, std::function<bool(FileKind)> canOpen);

  signals:
    /// Comes when the drop is over, so that what is asked about the file does not keep the program
    /// that it came from waiting.
    void dropped(const QString& path);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] bool isWelcome(const QString& path) const;
    void answer(QDropEvent& event, bool welcome) const;

    std::function<bool(FileKind)> m_canOpen;
    QString m_path; ///< what is being dragged over the window; empty for what cannot be taken
};

} // namespace quor
