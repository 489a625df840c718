#include "toolkit/Dialogs.h"

#include "toolkit/BoxText.h"
#include "toolkit/ImageList.h"
#include "toolkit/PrintDialog.h"
#include "toolkit/WindowTitle.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QFontMetrics>
#include <QGridLayout>
#include <QIcon>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>

#include <cmath>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// What tells one kind of box from another at a glance.
struct BoxPicture {
    QMessageBox::Icon icon;
    QString themeName; ///< of the desktop's picture
    QString key;       ///< of ours
};

BoxPicture boxPicture(BoxKind kind) {
    switch (kind) {
    case BoxKind::information:
        return {QMessageBox::Information, u"dialog-information"_s, u"ImmInformazione"_s};
    case BoxKind::warning:
    case BoxKind::loss:
        return {QMessageBox::Warning, u"dialog-warning"_s, u"ImmAvviso"_s};
    case BoxKind::error:
        return {QMessageBox::Critical, u"dialog-error"_s, u"ImmErrore"_s};
    case BoxKind::question:
    case BoxKind::openQuestion:
        break;
    }
    return {QMessageBox::Question, u"dialog-question"_s, u"ImmDomanda"_s};
}

/// Where the desktop has no picture the toolkit has one of few pixels, which a fine screen
/// magnifies and a large font dwarfs.
void setPicture(QMessageBox& window, BoxKind kind) {
    const BoxPicture used = boxPicture(kind);
    window.setIcon(used.icon);
    if (!QIcon::hasThemeIcon(used.themeName)) {
        const int size =
            std::max(window.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &window),
                     2 * window.fontMetrics().height());
        const QWidget* parent = window.parentWidget();
        const qreal ratio = (parent != nullptr ? parent : &window)->devicePixelRatioF();
        window.setIconPixmap(picture(used.key).pixmap(QSize(size, size), ratio));
    }
}

/// "*.ext" of "Description (*.ext) | *.ext".
QString patternOf(const QString& filter) {
    return filter.section(u'|', 1).trimmed();
}

/// A box with a short text is as narrow as its button and would cut its own title.
void makeRoomForTitle(QMessageBox& window) {
    constexpr int ems = 14; // for the buttons of the title bar, and the text not too close to them
    const QFontMetrics metrics(window.font());
    const int width = metrics.horizontalAdvance(titleOf(window)) + ems * metrics.averageCharWidth();
    if (auto* grid = qobject_cast<QGridLayout*>(window.layout())) {
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
    }
}

/// What boxes with a text have in common.
void dress(QMessageBox& window, BoxKind kind, const QString& title, const QString& text) {
    setPicture(window, kind);
    setTitle(window, title);
    // Texts hold names that people typed: never markup.
    window.setTextFormat(Qt::PlainText);
    window.setText(boxText(text));
    makeRoomForTitle(window);
}

class RealDialogHost : public DialogHost {
  public:
    Answer message(QWidget* parent, const MessageBox& box) override {
        QMessageBox window(parent);
        dress(window, box.kind, box.title, box.text);
        const bool isOpen = box.kind == BoxKind::openQuestion;
        if (box.kind != BoxKind::question && box.kind != BoxKind::loss && !isOpen) {
            window.setStandardButtons(QMessageBox::Ok);
            window.exec();
            return Answer::ok;
        }
        window.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        if (isOpen) {
            window.addButton(QMessageBox::Cancel);
        }
        window.setDefaultButton(box.kind == BoxKind::loss ? QMessageBox::No : QMessageBox::Yes);
        window.setEscapeButton(isOpen ? QMessageBox::Cancel : QMessageBox::No);
        switch (window.exec()) {
        case QMessageBox::Yes:
            return Answer::yes;
        case QMessageBox::Cancel:
            return Answer::cancel;
        default:
            return Answer::no;
        }
    }

    qsizetype choice(QWidget* parent, const ChoiceBox& box) override {
        QMessageBox window(parent);
        dress(window, BoxKind::question, box.title, box.text);
        QList<QAbstractButton*> buttons;
        for (const QString& caption : box.buttons) {
            const bool isFirst = buttons.isEmpty();
            const bool isLast = buttons.size() == box.buttons.size() - 1;
            QPushButton* button =
                window.addButton(caption, isFirst  ? QMessageBox::AcceptRole
                                          : isLast ? QMessageBox::RejectRole
                                                   : QMessageBox::DestructiveRole);
            buttons << button;
            if (isFirst) {
                window.setDefaultButton(button);
            }
        }
        window.setEscapeButton(buttons.constLast());
        window.exec();
        const qsizetype pressed = buttons.indexOf(window.clickedButton());
        return pressed < 0 ? buttons.size() - 1 : pressed;
    }

    QString input(QWidget* parent, const QString& prompt, const QString& title) override {
        return QInputDialog::getText(parent, title, prompt);
    }

    QString file(QWidget* parent, const FileRequest& request) override {
        const QString pattern = patternOf(request.filter);
        QFileDialog dialog(parent, request.title, request.folder,
                           request.filter.section(u'|', 0, 0).trimmed());
        if (request.mode == FileMode::open) {
            dialog.setFileMode(QFileDialog::ExistingFile);
        } else {
            dialog.setFileMode(QFileDialog::AnyFile);
            dialog.setAcceptMode(QFileDialog::AcceptSave);
            dialog.setDefaultSuffix(pattern.section(u'.', 1));
        }
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
            return {};
        }
        return dialog.selectedFiles().constFirst();
    }

    std::optional<QColor> colour(QWidget* parent, const QColor& initial,
                                 const QString& title) override {
        const QColor chosen = QColorDialog::getColor(initial, parent, title);
        return chosen.isValid() ? std::optional(chosen) : std::nullopt;
    }

    std::optional<PrintChoice> print(QWidget* parent, const PrintRequest& request) override {
        const PrintDialog dialog = systemPrintDialog();
        return dialog != nullptr ? dialog(parent, request) : std::nullopt;
    }
};

DialogHost*& currentHost() {
    static RealDialogHost real;
    static DialogHost* host = &real;
    return host;
}

} // namespace

bool Sheet::isLike(const Sheet& other) const {
    constexpr double visible = 0.5; // millimetres
    const auto near = [](double one, double another) { return std::abs(one - another) < visible; };
    return grey == other.grey && near(paper.width(), other.paper.width()) &&
           near(paper.height(), other.paper.height()) &&
           near(margins.left(), other.margins.left()) && near(margins.top(), other.margins.top()) &&
           near(margins.right(), other.margins.right()) &&
           near(margins.bottom(), other.margins.bottom());
}

DialogHost& dialogHost() {
    return *currentHost();
}

ScopedDialogHost::ScopedDialogHost(DialogHost& host)
    : m_previous(currentHost()) {
    currentHost() = &host;
}

ScopedDialogHost::~ScopedDialogHost() {
    currentHost() = m_previous;
}

} // namespace quor
