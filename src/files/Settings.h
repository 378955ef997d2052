// Per-user settings, read by section and key. The program writes none.
#pragma once

#include <QString>

int readSetting(const QString& section, const QString& key, int fallback);
QString readSetting(const QString& section, const QString& key, const QString& fallback);
