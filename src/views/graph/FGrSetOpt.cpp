#include "views/graph/FGrSetOpt.h"

#include "toolkit/ShowHelp.h"

#include "ui_FGrSetOpt.h"

using namespace Qt::StringLiterals;

namespace quor {

FGrSetOpt::FGrSetOpt(Program& program, QWidget* parent)
    : QDialog(parent)
    , m_program(program)
    , m_ui(std::make_unique<Ui::FGrSetOpt>()) {
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->setupUi(this);
    m_swatches = {m_ui->Picture1_0, m_ui->Picture1_1, m_ui->Picture1_2};
    for (std::size_t i = 0; i < m_swatches.size(); ++i) {
        connect(m_swatches.at(i), &ColourSwatch::clicked, this, [this, i] { chooseColour(i); });
    }
    connect(m_ui->Command1, &QPushButton::clicked, this, &FGrSetOpt::accept);
    connect(m_ui->Command2, &QPushButton::clicked, this, &FGrSetOpt::reject);
    connect(m_ui->Command3, &QPushButton::clicked, this,
            [this] { initialise(defaultWeeklyColours()); });
    connect(m_ui->Command4, &QPushButton::clicked, this,
            [this] { ShowHelp(this, helpPath(u"2persset.html"_s)); });
}

FGrSetOpt::~FGrSetOpt() = default;

void FGrSetOpt::initialise(const WeeklyColours& colours) {
    m_colours = colours;
    showState();
}

void FGrSetOpt::showState() {
    for (std::size_t i = 0; i < m_swatches.size(); ++i) {
        m_swatches.at(i)->setColour(m_colours.at(i));
    }
}

void FGrSetOpt::chooseColour(std::size_t index) {
    ColourSwatch* swatch = m_swatches.at(index);
    swatch->choose();
    m_colours.at(index) = swatch->colour();
}

void FGrSetOpt::accept() {
    QDialog::accept();
    if (!m_program.state.systemOpen) {
        setWeeklyColours(m_program.biorhythm, m_colours);
    }
    emit WeeklyOptionsChanged(m_colours);
}

} // namespace quor
