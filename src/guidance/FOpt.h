#pragma once

#include "toolkit/ChildWindow.h"
#include "toolkit/Frame.h"

#include <memory>

namespace quor {

namespace Ui {
class FOpt;
}

/// The options window: it only opens the two real option dialogs.
class FOpt : public ChildWindow {
    Q_OBJECT

  public:
    explicit FOpt(Frame& frame, QWidget* parent = nullptr);
    ~FOpt() override;
    FOpt(const FOpt&) = delete;
    FOpt& operator=(const FOpt&) = delete;
    FOpt(FOpt&&) = delete;
    FOpt& operator=(FOpt&&) = delete;

  private:
    std::unique_ptr<Ui::FOpt> m_ui;
};

} // namespace quor
