#include "views/analysis/DayStateWindow.h"

#include "toolkit/ShowHelp.h"

#include "ui_DayStateWindow.h"

using namespace Qt::StringLiterals;

namespace quor {

DayStateWindow::DayStateWindow(const DayState& state, const Biorhythm& record, QWidget* parent)
    : ChildWindow(parent)
    , m_ui(std::make_unique<Ui::DayStateWindow>()) {
    m_ui->setupUi(this);
    const std::array boxes{m_ui->Text2, m_ui->Text3, m_ui->Text4, m_ui->Text5};
    for (const StateItem item : stateItems) {
        boxes.at(static_cast<std::size_t>(item))
            ->setValue(QString::number(shownValue(state.value(item))));
    }
    m_ui->Bars->setState(state, graphOptions(record).colours);
    connect(m_ui->Command1, &QPushButton::clicked, this, &DayStateWindow::closeWindow);
    connect(m_ui->Command2, &QPushButton::clicked, this,
            [this] { ShowHelp(this, helpPath(u"2stato.html"_s)); });
    m_ui->Command1->setFocus();
}

DayStateWindow::~DayStateWindow() = default;

} // namespace quor
