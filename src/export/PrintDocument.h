#pragma once

#include "export/Paper.h"
#include "toolkit/Dialogs.h"

#include <span>

class QPageLayout;
class QPdfDocument;
class QPrinter;
class QWidget;

/// Printing of finished pages.
namespace quor {

/// Asks where and how, and prints. Pages that were laid out for another sheet are laid out anew. A
/// file gets the very pages; a print queue gets the very file, handed over in the background; where
/// there is no print system to hand it to, the pages are painted. What goes wrong is told in a box.
/// @param parent of the boxes; may go before the handing over is done
void printDocument(QWidget* parent, const PrintableDocument& document);

/// The same in the words of Qt.
[[nodiscard]] QPageLayout layoutOf(const Sheet& sheet);

/// Paints pages on a printer, each as large as its sheet allows.
/// @param spans empty for all pages
/// @return false when the printer does not take them
bool paintPages(QPrinter& printer, QPdfDocument& document, std::span<const PageSpan> spans);

} // namespace quor
