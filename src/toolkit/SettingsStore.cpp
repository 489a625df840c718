#include "toolkit/SettingsStore.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace quor {

namespace {

/// The file of the user that is named after the program.
class Store : public QSettings {
  public:
    Store()
        : QSettings(QSettings::IniFormat, QSettings::UserScope, u"quor"_s) {
        setFallbacksEnabled(false);
    }
};

QString address(const QString& section, const QString& key) {
    return section + u'/' + key;
}

} // namespace

QString getSetting(const QString& section, const QString& key) {
    // A hand-written text with a comma comes back as a list.
    return Store().value(address(section, key)).toStringList().join(u", "_s);
}

bool saveSetting(const QString& section, const QString& key, const QString& value) {
    Store settings;
    settings.setValue(address(section, key), value);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

QString readFastStart() {
    const QString value = getSetting(u"Options"_s, u"FastStart"_s);
    return value.isEmpty() ? u"TRUE"_s : value;
}

} // namespace quor
