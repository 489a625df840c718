#include "guidance/Tours.h"

#include <array>

namespace quor {

namespace {

constexpr std::array newBiorhythm{Command::mnuCalcola};
constexpr std::array newSystem{Command::mnuNuovoSistema};
constexpr std::array views{Command::mnuGrafico, Command::mnuStatoSettimanale,
                           Command::mnuStatoOdierno, Command::mnuPrevisioni};
constexpr std::array save{Command::mnuSalvaBioritmo};
constexpr std::array help{Command::mnuHlpCompleto};

constexpr TourStep aboutTheLock{
    .text =
        u"Mentre è in corso la procedura guidata verranno abilitate solo le funzioni utili alla "
        "spiegazione. Al termine della procedura verranno riattivate completamente."};
constexpr TourStep thanks{.text = u"Grazie per l'attenzione!"};

constexpr std::array biorhythmTour{
    TourStep{.text = u"Questa procedura guidata vi illustrerà come calcolare un nuovo bioritmo e "
                     "gestire tutte le funzionalità che Quor offre in questa sezione.\n"
                     "Premere Next>> per continuare."},
    aboutTheLock,
    TourStep{.text = u"Cliccando sull'icona rappresentata quì sopra, o sul menù Bioritmi->Nuovo "
                     "Bioritmo verrà aperta questa finestra.",
             .picture = Command::mnuCalcola,
             .lock = {.allowed = {}, .highlighted = newBiorhythm}},
    TourStep{.text = u"In questa finestra potete inserire il vostro nome e la vostra data di "
                     "nascita.\n"
                     "Premendo NEXT>> potrete attivare la finestra ed iniziare!",
             .opens = Command::mnuCalcola},
    TourStep{.text =
                 u"Si sono aperte le finestre che avete deciso tra le opzioni della finestra di "
                 "inserimento, calcolando i dati che avete appena inserito."},
    TourStep{.text = u"Con i bottoni della toolbar appena attivati potete aprire e chiudere le "
                     "finestre in qualsiasi momento.\n"
                     "Potete anche usare il menu Bioritmi-> per lo stesso scopo.",
             .lock = {.allowed = views, .highlighted = views}},
    TourStep{.text = u"Adesso con il bottone raffigurato quì sopra, o sul menù Bioritmi->Salva "
                     "Bioritmo, potete salvare i vostri dati.",
             .picture = Command::mnuSalvaBioritmo,
             .lock = {.allowed = save, .highlighted = save}},
    TourStep{.text = u"Per leggere bene i grafici, o per funzioni come la stampa e l'esportazione "
                     "si rimanda alla guida attivabile con l'icona di aiuto.",
             .picture = Command::mnuHlpCompleto,
             .lock = {.allowed = help, .highlighted = help}},
    thanks,
};

constexpr std::array systemTour{
    TourStep{.text = u"Questa procedura guidata vi illustrerà come calcolare molti bioritmi "
                     "contemporaneamente e gestire un sistema.\n"
                     "Premere Next>> per continuare."},
    aboutTheLock,
    TourStep{.text =
                 u"Cliccando sull'icona rappresentata quì sopra, o sul menù File->Nuovo Sistema "
                 "verrà aperta questa finestra.",
             .picture = Command::mnuNuovoSistema,
             .lock = {.allowed = {}, .highlighted = newSystem},
             .opens = Command::mnuNuovoSistema},
    TourStep{.text = u"Questa finestra vi darà la possibilità di inserire e rimuovere bioritmi, e "
                     "di eseguire operazioni sui singoli bioritmi o sul sistema.",
             .needsSystem = true},
    TourStep{.text = u"Per adesso potrete solo inserire bioritmi nel sistema. Cliccate Inserisci "
                     "nuovo, per calcolarne uno da zero, o Inserisci Esistente per caricarne uno.",
             .lock = {.insertMembers = true},
             .needsSystem = true},
    thanks,
};

} // namespace

std::span<const TourStep> tourSteps(std::uint8_t number) {
    switch (static_cast<Tour>(number)) {
    case Tour::newBiorhythm:
        return biorhythmTour;
    case Tour::system:
        return systemTour;
    }
    return {};
}

} // namespace quor
