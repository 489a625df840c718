#pragma once

#include "toolkit/Drawing.h"

#include <QPixmap>
#include <QWidget>

namespace quor {

/// A sheet of white paper that shows a `Drawing`, sharp at any device pixel ratio. The drawing is
/// made anew by its owner when the box is resized.
///
/// The tab key reaches it, so that a screen reader can say what it shows: its owner gives it an
/// accessible description and keeps that up to date. A frame shows that it has the keyboard.
class PictureBox : public QWidget {
    Q_OBJECT

  public:
    explicit PictureBox(QWidget* parent = nullptr);

    [[nodiscard]] const Drawing& drawing() const { return m_drawing; }
    void setDrawing(Drawing drawing);

    /// Height in pixels of a line of text in the picture's font.
    [[nodiscard]] int textHeight() const;
    /// Width in pixels of a text in the picture's font, or in its bold cut.
    [[nodiscard]] int textWidth(const QString& text, bool bold = false) const;

  signals:
    void resized();
    /// A mouse button went down at a point of the picture.
    void pressed(Qt::MouseButton button, QPoint position);
    /// The picture's menu was asked for with the keyboard: the menu key or Shift+F10.
    void menuRequested();

  protected:
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    Drawing m_drawing;
    QPixmap m_sheet; ///< the painted drawing; null until it is needed
};

} // namespace quor
