#include "shell/ApplicationSetup.h"

#include "toolkit/ImageList.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace quor {

void setUpLocale() {
    if (QLocale::system().language() == QLocale::C) {
        QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    }
}

void setUpApplication(QApplication& application) {
    setUpLocale();
    // The interface is Italian under every locale, and so are the toolkit's buttons.
    auto* translator = new QTranslator(&application);
    if (translator->load(u"qtbase_it"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(translator);
    }
    QApplication::setApplicationName(u"quor"_s);
    QApplication::setApplicationVersion(QString::fromLatin1(version()));
    QApplication::setDesktopFileName(u"quor"_s);
    QApplication::setWindowIcon(emblem());
    // The frame decides when the program ends.
    QApplication::setQuitOnLastWindowClosed(false);
}

const char* version() {
    return QUOR_VERSION;
}

} // namespace quor
