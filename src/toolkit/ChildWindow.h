#pragma once

#include <QWidget>

namespace quor {

/// A window inside the frame. It is deleted when it closes.
class ChildWindow : public QWidget {
    Q_OBJECT

  public:
    explicit ChildWindow(QWidget* parent = nullptr);

    /// Opens the window's own options; called for the active child. Most windows have none.
    virtual void SetOptions();

    /// Whether more room shows more: a picture or a list grows, a form does not.
    [[nodiscard]] virtual bool grows() const { return false; }

    /// Closes the window together with its frame.
    void closeWindow();

  signals:
    /// The window has closed and is about to go.
    void closed();

  protected:
    /// A size that suits a font of usual size (10 points), for the font of the window: larger where
    /// that is larger.
    [[nodiscard]] QSize forFont(QSize usual) const;

    void closeEvent(QCloseEvent* event) override;
};

} // namespace quor
