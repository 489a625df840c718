#include "views/analysis/ForecastWindow.h"

#include "toolkit/ShowHelp.h"

#include "ui_ForecastWindow.h"

using namespace Qt::StringLiterals;

namespace quor {

ForecastWindow::ForecastWindow(const std::array<ForecastRow, 3>& rows, int extreme,
                               const QString& widestDate, QWidget* parent)
    : ChildWindow(parent)
    , m_ui(std::make_unique<Ui::ForecastWindow>()) {
    m_ui->setupUi(this);
    for (QLabel* label : {m_ui->LabelMaximum, m_ui->LabelMinimum}) {
        label->setText(label->text().arg(extreme));
    }
    const std::array dateBoxes{m_ui->Text1, m_ui->Text2, m_ui->Text3};
    const std::array daysBoxes{m_ui->Text4, m_ui->Text5, m_ui->Text6};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        dateBoxes.at(i)->setWidestText(widestDate);
        dateBoxes.at(i)->setValue(rows.at(i).date);
        daysBoxes.at(i)->setValue(rows.at(i).days);
    }
    connect(m_ui->Command1, &QPushButton::clicked, this, &ForecastWindow::closeWindow);
    connect(m_ui->Command2, &QPushButton::clicked, this,
            [this] { ShowHelp(this, helpPath(u"2prev.html"_s)); });
    m_ui->Command1->setFocus();
}

ForecastWindow::~ForecastWindow() = default;

} // namespace quor
