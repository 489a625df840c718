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

/// "Overflow" and, below it, what to enter instead, titled "Errore": a number does not fit its
/// field.
void showOverflow(QWidget* parent, const QString& advice);

/// A question with Yes and No; closing the box is No.
[[nodiscard]] Answer ask(QWidget* parent, const QString& text, const QString& title);

/// The same for what cannot be brought back: Enter is No.
[[nodiscard]] Answer askBeforeLoss(QWidget* parent, const QString& text, const QString& title);

/// A question that may be left open: Yes, No or Cancel; closing the box is Cancel.
[[nodiscard]] Answer askOrCancel(QWidget* parent, const QString& text, const QString& title);

/// A question with two or more buttons of its own, in the order that `ChoiceBox` wants.
/// @return the position of the pressed button; closing the box presses the last one
[[nodiscard]] qsizetype askChoice(QWidget* parent, const QString& text, const QString& title,
                                  const QStringList& buttons);

/// One line of text; empty when cancelled.
[[nodiscard]] QString askText(QWidget* parent, const QString& prompt, const QString& title);

} // namespace quor
