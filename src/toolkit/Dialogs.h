#pragma once

#include <QColor>
#include <QMarginsF>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

class QWidget;

/// The door through which every box reaches the screen: message boxes, input boxes, file, colour
/// and print dialogs. The program calls `Messages`, `FileDialogs` and `PrintDialog`; behind them
/// stands a `DialogHost`, the real one unless a test has put its script there.
namespace quor {

/// The answers keep the numbers that a platform's message box gives.
enum class Answer : int { ok = 1, cancel = 2, yes = 6, no = 7 };

/// A loss is a question too, whose Yes destroys something for good: Enter presses its No. An open
/// question has a third button, "Annulla", which closing the box presses.
enum class BoxKind : std::uint8_t { information, warning, error, question, loss, openQuestion };

struct MessageBox {
    BoxKind kind = BoxKind::information;
    QString text;
    QString title;
};

/// A question with buttons of its own.
struct ChoiceBox {
    QString text;
    QString title;
    /// Captions. The first is what Enter presses; the last does nothing that could not be done
    /// later, and closing the box presses it; what lies between destroys something.
    QStringList buttons;
};

enum class FileMode : std::uint8_t { open, save };

struct FileRequest {
    FileMode mode = FileMode::open;
    QString title;
    QString filter; ///< "Description (*.ext) | *.ext"
    QString folder;
};

/// A sheet of paper and how it is used. Lengths are millimetres.
struct Sheet {
    QSizeF paper{210, 297}; ///< as it is read: one that lies across is wider than high
    QMarginsF margins{10, 10, 10, 10};
    bool grey = false; ///< without colours

    /// Nothing that could be seen differs.
    [[nodiscard]] bool isLike(const Sheet& other) const;
};

/// What is to be printed.
struct PrintRequest {
    QString title;     ///< of the dialog
    QString document;  ///< name of the document, and of the file that is proposed for it
    int pageCount = 1; ///< a choice of pages is offered only when there is one
    Sheet sheet{};     ///< what the pages are laid out for, proposed for a file
};

/// Pages from `first` to `last`, both counted from 1 and included.
struct PageSpan {
    int first = 1;
    int last = 1;

    friend bool operator==(const PageSpan&, const PageSpan&) = default;
};

/// Where to print and how: to a printer or into a PDF file, one of the two is empty.
struct PrintChoice {
    QString printer; ///< name of the print queue
    QString file;    ///< path of the PDF file
    int copies = 1;
    bool collate = true;
    std::vector<PageSpan> pages{}; ///< empty for all
    QStringList options{};         ///< of the print queue: "sides=two-sided-long-edge"
    Sheet sheet{};
    bool reverse = false; ///< the last page first
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
    /// The position of the button that was pressed.
    virtual qsizetype choice(QWidget* parent, const ChoiceBox& box) = 0;
    /// Empty when cancelled.
    virtual QString input(QWidget* parent, const QString& prompt, const QString& title) = 0;
    /// Empty when cancelled.
    virtual QString file(QWidget* parent, const FileRequest& request) = 0;
    /// Nothing when cancelled.
    virtual std::optional<QColor> colour(QWidget* parent, const QColor& initial,
                                         const QString& title) = 0;
    /// Nothing when cancelled.
    virtual std::optional<PrintChoice> print(QWidget* parent, const PrintRequest& request) = 0;
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
