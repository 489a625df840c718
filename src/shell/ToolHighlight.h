#pragma once

#include <QWidget>

namespace quor {

/// A frame in the palette's highlight colour around a button of a toolbar. It follows the button,
/// hides with it, and lets every click through. It lives as long as the button, or shorter.
class ToolHighlight : public QWidget {
    Q_OBJECT

  public:
    explicit ToolHighlight(QWidget* button);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void follow();

    QWidget* m_button;
};

} // namespace quor
