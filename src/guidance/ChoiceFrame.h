#pragma once

#include <QAbstractButton>

class QStyleOptionGroupBox;

namespace quor {

/// A group box with a caption that is one big button: a click on it or on anything inside it, Enter
/// and Space choose it.
class ChoiceFrame : public QAbstractButton {
    Q_OBJECT
    /// Looks like something to click, and lights up under the pointer.
    Q_PROPERTY(bool inviting MEMBER m_inviting)

  public:
    explicit ChoiceFrame(QWidget* parent = nullptr);

  protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] QStyleOptionGroupBox styleOption() const;
    void fitContents();

    bool m_inviting = true;
};

} // namespace quor
