// What the program and the database tool must agree on about the database file.
#pragma once

#include <QString>

inline const QString databasePassword = QStringLiteral("tobul");

// The connection string of a database file ("\" or "/" between folders).
inline QString databaseConnectionString(const QString& file) {
    return QStringLiteral("Data Provider=Microsoft.Jet.OLEDB.4.0; ") + QStringLiteral("Data Source=") + file +
           QStringLiteral(";Persist Security Info=False;") + QStringLiteral("Jet OLEDB:Database Password=") +
           databasePassword;
}
