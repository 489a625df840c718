#include "export/FEspBio.h"

#include "toolkit/ItemChoice.h"
#include "toolkit/LineText.h"
#include "toolkit/Messages.h"
#include "toolkit/ShowHelp.h"
#include "toolkit/ToolTipText.h"

#include "ui_FEspBio.h"

using namespace Qt::StringLiterals;

namespace quor {

FEspBio::FEspBio(Program& program, Frame& frame, QWidget* parent)
    : QDialog(parent)
    , m_program(program)
    , m_frame(frame)
    , m_ui(std::make_unique<Ui::FEspBio>()) {
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->setupUi(this);
    m_ui->Combo1->setCurrentIndex(-1);
    chooseByTool(*m_ui->Combo1);
    m_ui->List1->addItem(u"In attesa"_s);
    connect(m_ui->Check1, &QCheckBox::toggled, this, &FEspBio::choose);
    connect(m_ui->Check2, &QCheckBox::toggled, this, &FEspBio::choose);
    connect(m_ui->Command1, &QPushButton::clicked, this, &FEspBio::startRun);
    connect(m_ui->Command2, &QPushButton::clicked, this, &FEspBio::reject);
    connect(m_ui->Command3, &QPushButton::clicked, this,
            [this] { ShowHelp(this, helpPath(u"4esporta.html"_s)); });
    choose();
}

FEspBio::~FEspBio() = default;

void FEspBio::done(int result) {
    delete m_runner;
    QDialog::done(result);
}

/// A page is made of pictures: without one of them there is none.
void FEspBio::choose() {
    const bool pictures = m_ui->Check1->isChecked() || m_ui->Check2->isChecked();
    if (!pictures) {
        m_ui->Check3->setChecked(false);
    }
    m_ui->Check3->setEnabled(pictures);
}

void FEspBio::startRun() {
    const bool graph = m_ui->Check1->isChecked();
    const bool weekly = m_ui->Check2->isChecked();
    const bool page = m_ui->Check3->isChecked();
    const int type = m_ui->Combo1->currentIndex();
    if ((!graph && !weekly && !page) || type < 0) {
        showError(this, u"Seleziona cosa vuoi esportare ed il tipo di esportazione!"_s,
                  u"Errore"_s);
        return;
    }
    const auto variant = type == 0 ? PageVariant::screen : PageVariant::print;
    const auto scope =
        m_program.state.exportWholeSystem ? ExportScope::wholeSystem : ExportScope::person;
    setChoicesEnabled(false);
    m_runner = new ExportRunner(m_program, m_frame,
                                {.graph = graph,
                                 .weekly = weekly,
                                 .page = page,
                                 .variant = variant,
                                 .scope = scope,
                                 .folder = m_program.state.exportFolder,
                                 .pictureSize = exportPictureSize(variant, *this)},
                                this);
    connect(m_runner, &ExportRunner::logged, this, &FEspBio::log);
    connect(
        m_runner, &ExportRunner::finished, this,
        [this](const QString& /*summaryPath*/, const QString& errorText) { endRun(errorText); });
}

void FEspBio::endRun(const QString& errorText) {
    m_runner->deleteLater();
    setChoicesEnabled(true);
    if (!errorText.isEmpty()) {
        showWarning(this, errorText, defaultTitle());
    }
}

/// Closing stays possible during a run, and ends it.
void FEspBio::setChoicesEnabled(bool enabled) {
    m_ui->Choices->setEnabled(enabled);
    m_ui->Command1->setEnabled(enabled);
    if (enabled) {
        m_ui->Command1->setFocus(); // a disabled control has lost it
    }
}

/// A line too long for the window keeps its end, the result, and can be read whole in its tip.
void FEspBio::log(const QString& line) {
    auto* item = new QListWidgetItem(lineEnds(line), m_ui->List1);
    constexpr qsizetype longestTip = 4900; // more than the longest path
    item->setToolTip(toolTipText(endsOf(line, longestTip)));
    m_ui->List1->scrollToBottom();
}

} // namespace quor
