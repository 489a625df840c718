#include "system/TestSystemOperations.h"

#include "system/SystemFixture.h"
#include "system/SystemOperations.h"

#include "support/RecordingFrame.h"

using namespace Qt::StringLiterals;

namespace quor::test {

void TestSystemOperations::opening() {
    Program program = programWith({});
    RecordingFrame frame;
    openSystem(program, frame);
    QVERIFY(program.state.systemOpen);
    QCOMPARE(frame.calls,
             (QStringList{u"menu mnuBioritmi off"_s, u"command mnuSalvaSistema on"_s,
                          u"command mnuSalvaSistemaConNome on"_s, u"command mnuChiudiSistema on"_s,
                          u"command mnuOpzioniSistema on"_s, u"command mnuEsportaSistema on"_s,
                          u"tool 3 on"_s, u"tool 14 on"_s, u"tool 16 on"_s, u"tool 5 off"_s,
                          u"tool 6 off"_s}));
}

void TestSystemOperations::closing() {
    Program program = programWith({u"Anna"_s, u"Bruno"_s});
    AppState& state = program.state;
    state.systemOpen = true;
    state.systemFilePath = u"/x/famiglia.brs"_s;
    RecordingFrame frame;
    closeSystem(program, frame);
    QCOMPARE(frame.calls,
             (QStringList{u"panel 1 "_s, u"panel 2 "_s, u"panel 3 "_s, u"menu mnuBioritmi on"_s,
                          u"command mnuSalvaSistema off"_s, u"command mnuSalvaSistemaConNome off"_s,
                          u"command mnuChiudiSistema off"_s, u"command mnuOpzioniSistema off"_s,
                          u"command mnuEsportaSistema off"_s, u"tool 3 off"_s, u"tool 14 off"_s,
                          u"tool 16 off"_s, u"tool 5 on"_s, u"tool 6 on"_s, u"close biorhythm"_s}));
    QVERIFY(!state.systemOpen);
    QCOMPARE(state.systemCount, std::int16_t{0});
    QCOMPARE(state.systemMembers, std::vector<SystemMember>(1));
    QVERIFY(state.systemFilePath.isEmpty());
    QCOMPARE(findSystemMember(state, u"Anna"_s), std::int16_t{-1});
    QCOMPARE(findSystemMember(state, QString()), std::int16_t{-1});
}

void TestSystemOperations::status() {
    Program program = programWith({u"Anna"_s, u"Bruno"_s, u"Carla"_s});
    program.state.systemOpen = true;
    program.state.systemFilePath = u"/x/famiglia.brs"_s;
    RecordingFrame frame;
    showSystemStatus(program, frame);
    QCOMPARE(frame.calls,
             (QStringList{u"panel 1 Nome: /x/famiglia.brs"_s, u"panel 2 3 bioritmi nel sistema"_s,
                          u"panel 3 Data in esame per il calcolo: "_s +
                              shortDate(program.biorhythm.calculationDate)}));
}

void TestSystemOperations::noStatusWithoutASystem() {
    const Program program = programWith({u"Anna"_s});
    RecordingFrame frame;
    showSystemStatus(program, frame);
    QVERIFY(frame.calls.isEmpty());
}

} // namespace quor::test
