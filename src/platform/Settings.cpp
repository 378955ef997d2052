#include "platform/Settings.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

QVariant stored(const QString& section, const QString& key) {
    return QSettings(u"Hollin"_s, u"Hollin"_s).value(section + u'/' + key);
}

} // namespace

QString readSetting(const QString& section, const QString& key, const QString& fallback) {
    // A name with a comma in it comes back as a list.
    const QString value = stored(section, key).toStringList().join(u", "_s).trimmed();
    return value.isEmpty() ? fallback : value;
}

int readSetting(const QString& section, const QString& key, int fallback) {
    bool isNumber = false;
    const int value = stored(section, key).toInt(&isNumber);
    return isNumber ? value : fallback;
}
