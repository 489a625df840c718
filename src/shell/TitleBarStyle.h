#pragma once

#include <QProxyStyle>

namespace quor {

/// The style of the windows inside the frame: the desktop's, with title bars that are high enough
/// for large fonts.
class TitleBarStyle : public QProxyStyle {
    Q_OBJECT

  public:
    explicit TitleBarStyle(QObject* parent);

    /// The desktop's own title bars are too low for the font of the moment.
    [[nodiscard]] bool isNeeded() const;

    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
};

} // namespace quor
