// What the program and the database tool must agree on about the database file.
#pragma once

#include <QString>

inline const QString databasePassword = QStringLiteral("tobul");
