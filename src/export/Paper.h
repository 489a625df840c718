#pragma once

#include "toolkit/Dialogs.h"

#include <QByteArray>
#include <QDialog>
#include <QSizeF>
#include <QString>

#include <functional>
#include <optional>

/// What is made of finished pages: a window that shows them, and paper.
///
/// Qt's reader of such pages is larger than all the rest of the program, and most runs need none of
/// it. It is used by the module `quor-paper` alone, which is loaded when pages are there.
namespace quor {

/// Pages as they come from the engine.
struct PrintableDocument {
    QByteArray pdf;
    QString name;  ///< what the print queue shows, and the file that is proposed
    Sheet sheet{}; ///< what they are laid out for
    /// Lays the same page out anew and hands on its pages, later. What goes wrong is told in a box
    /// over the window, if that is still there.
    std::function<void(QWidget* window, const Sheet& sheet,
                       const std::function<void(const QByteArray& pdf)>& then)>
        layOut{};
};

/// A window with pages. It stays open beside its parent and is deleted when it closes.
class PagesWindow : public QDialog {
  public:
    using QDialog::QDialog;

    /// Shows these pages from the first one on.
    virtual void setDocument(const PrintableDocument& document) = 0;
};

/// What the module offers.
struct Paper {
    const char* version; ///< that of the program
    PagesWindow* (*makePreview)(QWidget* parent);
    /// Asks where and how, and prints. What goes wrong is told in a box.
    void (*print)(QWidget* parent, const PrintableDocument& document);
    /// The sheet of the usual printer, in points; nothing where there is no printer.
    std::optional<QSizeF> (*usualPaper)();
};

/// The module's one function.
extern "C" const Paper* quorPaper();

/// Loads the module if it is not there yet.
/// @param fault where there is none: one sentence for the user
/// @return null then
[[nodiscard]] const Paper* paper(QString& fault);

/// For a program that has the module built in, as tests do.
void usePaper(const Paper* paper);

} // namespace quor
