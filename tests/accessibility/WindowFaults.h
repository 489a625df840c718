#pragma once

#include <QChar>
#include <QList>
#include <QString>
#include <QStringList>

class QAction;
class QWidget;

/// What a window lacks for those who work without a mouse or without a screen. Each function gives
/// one line for each fault, and none when all is well.
///
/// Looked at is what can be seen of the window at the moment; parts of the toolkit's own controls
/// and windows inside or above it do not count.
namespace quor::test {

/// Texts that share an access key on purpose: "F: &File sistemi | &Finestre".
using Clashes = QStringList;

/// The controls of a window that can be seen, those in which others lie before these.
[[nodiscard]] QList<QWidget*> controlsIn(const QWidget& window);

/// Class and name of a control: "QLabel Label1".
[[nodiscard]] QString describe(const QWidget& widget);

/// Controls and pictures that a screen reader cannot name, and descriptions that it would read with
/// their markup.
[[nodiscard]] QStringList nameFaults(const QWidget& window);

/// Access keys that two controls share, and labels whose key leads nowhere.
[[nodiscard]] QStringList accessKeyFaults(const QWidget& window, const Clashes& allowed = {});

/// The same for the entries of a menu or of a menu bar, and entries without a text.
[[nodiscard]] QStringList menuFaults(const QList<QAction*>& entries, const Clashes& allowed = {});

/// Walks through the window with the tab key: controls that it does not reach, controls of other
/// windows that it does reach, and jumps against the order of reading (left to right, then down;
/// a column beside begins at its top). A help button stands where it likes. The keyboard must be in
/// the window to begin with, and not on its help button.
[[nodiscard]] QStringList tabFaults(QWidget& window);

/// All of them, and a window without a title.
[[nodiscard]] QStringList windowFaults(QWidget& window, const Clashes& allowed = {});

} // namespace quor::test
