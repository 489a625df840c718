// The commands of the menu of biorhythms that make, open, save and close one.

#include "shell/MDIForm1.h"

#include "core/Clock.h"
#include "guidance/FOpt.h"
#include "guidance/FProcGuid.h"
#include "shell/FIns.h"
#include "shell/RecentFiles.h"
#include "storage/BiorhythmFile.h"
#include "system/FProj.h"
#include "system/SystemOperations.h"
#include "toolkit/CalculationDate.h"
#include "toolkit/FileDialogs.h"
#include "toolkit/Messages.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

QString biorhythmFilter() {
    return u"Bioritmic Files (*.bio) | *.bio"_s;
}

} // namespace

/// Runs the close command where a biorhythm is present. False when the user keeps it.
bool MDIForm1::closedCurrentBiorhythm() {
    if (m_program.state.systemOpen || !m_program.biorhythm.isPresent()) {
        return true;
    }
    askToCloseBiorhythm();
    return m_closeAnswer == Answer::yes;
}

void MDIForm1::newBiorhythm() {
    if (!closedCurrent()) {
        return;
    }
    resetWork(m_program); // the day may have changed since the start or the last closing
    if (m_program.state.guidedProcedureActive != 0) {
        showBiorhythmEntry(); // a tour can be ended, by its window, beside it
        return;
    }
    ensureBiorhythmEntry()->open();
}

void MDIForm1::showBiorhythmEntry() {
    ensureBiorhythmEntry()->show();
    m_newBiorhythm->raise();
    m_newBiorhythm->activateWindow();
}

/// The dialog for a new biorhythm; there is one at a time.
FIns* MDIForm1::ensureBiorhythmEntry() {
    if (m_newBiorhythm == nullptr) {
        m_newBiorhythm = new FIns(m_program, *this, this);
        connect(m_newBiorhythm, &QDialog::finished, this, [this] {
            m_newBiorhythm = nullptr; // it goes, and the next one may be wanted at once
            if (m_tour != nullptr) {
                m_tour->entryFinished();
            }
        });
    }
    return m_newBiorhythm;
}

void MDIForm1::openBiorhythm() {
    if (!closedCurrentBiorhythm()) {
        return;
    }
    const QString path =
        askFileToOpen(this, u"Apri"_s, biorhythmFilter(), m_program.state.userFolder);
    if (!path.isEmpty()) {
        loadBiorhythmFile(path);
    }
}

void MDIForm1::loadBiorhythmFile(const QString& path) {
    Program read;
    if (readFile(FileKind::biorhythm, path, read)) {
        takeBiorhythmFile(read);
    }
}

/// Makes the person of a file current, or a member of the open system.
void MDIForm1::takeBiorhythmFile(const Program& read) {
    const bool isMember = m_program.state.systemOpen;
    if (isMember && !canAddMember(this, m_program, read.biorhythm.name)) {
        return;
    }
    takeBiorhythm(read, m_program);
    recentFiles(FileKind::biorhythm)->add(read.state.filePath);
    if (!isMember) {
        offerToday();
    }
    applyBiorhythm();
}

/// Asks whether a calculation date that a file brought, and that is not today, is to become today.
void MDIForm1::offerToday() {
    DateValue& calculationDate = m_program.biorhythm.calculationDate;
    if (dayNumber(calculationDate) != dayNumber(today()) &&
        ask(this, u"La data di calcolo è diversa da quella di oggi. Si desidera aggiornarla?"_s,
            u"Aggiornare?"_s) == Answer::yes) {
        calculationDate = today();
        m_program.state.modified = true;
    }
}

void MDIForm1::saveBiorhythm() {
    const QString path = m_program.state.filePath;
    if (path.isEmpty()) {
        saveBiorhythmAs();
        return;
    }
    if (const auto failure = saveBiorhythmFile(path, m_program)) {
        showError(this,
                  u"Errore imprevisto: il file \"%1\" non è stato salvato.\n%2"_s.arg(
                      QDir::toNativeSeparators(path), *failure),
                  u"Errore"_s);
        return;
    }
    recentFiles(FileKind::biorhythm)->add(path);
    showInformation(this, u"File salvato"_s, u"Ok"_s);
}

