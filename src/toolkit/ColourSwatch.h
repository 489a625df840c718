#pragma once

#include "core/Biorhythm.h"

#include <QAbstractButton>

namespace quor {

/// A patch of colour that can be clicked, or pressed with the keyboard, to choose another one.
class ColourSwatch : public QAbstractButton {
    Q_OBJECT

  public:
    explicit ColourSwatch(QWidget* parent = nullptr);

    /// 0x00BBGGRR.
    [[nodiscard]] Colour colour() const { return m_colour; }
    void setColour(Colour colour);

    /// Opens the colour dialog; a cancelled one leaves the colour as it is.
    void choose();

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    /// Enter presses it, as it does its neighbours that are push buttons.
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    Colour m_colour = 0;
};

} // namespace quor
