#pragma once

#include <QLineEdit>

namespace quor {

/// A box that shows a result: read-only, its text can be selected and copied. It is as wide as the
/// widest text that it may have to hold and is never squeezed below that.
class ValueBox : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(QString widestText READ widestText WRITE setWidestText)

  public:
    explicit ValueBox(QWidget* parent = nullptr);

    [[nodiscard]] QString widestText() const { return m_widestText; }
    void setWidestText(const QString& text);

    /// Shows the text from its beginning.
    void setValue(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  private:
    QString m_widestText;
};

} // namespace quor
