#pragma once

#include <QLabel>

namespace quor {

/// A panel of the status bar: it never widens the window, but shortens a text that does not fit and
/// shows the whole of it as its tooltip.
class StatusLabel : public QLabel {
    Q_OBJECT

  public:
    explicit StatusLabel(QWidget* parent = nullptr);

    void setFullText(const QString& text);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quor
