#include "toolkit/Messages.h"

using namespace Qt::StringLiterals;

namespace quor {

namespace {

Answer show(QWidget* parent, BoxKind kind, const QString& text, const QString& title) {
    return dialogHost().message(parent, {.kind = kind, .text = text, .title = title});
}

} // namespace

QString defaultTitle() {
    return u"Quor"_s;
}

void showInformation(QWidget* parent, const QString& text, const QString& title) {
    show(parent, BoxKind::information, text, title);
}

void showWarning(QWidget* parent, const QString& text, const QString& title) {
    show(parent, BoxKind::warning, text, title);
}

void showError(QWidget* parent, const QString& text, const QString& title) {
    show(parent, BoxKind::error, text, title);
}

void showOverflow(QWidget* parent, const QString& advice) {
    showError(parent, u"Overflow\n"_s + advice, u"Errore"_s);
}

Answer ask(QWidget* parent, const QString& text, const QString& title) {
    return show(parent, BoxKind::question, text, title);
}

Answer askBeforeLoss(QWidget* parent, const QString& text, const QString& title) {
    return show(parent, BoxKind::loss, text, title);
}

Answer askOrCancel(QWidget* parent, const QString& text, const QString& title) {
    return show(parent, BoxKind::openQuestion, text, title);
}

qsizetype askChoice(QWidget* parent, const QString& text, const QString& title,
                    const QStringList& buttons) {
    return dialogHost().choice(parent, {.text = text, .title = title, .buttons = buttons});
}

QString askText(QWidget* parent, const QString& prompt, const QString& title) {
    return dialogHost().input(parent, prompt, title);
}

} // namespace quor
