#include "shell/FIns.h"

#include "core/Clock.h"
#include "core/DateEntry.h"
#include "system/SystemOperations.h"
#include "toolkit/Messages.h"
#include "toolkit/ShowHelp.h"

#include "ui_FIns.h"

using namespace Qt::StringLiterals;

namespace quor {

FIns::FIns(Program& program, Frame& frame, QWidget* parent)
    : QDialog(parent)
    , m_program(program)
    , m_frame(frame)
    , m_ui(std::make_unique<Ui::FIns>()) {
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->setupUi(this);

    Biorhythm& biorhythm = m_program.biorhythm;
    const auto bind = [this](QCheckBox* check, bool& flag) {
        check->setChecked(flag);
        connect(check, &QCheckBox::toggled, this, [&flag](bool checked) { flag = checked; });
    };
    bind(m_ui->Check1, biorhythm.openGraph);
    bind(m_ui->Check4, biorhythm.openWeekly);
    bind(m_ui->Check2, biorhythm.openStatistics);
    bind(m_ui->Check3, biorhythm.openForecasts);

    // Sizes that follow the font: a whole date in its field, and every line of the explanation.
    constexpr int explanationWidth = 60; // characters
    const QFontMetrics metrics(font());
    m_ui->Text2->setMinimumWidth(metrics.horizontalAdvance(u"00/00/00000"_s) + metrics.height());
    const int width = explanationWidth * metrics.averageCharWidth();
    m_ui->LabelOptions->setMinimumSize(width, m_ui->LabelOptions->heightForWidth(width));

    const bool hasDate = biorhythm.calculationDate != 0;
    m_ui->Text2->setText(shortDate(hasDate ? biorhythm.calculationDate : today()));

    connect(m_ui->Command1, &QPushButton::clicked, this,
            [this] { m_ui->Text2->setText(shortDate(today())); });
    connect(m_ui->Command2, &QPushButton::clicked, this, &FIns::accept);
    connect(m_ui->Command3, &QPushButton::clicked, this, &FIns::reject);
    connect(m_ui->Command4, &QPushButton::clicked, this,
            [this] { ShowHelp(this, helpPath(u"1nuovo.html"_s)); });
}

FIns::~FIns() = default;

void FIns::accept() {
    const auto entry =
        acceptBiorhythmEntry(m_ui->Text3->text(), m_ui->Text1->text(), m_ui->Text2->text());
    if (!entry) {
        showError(
            this,
            u"Nome non presente o formato date errato. Possibili date sono 25/12/1981 o 13 Nov "
            "1945 o 05-06-85"_s,
            u"Errore"_s);
        return;
    }
    if (m_program.state.systemOpen && !canAddMember(this, m_program, entry->name)) {
        m_ui->Text3->setFocus();
        m_ui->Text3->selectAll();
        return;
    }
    m_program.biorhythm.birthDate = entry->birthDate;
    m_program.biorhythm.calculationDate = entry->calculationDate;
    m_program.biorhythm.name = entry->name;
    m_program.state.modified = true;
    m_frame.applyBiorhythm();
    if (m_program.state.guidedProcedureActive != 0) {
        m_program.state.guidedStepDone = true;
    }
    QDialog::accept();
}

void FIns::reject() {
    const AppState& state = m_program.state;
    if (state.guidedProcedureActive != 0 && !state.guidedStepDone) {
        return;
    }
    QDialog::reject();
}

} // namespace quor
