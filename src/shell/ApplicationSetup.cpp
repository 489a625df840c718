#include "shell/ApplicationSetup.h"

#include "toolkit/ImageList.h"
#include "toolkit/LateInput.h"
#include "toolkit/qt/ListEscape.h"
#include "toolkit/qt/Versions.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

struct DialogText {
    const char* english;
    const char16_t* italian;
};

/// What Qt's translation of its print dialog lacks.
constexpr std::array printTexts{
    DialogText{"Advanced", u"Avanzate"},
    DialogText{"Advanced Option Conflicts", u"Opzioni avanzate in conflitto"},
    DialogText{"Automatic", u"Automatico"},
    DialogText{"Double Sided Printing", u"Stampa fronte retro"},
    DialogText{"Duplex Settings Conflicts", u"Opzioni fronte retro in conflitto"},
    DialogText{"Invalid Pages Definition", u"Pagine non valide"},
    DialogText{"Long side binding", u"Rilegatura sul lato lungo"},
    DialogText{"Off", u"No"},
    DialogText{"Page Setup Conflicts", u"Opzioni della pagina in conflitto"},
    DialogText{"Pages", u"Pagine"},
    DialogText{"Short side binding", u"Rilegatura sul lato corto"},
    DialogText{
        "Specify pages or ranges separated by commas. Ranges are specified by two numbers "
        "separated by a hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.",
        u"Pagine o intervalli separati da virgole. Un intervallo è di due numeri separati da un "
        "trattino: 3,5-7,9 stampa le pagine 3, 5, 6, 7 e 9."},
    DialogText{"There are conflicts in duplex settings. Do you want to fix them?",
               u"Le opzioni fronte retro sono in conflitto. Correggerle?"},
    DialogText{"There are conflicts in page setup options. Do you want to fix them?",
               u"Le opzioni della pagina sono in conflitto. Correggerle?"},
    DialogText{"There are conflicts in some advanced options. Do you want to fix them?",
               u"Alcune opzioni avanzate sono in conflitto. Correggerle?"},
    DialogText{"There are conflicts in some options. Please fix them.",
               u"Alcune opzioni sono in conflitto. Correggerle."},
    DialogText{
        "%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, '-' "
        "to "
        "define ranges and make sure ranges do not intersect with each other.",
        u"%1 non è scritto bene. Separare pagine e intervalli con ',', scrivere gli intervalli "
        u"con '-' "
        "e non sovrapporli."},
};

/// Qt's own texts. Those of its lists of files it looks up under a name that its translations do
/// not know yet.
class QtTexts : public QTranslator {
  public:
    using QTranslator::QTranslator;

    [[nodiscard]] QString translate(const char* context, const char* text,
                                    const char* disambiguation, int count) const override {
        QString translated = QTranslator::translate(context, text, disambiguation, count);
        if (!translated.isNull()) {
            return translated;
        }
        if (qstrcmp(context, "QAbstractFileIconProvider") == 0) {
            return QTranslator::translate("QFileDialog", text, nullptr, count);
        }
        const QByteArrayView window(context);
        if (window.startsWith("QPrint") || window.startsWith("QPageSetup") ||
            window.startsWith("QPPD") || window.startsWith("QUnixPrint")) {
            const auto* const found =
                std::find_if(printTexts.begin(), printTexts.end(), [text](const DialogText& known) {
                    return qstrcmp(known.english, text) == 0;
                });
            return found == printTexts.end() ? QString() : QString::fromUtf16(found->italian);
        }
        return {};
    }
};

} // namespace

void setUpLocale() {
    if (QLocale::system().language() == QLocale::C) {
        QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    }
}

void setUpApplication(QApplication& application) {
    setUpLocale();
    qt::quietAssistiveBridge();
    // The interface is Italian under every locale, and so are Qt's buttons.
    auto* translator = new QtTexts(&application);
    if (translator->load(u"qtbase_it"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(translator);
    }
    QApplication::setApplicationName(u"quor"_s);
    QApplication::setApplicationVersion(QString::fromLatin1(version()));
    QApplication::setDesktopFileName(u"quor"_s);
    QApplication::setWindowIcon(emblem());
    application.installEventFilter(new LateInput(&application));
    application.installEventFilter(new qt::ListEscape(&application));
    // The frame decides when the program ends.
    QApplication::setQuitOnLastWindowClosed(false);
}

const char* version() {
    return QUOR_VERSION;
}

} // namespace quor
