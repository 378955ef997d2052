// What the program and the database tool must agree on about the database file.
#pragma once

#include <QString>

class Connection;

inline const QString databasePassword = QStringLiteral("tobul");

// Sets up the connection to an existing database file ("\" or "/" between folders) and opens it. Raises a
// database error when it is missing, no database, damaged, protected by another password, or of a later
// version.
void openDatabaseFile(Connection& connection, const QString& file,
                      const QString& password = databasePassword);
