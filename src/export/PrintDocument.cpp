#include "export/PrintDocument.h"

#include "export/PdfPages.h"
#include "export/PrintQueueJob.h"
#include "storage/WholeFile.h"
#include "toolkit/Messages.h"
#include "toolkit/PrintDialog.h"

#include <QBuffer>
#include <QDir>
#include <QPageLayout>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfWriter>
#include <QPointer>
#include <QPrinter>
#include <QWidget>

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

/// Paints pages, each as large as the sheet allows. The device has no margins.
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
/// memory: Qt does not notice a disk that is full, and leaves a cut file.
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

/// The pages in the order in which a file holds them: those that were chosen, in as many copies.
std::vector<PageSpan> pagesInOrder(const PrintChoice& choice, int pageCount) {
    std::vector<PageSpan> pages; // one by one
    const PageSpan all{.first = 1, .last = pageCount};
    for (const PageSpan& span : choice.pages.empty() ? std::vector{all} : choice.pages) {
        for (int page = span.first; page <= std::min(span.last, pageCount); ++page) {
            pages.push_back({.first = page, .last = page});
        }
    }
    if (choice.reverse) {
        std::reverse(pages.begin(), pages.end());
    }
    std::vector<PageSpan> copies;
    const auto count = static_cast<std::size_t>(std::max(choice.copies, 1));
    for (std::size_t i = 0; i < pages.size() * count; ++i) {
        copies.push_back(pages.at(choice.collate ? i % pages.size() : i / count));
    }
    return copies;
}

void writeFile(QWidget* parent, const PrintableDocument& document, QPdfDocument& pages,
               const PrintChoice& choice) {
    std::vector<PageSpan> spans;
    if (!choice.pages.empty() || choice.copies > 1 || choice.reverse) {
        spans = pagesInOrder(choice, pages.pageCount());
    }
    const QByteArray pdf = selectPages(document.pdf, spans).value_or(QByteArray());
    const QByteArray content = pdf.isEmpty() ? paintedPages(pages, spans) : pdf;
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
    printer.setPageOrder(choice.reverse ? QPrinter::LastPageFirst : QPrinter::FirstPageFirst);
    printer.setColorMode(choice.sheet.grey ? QPrinter::GrayScale : QPrinter::Color);
    printer.setPageLayout(layoutOf(choice.sheet));
    if (printer.printerName() != choice.printer || !printer.isValid() ||
        !paintPages(printer, pages, choice.pages)) {
        reportFault(parent, u"La stampante \"%1\" non accetta la stampa."_s.arg(choice.printer));
    }
}

/// Reads pages; a box says so when they cannot be read.
bool load(QWidget* parent, QBuffer& buffer, QPdfDocument& pages) {
    buffer.open(QIODevice::ReadOnly);
    pages.load(&buffer);
    const bool ready = pages.status() == QPdfDocument::Status::Ready;
    if (!ready) {
        reportFault(parent, u"Le pagine da stampare non si possono leggere."_s);
    }
    return ready;
}

/// Prints pages that are laid out as was chosen.
void deliver(QWidget* parent, const PrintableDocument& document, const PrintChoice& choice) {
    QByteArray pdf = document.pdf;
    QBuffer buffer(&pdf);
    QPdfDocument pages;
    if (!load(parent, buffer, pages)) {
        return;
    }
    const int count = pages.pageCount();
    if (!choice.pages.empty() &&
        std::none_of(choice.pages.begin(), choice.pages.end(),
                     [count](const PageSpan& span) { return span.first <= count; })) {
        reportFault(
            parent,
            u"Su questo foglio le pagine sono %1: di quelle scelte non ce n'è nessuna."_s.arg(
                count));
    } else if (!choice.file.isEmpty()) {
        writeFile(parent, document, pages, choice);
    } else if (PrintQueueJob::isPossible()) {
        PrintQueueJob::start(parent, document, choice);
    } else {
        paintOnPrinter(parent, document, pages, choice);
    }
}

} // namespace

bool paintPages(QPrinter& printer, QPdfDocument& document, std::span<const PageSpan> spans) {
    printer.setFullPage(true);
    return paintSheets(printer, printer.paperRect(QPrinter::DevicePixel).size(),
                       printer.resolution(), document, spans);
}

QPageLayout layoutOf(const Sheet& sheet) {
    const bool across = sheet.paper.width() > sheet.paper.height();
    const QSizeF upright = across ? sheet.paper.transposed() : sheet.paper;
    return {QPageSize(upright, QPageSize::Millimeter, {}, QPageSize::FuzzyMatch),
            across ? QPageLayout::Landscape : QPageLayout::Portrait, sheet.margins,
            QPageLayout::Millimeter};
}

void printDocument(QWidget* parent, const PrintableDocument& document) {
    QByteArray pdf = document.pdf;
    QBuffer buffer(&pdf);
    QPdfDocument pages;
    if (!load(parent, buffer, pages)) {
        return;
    }
    const auto choice = askHowToPrint(parent, {.title = u"Stampa"_s,
                                               .document = document.name,
                                               .pageCount = pages.pageCount(),
                                               .sheet = document.sheet});
    if (!choice) {
        return;
    }
    if (choice->sheet.isLike(document.sheet) || !document.layOut) {
        deliver(parent, document, *choice);
        return;
    }
    document.layOut(
        parent, choice->sheet,
        [window = QPointer(parent), document, choice = *choice](const QByteArray& anew) {
            deliver(window, {.pdf = anew, .name = document.name, .sheet = choice.sheet}, choice);
        });
}

} // namespace quor
