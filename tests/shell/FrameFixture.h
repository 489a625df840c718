#pragma once

#include "core/Clock.h"
#include "shell/MDIForm1.h"
#include "storage/BiorhythmFile.h"

#include "support/Hermetic.h"
#include "support/ScriptedDialogs.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSignalSpy>
#include <QStatusBar>
#include <QToolBar>

namespace quor::test {

using namespace Qt::StringLiterals;

inline const QString& closeQuestion() {
    static const QString text =
        u"Questo comporterà la chiusura del bioritmo di Maria Rossi. Si desidera continuare ugualmente?"_s;
    return text;
}

inline const QString& saveQuestion() {
    static const QString text =
        u"Sono presenti dati non salvati. Si desidera salvare prima di chiudere il bioritmo di Maria Rossi ?"_s;
    return text;
}

inline const QString& bioFilter() {
    static const QString text = u"Bioritmic Files (*.bio) | *.bio"_s;
    return text;
}

/// What programs remember from one run to the next lies in a folder of the test's own.
class OwnStateHome {
  public:
    /// @param path of a folder that several runs share; else one for this one
    explicit OwnStateHome(const QString& path = {}) {
        qputenv(name, QFile::encodeName(path.isEmpty() ? m_folder.path() : path));
    }
    ~OwnStateHome() { qputenv(name, m_before); }
    OwnStateHome(const OwnStateHome&) = delete;
    OwnStateHome& operator=(const OwnStateHome&) = delete;
    OwnStateHome(OwnStateHome&&) = delete;
    OwnStateHome& operator=(OwnStateHome&&) = delete;

  private:
    static constexpr const char* name = "XDG_STATE_HOME";
    QByteArray m_before = qgetenv(name);
    QTemporaryDir m_folder;
};

/// The frame in a program folder of its own, with no memory of other frames, on a fixed day, with
/// scripted boxes.
class FrameFixture {
  public:
    /// @param state where several runs of the program remember; else it has no memory of others
    explicit FrameFixture(const QString& state = {})
        : stateHome(state)
        , frame(program, folder.path())
        , ended(&frame, &MDIForm1::ended) {
        frame.show();
    }

    /// The file of a person, as the program writes it.
    [[nodiscard]] QString write(const QString& name, QDate calculation = {2004, 3, 15}) const {
        Program other;
        resetToStartUp(other);
        other.biorhythm.name = name;
        other.biorhythm.birthDate = toDateValue(QDate(1981, 12, 25));
        other.biorhythm.calculationDate = toDateValue(calculation);
        QString path = folder.filePath(name + u".bio"_s);
        if (saveBiorhythmFile(path, other)) {
            qFatal("cannot write the test's own file");
        }
        return path;
    }

    /// Makes a person current as the dialog for a new biorhythm does.
    void enter(const QString& name = u"Maria Rossi"_s) {
        Biorhythm& biorhythm = program.biorhythm;
        biorhythm.name = name;
        biorhythm.birthDate = toDateValue(QDate(1981, 12, 25));
        biorhythm.calculationDate = toDateValue(QDate(2004, 3, 15));
        program.state.modified = true;
        frame.applyBiorhythm();
    }

    void expectClosing(Answer close) {
        dialogs.expectQuestion(u"Conferma"_s, closeQuestion(), close);
    }
    void expectSaving(Answer save) { dialogs.expectQuestion(u"Conferma"_s, saveQuestion(), save); }
    void expectFile(FileMode mode, const QString& path) {
        dialogs.expectFile(mode, mode == FileMode::open ? u"Apri"_s : u"Salva"_s, bioFilter(),
                           folder.filePath(u"UserFiles"_s), path);
    }
    void expectSaved() { dialogs.expectBox(u"Ok"_s, u"File salvato"_s); }
    void expectUpdate(Answer answer) {
        dialogs.expectQuestion(
            u"Aggiornare?"_s,
            u"La data di calcolo è diversa da quella di oggi. Si desidera aggiornarla?"_s, answer);
    }

    [[nodiscard]] QAction* action(const QString& name) const {
        return frame.findChild<QAction*>(name);
    }
    [[nodiscard]] QStringList panels() const {
        QStringList texts;
        for (const QLabel* label : frame.statusBar()->findChildren<QLabel*>()) {
            texts << label->text();
        }
        return texts;
    }
    /// A dialog that is open, by its name.
    [[nodiscard]] QDialog* dialog(const QString& name) const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return frame.findChild<QDialog*>(name);
    }
    [[nodiscard]] QMdiArea* area() const { return frame.findChild<QMdiArea*>(); }
    /// Titles of the windows inside the frame.
    [[nodiscard]] QStringList children() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QStringList titles;
        for (const QMdiSubWindow* window : area()->subWindowList()) {
            titles << window->windowTitle();
        }
        return titles;
    }
    /// Positions of the toolbar's disabled buttons.
    [[nodiscard]] QList<int> disabledTools() const {
        QList<int> positions;
        const auto tools = frame.findChild<QToolBar*>(u"Toolbar1"_s)->actions();
        for (qsizetype i = 0; i < tools.size(); ++i) {
            if (!tools[i]->isSeparator() && !tools[i]->isEnabled()) {
                positions << static_cast<int>(i) + 1;
            }
        }
        return positions;
    }
    [[nodiscard]] QStringList disabledCommands() const {
        QStringList names;
        for (const CommandInfo& info : commandTable()) {
            if (!action(QString::fromLatin1(info.name))->isEnabled()) {
                names << QString::fromLatin1(info.name);
            }
        }
        return names;
    }

    OwnStateHome stateHome;
    QTemporaryDir folder;
    FixedClock clock{QDate(2026, 11, 21)};
    ScriptedDialogs dialogs;
    Program program;
    MDIForm1 frame;
    QSignalSpy ended;
};

} // namespace quor::test
