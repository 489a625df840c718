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

    /// Closes the window together with its frame, also where a lock has disabled it.
    void closeWindow();

  signals:
    /// The window has closed and is about to go.
    void closed();

  protected:
    /// A size that suits a font of usual size (10 points), for the font of the window: larger where
    /// that is larger.
    [[nodiscard]] QSize forFont(QSize usual) const;

    /// False where a lock has disabled the window and the user, whose keys and the buttons of a
    /// maximised window reach it all the same, asks to close it.
    [[nodiscard]] bool mayClose() const;

    void closeEvent(QCloseEvent* event) override;

  private:
    bool m_closing = false; ///< by the program
};

} // namespace quor
