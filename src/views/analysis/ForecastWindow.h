#pragma once

#include "toolkit/ChildWindow.h"
#include "views/analysis/Forecast.h"

#include <array>
#include <memory>

namespace quor {

namespace Ui {
class ForecastWindow;
}

/// A window that shows a forecast: date and days to wait of the next inversion, maximum and
/// minimum. What it shows is handed over when it is made and does not change.
class ForecastWindow : public ChildWindow {
    Q_OBJECT

  public:
    ~ForecastWindow() override;
    ForecastWindow(const ForecastWindow&) = delete;
    ForecastWindow& operator=(const ForecastWindow&) = delete;
    ForecastWindow(ForecastWindow&&) = delete;
    ForecastWindow& operator=(ForecastWindow&&) = delete;

  protected:
    /// @param rows inversion, maximum, minimum
    /// @param extreme what the labels name as the maximum; its negative is the minimum
    /// @param widestDate a date that is as wide as any in these boxes
    ForecastWindow(const std::array<ForecastRow, 3>& rows, int extreme, const QString& widestDate,
                   QWidget* parent);

  private:
    std::unique_ptr<Ui::ForecastWindow> m_ui;
};

} // namespace quor
