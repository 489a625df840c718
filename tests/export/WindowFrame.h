#pragma once

#include "core/Biorhythm.h"
#include "core/Clock.h"
#include "storage/BiorhythmFile.h"

#include "support/RecordingFrame.h"
#include "support/ScriptedDialogs.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

namespace quor::test {

using namespace Qt::StringLiterals;

/// A recording frame with a window that can be disabled.
class WindowFrame : public RecordingFrame {
  public:
    [[nodiscard]] QWidget* widget() override { return &window; }
    QWidget window;
};

/// A person to export, a folder to export into, and the door of the boxes.
struct ExportFixture {
    ExportFixture() {
        resetToStartUp(program);
        program.biorhythm.name = u"Maria Rossi"_s;
        program.biorhythm.birthDate = toDateValue(QDate(1981, 12, 25));
        program.biorhythm.calculationDate = toDateValue(QDate(2004, 3, 15));
        program.biorhythm.daysAtGraphStart = dayCountAtGraphStart(program.biorhythm);
        program.state.exportFolder = folder.path();
    }

    [[nodiscard]] QStringList files() const {
        return QDir(folder.path()).entryList(QDir::Files, QDir::Name);
    }

    QTemporaryDir folder;
    FixedClock clock{QDate(2026, 11, 21)};
    ScriptedDialogs dialogs;
    WindowFrame frame;
    Program program;
};

template<typename Widget> Widget* control(const QWidget& window, const QString& name) {
    auto* found = window.findChild<Widget*>(name);
    if (found == nullptr) {
        qFatal("no control %s", qPrintable(name));
    }
    return found;
}

} // namespace quor::test
