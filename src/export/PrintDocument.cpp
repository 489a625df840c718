#include "export/PrintDocument.h"

#include "export/PdfPages.h"
#include "export/PrintQueueJob.h"
#include "storage/LineNotation.h"
#include "toolkit/Messages.h"
#include "toolkit/PrintDialog.h"

#include <QBuffer>
#include <QDir>
#include <QPageLayout>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfWriter>
#include <QPrinter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// A sheet at a printer's own resolution would take hundreds of megabytes and look no better.
constexpr int greatestResolution = 300;

void reportFault(QWidget* parent, const QString& text) {
    showError(parent, text, u"Stampa"_s);
}

std::vector<PageSpan> allPages(const QPdfDocument& document) {
    return {{.first = 1, .last = document.pageCount()}};
}

/// Paints pages, each as large as the sheet allows. Whoever takes them has full sheets.
bool paintSheets(QPagedPaintDevice& device, QSizeF sheet, int dotsPerInch, QPdfDocument& document,
                 std::span<const PageSpan> spans) {
    QPainter painter;
    const std::vector<PageSpan> all = allPages(document);
    if (spans.empty()) {
        spans = all;
    }
    bool first = true;
    for (const PageSpan& span : spans) {
        for (int page = std::max(span.first, 1); page <= std::min(span.last, document.pageCount());
             ++page) {
            if (first ? !painter.begin(&device) : !device.newPage()) {
                return false;
            }
            first = false;
            const QSizeF points = document.pagePointSize(page - 1);
            QRectF target({}, points.scaled(sheet, Qt::KeepAspectRatio));
            target.moveCenter(QRectF({}, sheet).center());
            const double scale = std::min(dotsPerInch, greatestResolution) / pointsPerInch;
            painter.drawImage(target, document.render(page - 1, (points * scale).toSize()));
        }
    }
    return !first && painter.end();
}

/// The pages as a file of their own, painted, when they cannot be taken from the document. In
/// memory: the toolkit does not notice a disk that is full, and leaves a cut file.
QByteArray paintedPages(QPdfDocument& document, std::span<const PageSpan> spans) {
    QByteArray pages;
    QBuffer buffer(&pages);
    buffer.open(QIODevice::WriteOnly);
    bool painted = false;
    {
        QPdfWriter writer(&buffer);
        const QPageSize paper(document.pagePointSize(0), QPageSize::Point);
        writer.setPageLayout(QPageLayout(paper, QPageLayout::Portrait, {}));
        const QSize sheet = writer.pageLayout().fullRectPixels(writer.resolution()).size();
        painted = paintSheets(writer, sheet, writer.resolution(), document, spans);
    }
    return painted ? pages : QByteArray();
}

void writeFile(QWidget* parent, const PrintableDocument& document, QPdfDocument& pages,
               const PrintChoice& choice) {
    const QByteArray pdf = selectPages(document.pdf, choice.pages).value_or(QByteArray());
    const QByteArray content = pdf.isEmpty() ? paintedPages(pages, choice.pages) : pdf;
    if (content.isEmpty() || writeWholeFile(choice.file, content)) {
        reportFault(parent, u"Impossibile scrivere il file \"%1\"."_s.arg(
                                QDir::toNativeSeparators(choice.file)));
    }
}

void paintOnPrinter(QWidget* parent, const PrintableDocument& document, QPdfDocument& pages,
                    const PrintChoice& choice) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrinterName(choice.printer);
    printer.setDocName(document.name);
    printer.setCopyCount(choice.copies);
    printer.setCollateCopies(choice.collate);
    if (printer.printerName() != choice.printer || !printer.isValid() ||
        !paintPages(printer, pages, choice.pages)) {
        reportFault(parent, u"La stampante \"%1\" non accetta la stampa."_s.arg(choice.printer));
    }
}

} // namespace

bool paintPages(QPrinter& printer, QPdfDocument& document, std::span<const PageSpan> spans) {
    printer.setFullPage(true);
    return paintSheets(printer, printer.paperRect(QPrinter::DevicePixel).size(),
                       printer.resolution(), document, spans);
}

void printDocument(QWidget* parent, const PrintableDocument& document) {
    QByteArray pdf = document.pdf;
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::ReadOnly);
    QPdfDocument pages;
    pages.load(&buffer);
    if (pages.status() != QPdfDocument::Status::Ready) {
        reportFault(parent, u"Le pagine da stampare non si possono leggere."_s);
        return;
    }
    const auto choice = askHowToPrint(
        parent, {.title = u"Stampa"_s, .document = document.name, .pageCount = pages.pageCount()});
    if (!choice) {
        return;
    }
    if (!choice->file.isEmpty()) {
        writeFile(parent, document, pages, *choice);
    } else if (PrintQueueJob::isPossible()) {
        PrintQueueJob::start(parent, document, *choice);
    } else {
        paintOnPrinter(parent, document, pages, *choice);
    }
}

} // namespace quor
