#include "views/graph/FGrOpt.h"

#include "toolkit/ItemChoice.h"
#include "toolkit/Messages.h"
#include "toolkit/ShowHelp.h"
#include "views/graph/DaysEntry.h"

#include "ui_FGrOpt.h"

using namespace Qt::StringLiterals;

namespace quor {

FGrOpt::FGrOpt(Program& program, QWidget* parent)
    : QDialog(parent)
    , m_program(program)
    , m_ui(std::make_unique<Ui::FGrOpt>()) {
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->setupUi(this);
    m_swatches = {m_ui->Picture1_0, m_ui->Picture1_1, m_ui->Picture1_2, m_ui->Picture1_3};
    for (std::size_t i = 0; i < m_swatches.size(); ++i) {
        connect(m_swatches.at(i), &ColourSwatch::clicked, this, [this, i] { chooseColour(i); });
    }
    connect(m_ui->Combo1, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index >= 0) {
            m_options.dayIndexPosition = static_cast<std::uint8_t>(index);
        }
    });
    chooseByTool(*m_ui->Combo1);
    connect(m_ui->Command1, &QPushButton::clicked, this, &FGrOpt::accept);
    connect(m_ui->Command2, &QPushButton::clicked, this, &FGrOpt::reject);
    connect(m_ui->Command3, &QPushButton::clicked, this, [this] {
        m_options = defaultGraphOptions();
        showState();
    });
    connect(m_ui->Command4, &QPushButton::clicked, this,
            [this] { ShowHelp(this, helpPath(u"2person.html"_s)); });
}

FGrOpt::~FGrOpt() = default;

void FGrOpt::initialise(const GraphOptions& options) {
    m_options = options;
    showState();
}

void FGrOpt::showState() {
    for (std::size_t i = 0; i < m_swatches.size(); ++i) {
        m_swatches.at(i)->setColour(m_options.colours.at(i));
    }
    m_ui->Text1->setText(QString::number(m_options.graphDaysAdjust + GRAPH_BASE_DAYS));
    // A byte from a damaged file may name no position; the list then shows none.
    const int position = m_options.dayIndexPosition;
    m_ui->Combo1->setCurrentIndex(position < m_ui->Combo1->count() ? position : -1);
}

void FGrOpt::chooseColour(std::size_t index) {
    ColourSwatch* swatch = m_swatches.at(index);
    swatch->choose();
    m_options.colours.at(index) = swatch->colour();
}

void FGrOpt::accept() {
    const auto days = parseDays(m_ui->Text1->text());
    if (!days) {
        showOverflow(this, u"Scrivere un numero di giorni da 1 a 32767."_s);
        m_ui->Text1->setFocus();
        m_ui->Text1->selectAll();
        return;
    }
    m_options.graphDaysAdjust = days->graphDaysAdjust;
    if (days->tooSmall) {
        showInformation(this,
                        u"Valore di giorni attorno alla data di calcolo troppo piccola.\n"
                        "Il valore sarà reimpostato ad 1"_s,
                        defaultTitle());
    }
    QDialog::accept();
    store();
}

void FGrOpt::store() {
    if (!m_program.state.systemOpen) {
        setGraphOptions(m_program.biorhythm, m_options);
        m_program.state.modified = true;
    }
    emit GraphOptionsChanged(m_options);
}

} // namespace quor
