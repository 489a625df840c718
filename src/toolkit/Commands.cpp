#include "toolkit/Commands.h"

#include <algorithm>

namespace quor {

namespace {

constexpr std::array menus{
    MenuInfo{Menu::mnuFile, "mnuFile", u"&File sistemi"},
    MenuInfo{Menu::mnuBioritmi, "mnuBioritmi", u"File &bioritmi"},
    MenuInfo{Menu::mnuFinestre, "mnuFinestre", u"&Finestre"},
    MenuInfo{Menu::mnuHelp, "mnuHelp", u"&Help"},
};

constexpr bool startsGroup = true;
constexpr bool inner = false; ///< continues one

// clang-format off
constexpr std::array<CommandInfo, commandCount> commands{{
    {Command::mnuNuovoSistema, "mnuNuovoSistema", Menu::mnuFile, u"&Nuovo sistema", Needs::nothing, inner},
    {Command::mnuApriSistema, "mnuApriSistema", Menu::mnuFile, u"&Apri sistema", Needs::nothing, inner},
    {Command::mnuSalvaSistema, "mnuSalvaSistema", Menu::mnuFile, u"&Salva sistema", Needs::system, inner},
    {Command::mnuSalvaSistemaConNome, "mnuSalvaSistemaConNome", Menu::mnuFile, u"Salva c&on nome", Needs::system, inner},
    {Command::mnuChiudiSistema, "mnuChiudiSistema", Menu::mnuFile, u"C&hiudi Sistema", Needs::system, inner},
    {Command::mnuOpzioniSistema, "mnuOpzioniSistema", Menu::mnuFile, u"&Opzioni Sistema", Needs::system, startsGroup},
    {Command::mnuEsportaSistema, "mnuEsportaSistema", Menu::mnuFile, u"Es&porta il sistema", Needs::system, inner},
    {Command::mnuEsci, "mnuEsci", Menu::mnuFile, u"&Esci dal Quor", Needs::nothing, startsGroup},

    {Command::mnuCalcola, "mnuCalcola", Menu::mnuBioritmi, u"&Calcola nuovo", Needs::nothing, inner},
    {Command::mnuApriBioritmo, "mnuApriBioritmo", Menu::mnuBioritmi, u"&Apri bioritmo", Needs::nothing, inner},
    {Command::mnuSalvaBioritmo, "mnuSalvaBioritmo", Menu::mnuBioritmi, u"&Salva bioritmo", Needs::biorhythm, inner},
    {Command::mnuSalvaConNome, "mnuSalvaConNome", Menu::mnuBioritmi, u"Salva c&on nome", Needs::biorhythm, inner},
    {Command::mnuChiudiBioritmo, "mnuChiudiBioritmo", Menu::mnuBioritmi, u"C&hiudi Bioritmo", Needs::biorhythm, inner},
    {Command::mnuAnteprimaDiStampa, "mnuAnteprimaDiStampa", Menu::mnuBioritmi, u"A&nteprima di Stampa", Needs::biorhythm, startsGroup},
    {Command::mnuStampa, "mnuStampa", Menu::mnuBioritmi, u"Sta&mpa", Needs::biorhythm, inner},
    {Command::mnuGrafico, "mnuGrafico", Menu::mnuBioritmi, u"&Grafico", Needs::biorhythm, startsGroup},
    {Command::mnuStatoSettimanale, "mnuStatoSettimanale", Menu::mnuBioritmi, u"Stato settimana&le", Needs::biorhythm, inner},
    {Command::mnuStatoOdierno, "mnuStatoOdierno", Menu::mnuBioritmi, u"S&tato del giorno", Needs::biorhythm, inner},
    {Command::mnuPrevisioni, "mnuPrevisioni", Menu::mnuBioritmi, u"P&revisioni", Needs::biorhythm, inner},
    {Command::mnuSpostaDataDiCalcolo, "mnuSpostaDataDiCalcolo", Menu::mnuBioritmi, u"S&posta data di calcolo", Needs::biorhythm, startsGroup},
    {Command::mnuOpzioni, "mnuOpzioni", Menu::mnuBioritmi, u"&Opzioni bioritmo", Needs::biorhythm, inner},
    {Command::mnuEsporta, "mnuEsporta", Menu::mnuBioritmi, u"&Esporta Informazioni", Needs::biorhythm, inner},
    {Command::mnuEsci2, "mnuEsci2", Menu::mnuBioritmi, u"Esc&i da Quor", Needs::nothing, startsGroup},

    {Command::mnuWinArrHor, "mnuWinArrHor", Menu::mnuFinestre, u"Affiancate &Orizzontalmente", Needs::nothing, inner},
    {Command::mnuWinArrVer, "mnuWinArrVer", Menu::mnuFinestre, u"Affiancate &Verticalmente", Needs::nothing, inner},
    {Command::mnuWinArrCas, "mnuWinArrCas", Menu::mnuFinestre, u"In &Cascata", Needs::nothing, inner},
    {Command::mnuWinArrIco, "mnuWinArrIco", Menu::mnuFinestre, u"Riordina &Icone", Needs::nothing, inner},

    {Command::mnuHlpCompleto, "mnuHlpCompleto", Menu::mnuHelp, u"&File di guida", Needs::nothing, inner},
    {Command::mnuProcedureGuidate, "mnuProcedureGuidate", Menu::mnuHelp, u"&Procedure guidate", Needs::nothing, inner},
    {Command::mnuAbout, "mnuAbout", Menu::mnuHelp, u"&About", Needs::nothing, startsGroup},

    {Command::graphOptions, "graphOptions", Menu::none, u"Opzioni Grafico", Needs::nothing, inner},
    {Command::weeklyOptions, "weeklyOptions", Menu::none, u"Opzioni Grafico Settimanale", Needs::nothing, inner},
}};

constexpr ToolInfo separator(int position)
{
    return {position, nullptr, nullptr, Command::mnuEsci, false, false};
}

constexpr std::array<ToolInfo, toolCount> tools{{
    {1, "NuovoSistema", u"Calcola un nuovo sistema", Command::mnuNuovoSistema, false, false},
    {2, "ApriSistema", u"Apre un sistema", Command::mnuApriSistema, false, false},
    {3, "SalvaSistema", u"Salva il sistema", Command::mnuSalvaSistema, true, false},
    separator(4),
    {5, "NuovoBioritmo", u"Calcola un nuovo Bioritmo", Command::mnuCalcola, false, false},
    {6, "ApriBioritmo", u"Apre un bioritmo", Command::mnuApriBioritmo, false, false},
    {7, "SalvaBioritmo", u"Salva il bioritmo", Command::mnuSalvaBioritmo, true, true},
    separator(8),
    {9, "Grafico", u"Apre la finestra Grafico", Command::mnuGrafico, true, true},
    {10, "Settimana", u"Apre la finestra Grafico settimanale", Command::mnuStatoSettimanale, true, true},
    {11, "Statistica", u"Apre la finestra Statistiche", Command::mnuStatoOdierno, true, true},
    {12, "Previsione", u"Apre la finestra Previsioni", Command::mnuPrevisioni, true, true},
    separator(13),
    {14, "Opzioni", u"Opzioni", Command::mnuOpzioni, true, true},
    separator(15),
    {16, "Esporta", u"Esporta informazioni", Command::mnuEsporta, true, true},
    separator(17),
    {18, "Stampa", u"Stampa", Command::mnuStampa, true, true},
    separator(19),
    {20, "Aiuto", u"File di guida", Command::mnuHlpCompleto, false, false},
}};
// clang-format on

static_assert([] {
    for (std::size_t i = 0; i < commands.size(); ++i) {
        if (commands[i].command != static_cast<Command>(i)) {
            return false;
        }
    }
    for (std::size_t i = 0; i < tools.size(); ++i) {
        if (tools[i].index() != i) {
            return false;
        }
    }
    return true;
}());

} // namespace

std::span<const MenuInfo> menuTable() {
    return menus;
}

std::span<const CommandInfo> commandTable() {
    return commands;
}

const CommandInfo& commandInfo(Command command) {
    return commands.at(static_cast<std::size_t>(command));
}

std::span<const ToolInfo> toolTable() {
    return tools;
}

} // namespace quor
