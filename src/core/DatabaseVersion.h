// Which tables a database has: its version stands in the file, and rises when a later program changes them.
#pragma once

#include <QString>

class Connection;

// What createSchema makes.
extern const int newestVersion;

int databaseVersion(Connection& connection);

// Raises a database error for one that a later version of the program has made.
void requireKnownVersion(Connection& connection, const QString& file);

// Makes what is older the newest, step by step.
void upgradeTables(Connection& connection);
