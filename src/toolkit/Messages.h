#pragma once

#include "toolkit/Dialogs.h"

#include <QString>

class QWidget;

/// Message and input boxes. Texts are shown as they are, never as markup.
namespace quor {

/// The title of a box that has none of its own.
[[nodiscard]] QString defaultTitle();

/// A box with an OK button.
void showInformation(QWidget* parent, const QString& text, const QString& title);
void showWarning(QWidget* parent, const QString& text, const QString& title);
void showError(QWidget* parent, const QString& text, const QString& title);

/// "Overflow", titled "Errore": a number does not fit its field.
void showOverflow(QWidget* parent);

/// A question with Yes and No; closing the box is No.
[[nodiscard]] Answer ask(QWidget* parent, const QString& text, const QString& title);

/// One line of text; empty when cancelled.
[[nodiscard]] QString askText(QWidget* parent, const QString& prompt, const QString& title);

} // namespace quor
