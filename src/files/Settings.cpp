#include "files/Settings.h"

#include <QIODevice>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

QString unquoted(const QString& text) {
    const bool isQuoted = text.size() > 1 && text.startsWith(u'"') && text.endsWith(u'"');
    return isQuoted ? text.sliced(1, text.size() - 2) : text;
}

// Values as they are typed: the toolkit's own reading takes a comma in a device name for a list and a
// backslash for an escape.
bool readTyped(QIODevice& device, QSettings::SettingsMap& values) {
    QString section;
    for (const auto& typed : QString::fromUtf8(device.readAll()).split(u'\n')) {
        const QString line = typed.trimmed();
        const auto equals = line.indexOf(u'=');
        if (line.startsWith(u'[') && line.endsWith(u']'))
            section = line.sliced(1, line.size() - 2).trimmed() + u'/';
        else if (equals > 0 && !line.startsWith(u';') && !line.startsWith(u'#'))
            values[section + line.first(equals).trimmed()] = unquoted(line.sliced(equals + 1).trimmed());
    }
    return true;
}

QVariant stored(const QString& section, const QString& key) {
    static const auto format = QSettings::registerFormat(u"conf"_s, readTyped, nullptr);
    return QSettings(format, QSettings::UserScope, u"Hollin"_s, u"Hollin"_s).value(section + u'/' + key);
}

} // namespace

QString readSetting(const QString& section, const QString& key, const QString& fallback) {
    const QString value = stored(section, key).toString();
    return value.isEmpty() ? fallback : value;
}

int readSetting(const QString& section, const QString& key, int fallback) {
    bool isNumber = false;
    const int value = stored(section, key).toInt(&isNumber);
    return isNumber ? value : fallback;
}
