#include "export/FEsp.h"

#include "ui_FEsp.h"

using namespace Qt::StringLiterals;

namespace quor {

FEsp::FEsp(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::FEsp>()) {
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->setupUi(this);
    connect(m_ui->Command1, &QPushButton::clicked, this, &FEsp::reject);
}

FEsp::~FEsp() = default;

void FEsp::startRun(int steps, const QString& caption) {
    m_ui->Label1->setText(caption);
    if (steps > 0) {
        m_ui->ProgressBar1->setMaximum(steps);
    }
    m_ui->ProgressBar1->setValue(0);
    m_ui->Command1->setEnabled(false);
}

void FEsp::beginProduct(const QString& caption) {
    m_ui->Label1->setText(caption);
}

void FEsp::endProduct() {
    m_ui->Label1->clear();
    m_ui->ProgressBar1->setValue(m_ui->ProgressBar1->value() + 1);
}

void FEsp::finishRun() {
    m_ui->Label1->setText(u"Esportazioni completate"_s);
    m_ui->Command1->setEnabled(true);
    m_ui->Command1->setFocus();
}

void FEsp::reject() {
    if (m_ui->Command1->isEnabled()) {
        QDialog::reject();
    }
}

} // namespace quor
