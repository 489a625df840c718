#include "export/SystemPrintDialog.h"

#include "export/PrintDocument.h"
#include "toolkit/Messages.h"

#include <QChildEvent>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QPageRanges>
#include <QPrintDialog>
#include <QPrintEngine>
#include <QPrinter>
#include <QRegularExpression>
#include <QStandardItemModel>
#include <QTabWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// Qt's key for what its dialog sets beyond the printer's own properties (pages on a
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

/// In millimetres, as the page is read.
Sheet sheetOf(const QPrinter& printer) {
    const QPageLayout layout = printer.pageLayout();
    return {.paper = layout.fullRect(QPageLayout::Millimeter).size(),
            .margins = layout.margins(QPageLayout::Millimeter),
            .grey = printer.colorMode() == QPrinter::GrayScale};
}

/// The pages are laid out for the sheet, so that the queue neither turns nor scales them.
QStringList queueOptions(const QPrinter& printer) {
    QStringList options;
    if (const QString chosen = sides(printer.duplex()); !chosen.isEmpty()) {
        options << chosen;
    }
    const QPageSize size = printer.pageLayout().pageSize();
    if (size.id() != QPageSize::Custom) {
        options << u"media="_s + size.key();
    } else {
        const QSizeF sides = size.size(QPageSize::Millimeter);
        options << u"media=Custom.%1x%2mm"_s.arg(sides.width()).arg(sides.height());
    }
    if (printer.colorMode() == QPrinter::GrayScale) {
        options << u"print-color-mode=monochrome"_s;
    }
    if (printer.pageOrder() == QPrinter::LastPageFirst) {
        options << u"outputorder=reverse"_s;
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

/// Sheets that are too small for the page cannot be chosen. Fewer millimetres than these cut its
/// pictures off.
constexpr double smallestWidth = 80;
constexpr double smallestHeight = 60;

bool hasRoom(const Sheet& sheet) {
    const QSizeF room = sheet.paper.shrunkBy(sheet.margins);
    return room.width() >= smallestWidth && room.height() >= smallestHeight;
}

/// Leaves in the dialog what can be done. A file has no sides, no sheets with several pages and no
/// queue to wait in; Qt's dialog offers them, or shows them switched off.
class Offer : public QObject {
  public:
    explicit Offer(QPrintDialog* dialog)
        : QObject(dialog)
        , m_dialog(dialog) {
        dialog->installEventFilter(this);
        if (auto* printers = dialog->findChild<QComboBox*>(u"printers"_s)) {
            connect(printers, &QComboBox::currentIndexChanged, this, &Offer::keepWhatCanBeDone,
                    Qt::QueuedConnection);
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ChildAdded) {
            // The dialog of the properties is made anew whenever it is asked for.
            static_cast<QChildEvent*>(event)->child()->installEventFilter(this);
        } else if (event->type() == QEvent::Show) {
            if (watched == m_dialog) {
                keepWhatCanBeDone();
            } else if (auto* properties = qobject_cast<QDialog*>(watched)) {
                keepPropertiesThatCanBe(*properties);
            }
        }
        return false;
    }

  private:
    [[nodiscard]] bool isForFile() const {
        const auto* file = m_dialog->findChild<QLineEdit*>(u"filename"_s);
        return file != nullptr && file->isEnabled();
    }

    void keepWhatCanBeDone() {
        for (const QString& name : {u"duplex"_s, u"pagesRadioButton"_s, u"pagesLineEdit"_s,
                                    u"pageSetLabel"_s, u"pageSetCombo"_s}) {
            if (auto* control = m_dialog->findChild<QWidget*>(name)) {
                control->setVisible(!isForFile());
            }
        }
        // Of one page Qt offers a part all the same.
        if (auto* range = m_dialog->findChild<QWidget*>(u"gbPrintRange"_s)) {
            range->setVisible(!isForFile() ||
                              m_dialog->testOption(QAbstractPrintDialog::PrintPageRange));
        }
    }

    void keepPropertiesThatCanBe(QDialog& properties) {
        if (auto* tabs = properties.findChild<QTabWidget*>(u"tabs"_s)) {
            for (int i = 1; i < tabs->count(); ++i) {
                tabs->setTabVisible(i, !isForFile() && tabs->isTabEnabled(i));
            }
        }
        if (auto* several = properties.findChild<QWidget*>(u"pagesPerSheetButtonGroup"_s)) {
            several->setVisible(!isForFile());
        }
        const auto* sizes = properties.findChild<QComboBox*>(u"pageSizeCombo"_s);
        auto* entries =
            sizes == nullptr ? nullptr : qobject_cast<QStandardItemModel*>(sizes->model());
        for (int i = 0; entries != nullptr && i < entries->rowCount(); ++i) {
            const auto size = sizes->itemData(i).value<QPageSize>();
            const bool large = !size.isValid() || // one of one's own
                               hasRoom({.paper = size.size(QPageSize::Millimeter), .margins = {}});
            entries->item(i)->setEnabled(large);
        }
    }

    QPrintDialog* m_dialog;
};

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
/// wait for a reader.
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
    choice.copies = std::max(printer.copyCount(), 1);
    choice.collate = printer.collateCopies();
    choice.sheet = sheetOf(printer);
    choice.reverse = printer.pageOrder() == QPrinter::LastPageFirst;
    if (printer.outputFormat() == QPrinter::PdfFormat || !printer.outputFileName().isEmpty()) {
        choice.file = printer.outputFileName();
        return choice;
    }
    choice.printer = printer.printerName();
    choice.options = queueOptions(printer);
    return choice;
}

std::optional<PrintChoice> showSystemPrintDialog(QWidget* parent, const PrintRequest& request) {
    QPrinter printer(QPrinter::HighResolution);
    // The dialog makes the name of a file of it.
    static const QRegularExpression unfit(u"[/\\\\:*?\"<>|\\x00-\\x1f]"_s);
    printer.setDocName(QString(request.document).replace(unfit, u"_"_s));
    printer.setPageLayout(layoutOf(request.sheet));
    QPrintDialog dialog(&printer, parent);
    new Offer(&dialog);
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
    while (dialog.exec() == QDialog::Accepted) {
        PrintChoice choice = printChoice(printer, request.pageCount);
        if (hasRoom(choice.sheet)) {
            return choice;
        }
        const QSizeF room = choice.sheet.paper.shrunkBy(choice.sheet.margins);
        showError(
            parent,
            u"Fra i margini restano %1 x %2 mm, e la pagina ne chiede almeno %3 x %4.\n"
            "Scegliere un foglio più grande o margini più piccoli."_s.arg(qRound(room.width()))
                .arg(qRound(room.height()))
                .arg(smallestWidth)
                .arg(smallestHeight),
            u"Errore"_s);
    }
    return {};
}

} // namespace quor
