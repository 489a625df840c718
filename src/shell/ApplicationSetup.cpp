#include "shell/ApplicationSetup.h"

#include "toolkit/ImageList.h"
#include "toolkit/LateInput.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// The toolkit's own texts. Those of its lists of files it looks up under a name that its
/// translations do not know yet.
class ToolkitTexts : public QTranslator {
  public:
    using QTranslator::QTranslator;

    [[nodiscard]] QString translate(const char* context, const char* text,
                                    const char* disambiguation, int count) const override {
        const QString translated = QTranslator::translate(context, text, disambiguation, count);
        return translated.isNull() && qstrcmp(context, "QAbstractFileIconProvider") == 0
                   ? QTranslator::translate("QFileDialog", text, nullptr, count)
                   : translated;
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
    // The interface is Italian under every locale, and so are the toolkit's buttons.
    auto* translator = new ToolkitTexts(&application);
    if (translator->load(u"qtbase_it"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(translator);
    }
    QApplication::setApplicationName(u"quor"_s);
    QApplication::setApplicationVersion(QString::fromLatin1(version()));
    QApplication::setDesktopFileName(u"quor"_s);
    QApplication::setWindowIcon(emblem());
    application.installEventFilter(new LateInput(&application));
    // The frame decides when the program ends.
    QApplication::setQuitOnLastWindowClosed(false);
}

const char* version() {
    return QUOR_VERSION;
}

} // namespace quor
