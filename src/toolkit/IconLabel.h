#pragma once

#include <QIcon>
#include <QLabel>

namespace quor {

/// Shows a picture, sharp and in the palette of the moment whatever these become.
class IconLabel : public QLabel {
    Q_OBJECT

  public:
    explicit IconLabel(QWidget* parent = nullptr);

    /// @param size in pixels
    void setIcon(const QIcon& icon, QSize size);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QIcon m_icon;
    QSize m_size;
};

} // namespace quor
