// The module's door.

#include "export/Paper.h"

#include "export/PreviewWindow.h"
#include "export/PrintDocument.h"
#include "export/SystemPrintDialog.h"
#include "toolkit/PrintDialog.h"

#include <QPrinterInfo>

namespace quor {

namespace {

PagesWindow* makePreview(QWidget* parent) {
    return new PreviewWindow(parent);
}

std::optional<QSizeF> usualPaper() {
    const QPrinterInfo printer = QPrinterInfo::defaultPrinter();
    const QPageSize page = printer.isNull() ? QPageSize() : printer.defaultPageSize();
    return page.isValid() ? std::optional(page.size(QPageSize::Point)) : std::nullopt;
}

constexpr Paper module{.version = QUOR_VERSION,
                       .makePreview = makePreview,
                       .print = printDocument,
                       .usualPaper = usualPaper};

} // namespace

extern "C" Q_DECL_EXPORT const Paper* quorPaper() {
    setSystemPrintDialog(showSystemPrintDialog);
    return &module;
}

} // namespace quor
