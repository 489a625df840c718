#include "toolkit/TestCommands.h"

#include "toolkit/Commands.h"

#include "support/Hermetic.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::test {

namespace {

/// "name caption" of each command of a menu, in order.
QStringList entries(Menu menu) {
    QStringList lines;
    for (const CommandInfo& info : commandTable()) {
        if (info.menu == menu) {
            lines << QString::fromLatin1(info.name) + u' ' + QString::fromUtf16(info.caption);
        }
    }
    return lines;
}

} // namespace

void TestCommands::menusHaveTheirCaptions() {
    QStringList lines;
    for (const MenuInfo& info : menuTable()) {
        lines << QString::fromLatin1(info.name) + u' ' + QString::fromUtf16(info.caption);
    }
    QCOMPARE(lines, (QStringList{u"mnuFile &File sistemi"_s, u"mnuBioritmi File &bioritmi"_s,
                                 u"mnuFinestre &Finestre"_s, u"mnuHelp &Help"_s}));
    QCOMPARE(entries(Menu::mnuFinestre),
             (QStringList{u"mnuWinArrHor Affiancate &Orizzontalmente"_s,
                          u"mnuWinArrVer Affiancate &Verticalmente"_s,
                          u"mnuWinArrCas In &Cascata"_s, u"mnuWinArrIco Riordina &Icone"_s}));
    QCOMPARE(entries(Menu::mnuHelp),
             (QStringList{u"mnuHlpCompleto &File di guida"_s,
                          u"mnuProcedureGuidate &Procedure guidate"_s, u"mnuAbout &About"_s}));
}

void TestCommands::theMenuOfSystems() {
    QCOMPARE(entries(Menu::mnuFile),
             (QStringList{
                 u"mnuNuovoSistema &Nuovo sistema"_s, u"mnuApriSistema &Apri sistema"_s,
                 u"mnuSalvaSistema &Salva sistema"_s, u"mnuSalvaSistemaConNome Salva c&on nome"_s,
                 u"mnuChiudiSistema C&hiudi Sistema"_s, u"mnuOpzioniSistema &Opzioni Sistema"_s,
                 u"mnuEsportaSistema Es&porta il sistema"_s, u"mnuEsci &Esci dal Quor"_s}));
}

void TestCommands::theMenuOfBiorhythms() {
    QCOMPARE(
        entries(Menu::mnuBioritmi),
        (QStringList{u"mnuCalcola &Calcola nuovo"_s, u"mnuApriBioritmo &Apri bioritmo"_s,
                     u"mnuSalvaBioritmo &Salva bioritmo"_s, u"mnuSalvaConNome Salva c&on nome"_s,
                     u"mnuChiudiBioritmo C&hiudi Bioritmo"_s,
                     u"mnuAnteprimaDiStampa A&nteprima di Stampa"_s, u"mnuStampa Sta&mpa"_s,
                     u"mnuGrafico &Grafico"_s, u"mnuStatoSettimanale Stato settimana&le"_s,
                     u"mnuStatoOdierno S&tato del giorno"_s, u"mnuPrevisioni P&revisioni"_s,
                     u"mnuSpostaDataDiCalcolo S&posta data di calcolo"_s,
                     u"mnuOpzioni &Opzioni bioritmo"_s, u"mnuEsporta &Esporta Informazioni"_s,
                     u"mnuEsci2 Esc&i da Quor"_s}));
}

void TestCommands::theToolbarHasTwentyPositions() {
    QStringList lines;
    for (const ToolInfo& info : toolTable()) {
        lines << (info.isSeparator()
                      ? u"-"_s
                      : QString::fromLatin1(info.key) + u'/' + QString::fromUtf16(info.toolTip) +
                            u'/' + QString::fromLatin1(commandInfo(info.command).name));
    }
    QCOMPARE(lines,
             (QStringList{u"NuovoSistema/Calcola un nuovo sistema/mnuNuovoSistema"_s,
                          u"ApriSistema/Apre un sistema/mnuApriSistema"_s,
                          u"SalvaSistema/Salva il sistema/mnuSalvaSistema"_s,
                          u"-"_s,
                          u"NuovoBioritmo/Calcola un nuovo Bioritmo/mnuCalcola"_s,
                          u"ApriBioritmo/Apre un bioritmo/mnuApriBioritmo"_s,
                          u"SalvaBioritmo/Salva il bioritmo/mnuSalvaBioritmo"_s,
                          u"-"_s,
                          u"Grafico/Apre la finestra Grafico/mnuGrafico"_s,
                          u"Settimana/Apre la finestra Grafico settimanale/mnuStatoSettimanale"_s,
                          u"Statistica/Apre la finestra Statistiche/mnuStatoOdierno"_s,
                          u"Previsione/Apre la finestra Previsioni/mnuPrevisioni"_s,
                          u"-"_s,
                          u"Opzioni/Opzioni/mnuOpzioni"_s,
                          u"-"_s,
                          u"Esporta/Esporta informazioni/mnuEsporta"_s,
                          u"-"_s,
                          u"Stampa/Stampa/mnuStampa"_s,
                          u"-"_s,
                          u"Aiuto/File di guida/mnuHlpCompleto"_s}));
}

void TestCommands::whatNeedsABiorhythm() {
    QList<int> startDisabled;
    QList<int> enabledByBiorhythm;
    for (const ToolInfo& info : toolTable()) {
        if (info.startsDisabled) {
            startDisabled << info.position;
        }
        if (info.enabledByBiorhythm) {
            enabledByBiorhythm << info.position;
        }
    }
    QCOMPARE(startDisabled, (QList<int>{3, 7, 9, 10, 11, 12, 14, 16, 18}));
    QCOMPARE(enabledByBiorhythm, (QList<int>{7, 9, 10, 11, 12, 14, 16, 18}));

    const auto count = [](Needs needs) {
        const auto table = commandTable();
        return std::count_if(table.begin(), table.end(),
                             [needs](const CommandInfo& info) { return info.needs == needs; });
    };
    QCOMPARE(count(Needs::biorhythm), 12);
    QCOMPARE(count(Needs::system), 5);
}

} // namespace quor::test
