#include "export/FStampaBio.h"

#include "export/LeftProducts.h"
#include "export/WebBrowser.h"
#include "toolkit/Messages.h"
#include "toolkit/ShowHelp.h"

#include <QSignalBlocker>
#include <QUrl>

#include "ui_FStampaBio.h"

using namespace Qt::StringLiterals;

namespace quor {

FStampaBio::FStampaBio(Program& program, Frame& frame, PrintMode mode, QWidget* parent)
    : QDialog(parent)
    , m_program(program)
    , m_frame(frame)
    , m_mode(mode)
    , m_ui(std::make_unique<Ui::FStampaBio>()) {
    setAttribute(Qt::WA_DeleteOnClose);
    m_ui->setupUi(this);
    m_ui->Command1->setText(mode == PrintMode::print ? u"&Stampa"_s : u"&Anteprima di stampa"_s);
    for (QCheckBox* check : {m_ui->Check1, m_ui->Check2, m_ui->Check3}) {
        check->setChecked(true);
    }
    connect(m_ui->Check1, &QCheckBox::toggled, this, [this](bool page) {
        if (!page) {
            leaveOut();
        }
    });
    connect(m_ui->Check2, &QCheckBox::toggled, this, &FStampaBio::choose);
    connect(m_ui->Check3, &QCheckBox::toggled, this, &FStampaBio::choose);
    connect(m_ui->Command1, &QPushButton::clicked, this, &FStampaBio::start);
    connect(m_ui->Command2, &QPushButton::clicked, this, &FStampaBio::reject);
    connect(m_ui->Command3, &QPushButton::clicked, this,
            [this] { ShowHelp(this, helpPath(u"4stampa.html"_s)); });
    connect(m_ui->WebBrowser1, &WebBrowser::documentComplete, this, &FStampaBio::documentComplete);
    connect(m_ui->WebBrowser1, &WebBrowser::navigationFailed, this, [this](const QString& reason) {
        m_pending = false;
        release();
        showError(this, reason, u"Errore"_s);
    });
}

FStampaBio::~FStampaBio() = default;

void FStampaBio::done(int result) {
    delete m_runner;
    m_ui->WebBrowser1->stop();
    QDialog::done(result);
}

/// Without the page there is nothing that its sections could stand in.
void FStampaBio::leaveOut() {
    for (QCheckBox* section : {m_ui->Check2, m_ui->Check3}) {
        const QSignalBlocker both(section);
        section->setChecked(false);
    }
    choose();
}

void FStampaBio::choose() {
    const bool pictures = m_ui->Check2->isChecked() || m_ui->Check3->isChecked();
    m_ui->Check1->setChecked(pictures);
    m_ui->Check1->setEnabled(pictures);
}

SummarySections FStampaBio::sections() const {
    return {.graph = m_ui->Check2->isChecked(), .weekly = m_ui->Check3->isChecked()};
}

void FStampaBio::start() {
    const QString prefix =
        pathPrefix(m_program.state.exportFolder, exportPrefix(m_program, PageVariant::print));
    const LeftProducts left =
        leftProducts(m_program.biorhythm, sections(), prefix, PageVariant::print);
    if (left == LeftProducts::missing && !m_ui->Check1->isChecked()) {
        showError(this,
                  u"Non c'è niente da stampare: la pagina non esiste ancora.\n"
                  "Seleziona cosa vuoi stampare!"_s,
                  u"Errore"_s);
        return;
    }
    Answer exportAgain = left == LeftProducts::missing ? Answer::yes : Answer::no;
    if (left == LeftProducts::outdated) {
        exportAgain = askOrCancel(
            this, u"Le pagine già esportate non corrispondono ai dati attuali. Rifarle?"_s,
            u"Conferma"_s);
    }
    if (exportAgain == Answer::cancel) {
        return;
    }
    // The window itself stays enabled in Qt's sense, so that its close box goes on working; nothing
    // in it can be used.
    m_ui->Controls->setEnabled(false);
    if (exportAgain == Answer::yes) {
        exportPage();
    } else {
        load(summaryFile(prefix));
    }
}

/// Where no section is chosen the page holds the person's data alone.
void FStampaBio::exportPage() {
    m_runner = new ExportRunner(m_program, m_frame,
                                {.graph = sections().graph,
                                 .weekly = sections().weekly,
                                 .page = true,
                                 .variant = PageVariant::print,
                                 .scope = ExportScope::person,
                                 .folder = m_program.state.exportFolder,
                                 .pictureSize = exportPictureSize(PageVariant::print, *this)},
                                this);
    m_runner->setClosesProgress(true);
    connect(m_runner, &ExportRunner::finished, this, [this](const QString& summaryPath) {
        m_runner->deleteLater();
        load(summaryPath);
    });
}

void FStampaBio::load(const QString& summaryPath) {
    if (summaryPath == u"NULL"_s) {
        release();
        showWarning(this,
                    u"La stampa è stata interrotta.\nSono stati rilevati degli errori durante "
                    "l'esportazione."_s,
                    u"Avviso"_s);
        return;
    }
    m_pending = true;
    m_ui->WebBrowser1->navigate(QUrl::fromLocalFile(summaryPath));
}

void FStampaBio::documentComplete() {
    if (!m_pending) {
        return;
    }
    m_pending = false;
    if (m_mode == PrintMode::print) {
        m_ui->WebBrowser1->print();
    } else {
        m_ui->WebBrowser1->printPreview();
    }
    release();
}

void FStampaBio::release() {
    m_ui->Controls->setEnabled(true);
    m_ui->Command1->setFocus(); // a disabled control has lost it
}

} // namespace quor