void MDIForm1::saveBiorhythmAs() {
    const QString path =
        askFileToSave(this, u"Salva"_s, biorhythmFilter(), m_program.state.userFolder);
    if (path.isEmpty()) {
        return;
    }
    // A failure is not reported here, but `modified` then stays set: closing asks again.
    if (!saveBiorhythmFile(path, m_program)) {
        recentFiles(FileKind::biorhythm)->add(path);
    }
    showInformation(this, u"File salvato"_s, u"Ok"_s);
}

void MDIForm1::askToCloseBiorhythm() {
    const QString& name = m_program.biorhythm.name;
    m_closeAnswer = ask(this,
                        u"Questo comporterà la chiusura del bioritmo di %1. Si desidera continuare "
                        "ugualmente?"_s.arg(name),
                        u"Conferma"_s);
    if (m_closeAnswer == Answer::no) {
        return;
    }
    if (m_program.state.modified &&
        ask(this,
            u"Sono presenti dati non salvati. Si desidera salvare prima di chiudere il bioritmo "
            "di %1 ?"_s.arg(name),
            u"Conferma"_s) == Answer::yes) {
        run(Command::mnuSalvaBioritmo);
        if (m_program.state.modified) {
            // Not saved after all, by a fault or because the file dialog was cancelled: whoever
            // wanted to keep the data keeps the biorhythm.
            m_closeAnswer = Answer::no;
            return;
        }
    }
    closeBiorhythm();
}

void MDIForm1::closeBiorhythm() {
    for (const auto panel : {StatusPanel::person, StatusPanel::birth, StatusPanel::calculation}) {
        setStatusPanel(panel, {});
    }
    for (const CommandInfo& info : commandTable()) {
        if (info.needs == Needs::biorhythm) {
            setCommandEnabled(info.command, false);
        }
    }
    for (const ToolInfo& info : toolTable()) {
        if (info.startsDisabled) {
            setToolEnabled(info.position, false);
        }
    }
    m_program.state.filePath.clear();
    closeViews();
    if (m_options != nullptr) {
        m_options->closeWindow();
    }
    closeExportAndPrint();
    m_program.biorhythm.birthDate = 0;
    m_program.biorhythm.name.clear();
    resetWork(m_program);
}

void MDIForm1::applyBiorhythm() {
    Biorhythm& biorhythm = m_program.biorhythm;
    biorhythm.daysAtGraphStart = dayCountAtGraphStart(biorhythm);
    if (m_program.state.systemOpen) {
        ensureSystemWindow()->addMember(biorhythm.name);
        return;
    }
    setStatusPanel(StatusPanel::person, u"Nome: "_s + biorhythm.name);
    setStatusPanel(StatusPanel::birth, u"Data di nascita: "_s + shortDate(biorhythm.birthDate));
    showCalculationDate(*this, biorhythm.calculationDate);
    for (const CommandInfo& info : commandTable()) {
        if (info.needs == Needs::biorhythm) {
            setCommandEnabled(info.command, true);
        }
    }
    for (const ToolInfo& info : toolTable()) {
        if (info.enabledByBiorhythm) {
            setToolEnabled(info.position, true);
        }
    }
    if (biorhythm.openGraph) {
        openGraph();
    }
    if (biorhythm.openWeekly) {
        openWeekly(u"Grafico settimanale di "_s + biorhythm.name);
    }
    if (biorhythm.openStatistics) {
        openDayState(u"Statistiche di "_s + biorhythm.name);
    }
    if (biorhythm.openForecasts) {
        openForecasts();
    }
}

void MDIForm1::moveCalculationDate() {
    const auto date = askCalculationDate(
        this, u"Inserire la data di calcolo desiderata.\n"
              "Un trucco: per la data di oggi, inserire semplicemente la parola 'oggi'."_s);
    if (!date) {
        return;
    }
    closeViews();
    Biorhythm& biorhythm = m_program.biorhythm;
    biorhythm.calculationDate = *date;
    showCalculationDate(*this, *date);
    showInformation(this, u"La nuova data di calcolo è stata inserita."_s,
                    u"Operazione eseguita."_s);
    biorhythm.daysAtGraphStart = dayCountAtGraphStart(biorhythm);
    m_program.state.modified = true;
}

} // namespace quor
