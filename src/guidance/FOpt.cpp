#include "guidance/FOpt.h"

#include <QPushButton>

#include <memory>

#include "ui_FOpt.h"

namespace quor {

FOpt::FOpt(Frame& frame, QWidget* parent)
    : ChildWindow(parent)
    , m_ui(std::make_unique<Ui::FOpt>()) {
    m_ui->setupUi(this);
    connect(m_ui->Command1, &QPushButton::clicked, this,
            [&frame] { frame.run(Command::graphOptions); });
    connect(m_ui->Command2, &QPushButton::clicked, this,
            [&frame] { frame.run(Command::weeklyOptions); });
    connect(m_ui->Command3, &QPushButton::clicked, this, &FOpt::closeWindow);
}

FOpt::~FOpt() = default;

} // namespace quor
