#pragma once

#include <QLabel>

namespace quor {

/// A line that never widens its window, but shortens a text that does not fit and shows the whole
/// of it as its tooltip.
class ElidedLabel : public QLabel {
    Q_OBJECT

  public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    void setFullText(const QString& text);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quor
