#pragma once

#include <QDialog>

#include <memory>

namespace quor {

namespace Ui {
class FAbout;
}

/// Says what the program is, in which version and under which licence.
class FAbout : public QDialog {
    Q_OBJECT

  public:
    /// @param version "1.0.0"
    explicit FAbout(const QString& version, QWidget* parent = nullptr);
    ~FAbout() override;
    FAbout(const FAbout&) = delete;
    FAbout& operator=(const FAbout&) = delete;
    FAbout(FAbout&&) = delete;
    FAbout& operator=(FAbout&&) = delete;

  private:
    std::unique_ptr<Ui::FAbout> m_ui;
};

} // namespace quor
