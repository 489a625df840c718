#pragma once

#include "views/analysis/DayState.h"

#include <QIcon>
#include <QWidget>

namespace quor {

/// The arrow that says whether a value has risen or fallen since the day before.
class TrendArrow : public QWidget {
    Q_OBJECT

  public:
    explicit TrendArrow(QWidget* parent = nullptr);

    /// @param item whose arrow it is; for those who do not see it
    void setTrend(StateItem item, Trend trend);
    [[nodiscard]] Trend trend() const { return m_trend; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Trend m_trend = Trend::rising;
    QIcon m_picture;
};

} // namespace quor
