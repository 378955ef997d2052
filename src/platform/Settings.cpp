#include "platform/Settings.h"

#include <QSettings>

using namespace Qt::StringLiterals;

int readSetting(const QString& section, const QString& key, int fallback) {
    const QSettings settings(u"Hollin"_s, u"Hollin"_s);
    bool isNumber = false;
    const int value = settings.value(section + u'/' + key, fallback).toInt(&isNumber);
    return isNumber ? value : fallback;
}
