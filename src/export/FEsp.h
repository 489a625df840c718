#pragma once

#include <QDialog>

#include <memory>

namespace quor {

namespace Ui {
class FEsp;
}

/// The progress of a run of exports. While a run goes on it cannot be closed.
class FEsp : public QDialog {
    Q_OBJECT

  public:
    explicit FEsp(QWidget* parent = nullptr);
    ~FEsp() override;
    FEsp(const FEsp&) = delete;
    FEsp& operator=(const FEsp&) = delete;
    FEsp(FEsp&&) = delete;
    FEsp& operator=(FEsp&&) = delete;

    /// @param steps products of the run, each one step of the bar
    void startRun(int steps, const QString& caption);
    /// What is being exported.
    void beginProduct(const QString& caption);
    /// That it has been attempted.
    void endProduct();
    void finishRun();

    /// Nothing while a run goes on.
    void reject() override;

  private:
    std::unique_ptr<Ui::FEsp> m_ui;
};

} // namespace quor
