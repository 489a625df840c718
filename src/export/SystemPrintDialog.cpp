#include "export/SystemPrintDialog.h"

#include "toolkit/Messages.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPageRanges>
#include <QPrintDialog>
#include <QPrintEngine>
#include <QPrinter>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// The toolkit's key for what its dialog sets beyond the printer's own properties (pages on a
/// sheet, banners, the options of the driver): names and values by turns.
constexpr int queueOptionsKey = 0xfe00;

QString sides(QPrinter::DuplexMode mode) {
    switch (mode) {
    case QPrinter::DuplexLongSide:
        return u"sides=two-sided-long-edge"_s;
    case QPrinter::DuplexShortSide:
        return u"sides=two-sided-short-edge"_s;
    case QPrinter::DuplexNone:
        return u"sides=one-sided"_s;
    default:
        return {};
    }
}

QStringList queueOptions(const QPrinter& printer) {
    QStringList options;
    if (const QString chosen = sides(printer.duplex()); !chosen.isEmpty()) {
        options << chosen;
    }
    if (const QPageSize size = printer.pageLayout().pageSize(); size.id() != QPageSize::Custom) {
        options << u"media="_s + size.key();
    }
    if (printer.pageLayout().orientation() == QPageLayout::Landscape) {
        options << u"landscape"_s;
    }
    const QStringList more = printer.printEngine()
                                 ->property(QPrintEngine::PrintEnginePropertyKey(queueOptionsKey))
                                 .toStringList();
    for (qsizetype i = 0; i + 1 < more.size(); i += 2) {
        options << more.at(i) + u'=' + more.at(i + 1);
    }
    return options;
}

std::vector<PageSpan> chosenPages(const QPrinter& printer, int pageCount) {
    std::vector<PageSpan> pages;
    if (printer.printRange() != QPrinter::PageRange) {
        return pages;
    }
    for (const QPageRanges::Range& range : printer.pageRanges().toRangeList()) {
        const PageSpan span{.first = std::max(range.from, 1),
                            .last = std::min(range.to, pageCount)};
        if (span.first <= span.last) {
            pages.push_back(span);
        }
    }
    return pages;
}

/// Nothing that is typed or pasted makes a name that no file can have: the dialog would ask the
/// system for such a file.
void keepFileNameWhole(QLineEdit* field) {
    QObject::connect(field, &QLineEdit::textChanged, field, [field](const QString& text) {
        if (text.contains(QChar(u'\0'))) {
            field->setText(QString(text).remove(QChar(u'\0')));
        }
    });
}

/// The dialog opens the file that is typed to see whether it can be written. Of a pipe it would
/// wait for somebody who reads it.
bool isFit(const QLineEdit* field, QWidget* dialog) {
    const QFileInfo file(field->text());
    if (!field->isEnabled() || !file.exists() || file.isFile() || file.isDir()) {
        return true;
    }
    showError(dialog,
              u"\"%1\" non è un file: niente ne prende il posto."_s.arg(
                  QDir::toNativeSeparators(file.filePath())),
              u"Errore"_s);
    return false;
}

/// Looks at the file before the dialog's own check, which is all that its button is connected to.
void checkFileFirst(QPrintDialog* dialog, const QLineEdit* field) {
    auto* buttons = dialog->findChild<QDialogButtonBox*>();
    if (buttons == nullptr) {
        return;
    }
    QObject::disconnect(buttons, &QDialogButtonBox::accepted, dialog, nullptr);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, [dialog, field] {
        if (isFit(field, dialog) && !QMetaObject::invokeMethod(dialog, "_q_checkFields")) {
            dialog->accept(); // one without a check of its own
        }
    });
}

} // namespace

PrintChoice printChoice(const QPrinter& printer, int pageCount) {
    PrintChoice choice{.printer = {}, .file = {}};
    choice.pages = chosenPages(printer, pageCount);
    if (printer.outputFormat() == QPrinter::PdfFormat || !printer.outputFileName().isEmpty()) {
        choice.file = printer.outputFileName();
        return choice;
    }
    choice.printer = printer.printerName();
    choice.copies = std::max(printer.copyCount(), 1);
    choice.collate = printer.collateCopies();
    choice.options = queueOptions(printer);
    return choice;
}

std::optional<PrintChoice> showSystemPrintDialog(QWidget* parent, const PrintRequest& request) {
    QPrinter printer(QPrinter::HighResolution);
    // The dialog makes the name of a file of it.
    static const QRegularExpression unfit(u"[/\\\\:*?\"<>|\\x00-\\x1f]"_s);
    printer.setDocName(QString(request.document).replace(unfit, u"_"_s));
    QPrintDialog dialog(&printer, parent);
    dialog.setWindowTitle(request.title);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize |
                      QAbstractPrintDialog::PrintCollateCopies);
    if (request.pageCount > 1) {
        dialog.setOption(QAbstractPrintDialog::PrintPageRange);
        dialog.setMinMax(1, request.pageCount);
    }
    if (auto* file = dialog.findChild<QLineEdit*>(u"filename"_s)) {
        keepFileNameWhole(file);
        checkFileFirst(&dialog, file);
    }
    if (dialog.exec() != QDialog::Accepted) {
        return {};
    }
    return printChoice(printer, request.pageCount);
}

} // namespace quor
