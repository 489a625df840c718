#pragma once

#include <QColor>
#include <QString>

#include <optional>

class QWidget;

/// The door through which every box reaches the screen: message boxes, input boxes, file and colour
/// dialogs. The program calls `Messages` and `FileDialogs`; behind them stands a `DialogHost`, the
/// real one unless a test has put its script there.
namespace quor {

/// The answers keep the numbers that a platform's message box gives.
enum class Answer : int { ok = 1, yes = 6, no = 7 };

enum class BoxKind : std::uint8_t { information, warning, error, question };

struct MessageBox {
    BoxKind kind = BoxKind::information;
    QString text;
    QString title;
};

enum class FileMode : std::uint8_t { open, save };

struct FileRequest {
    FileMode mode = FileMode::open;
    QString title;
    QString filter; ///< "Description (*.ext) | *.ext"
    QString folder;
};

class DialogHost {
  public:
    DialogHost() = default;
    DialogHost(const DialogHost&) = delete;
    DialogHost& operator=(const DialogHost&) = delete;
    DialogHost(DialogHost&&) = delete;
    DialogHost& operator=(DialogHost&&) = delete;
    virtual ~DialogHost() = default;

    virtual Answer message(QWidget* parent, const MessageBox& box) = 0;
    /// Empty when cancelled.
    virtual QString input(QWidget* parent, const QString& prompt, const QString& title) = 0;
    /// Empty when cancelled.
    virtual QString file(QWidget* parent, const FileRequest& request) = 0;
    /// Nothing when cancelled.
    virtual std::optional<QColor> colour(QWidget* parent, const QColor& initial,
                                         const QString& title) = 0;
};

/// The host in use.
[[nodiscard]] DialogHost& dialogHost();

/// Puts a host in place while it lives; the previous one is back when it goes.
class ScopedDialogHost {
  public:
    explicit ScopedDialogHost(DialogHost& host);
    ~ScopedDialogHost();
    ScopedDialogHost(const ScopedDialogHost&) = delete;
    ScopedDialogHost& operator=(const ScopedDialogHost&) = delete;
    ScopedDialogHost(ScopedDialogHost&&) = delete;
    ScopedDialogHost& operator=(ScopedDialogHost&&) = delete;

  private:
    DialogHost* m_previous;
};

} // namespace quor
