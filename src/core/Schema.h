// The tables of the database file: made once by the database tool, never altered by the program.
#pragma once

#include <QStringList>
#include <vector>

class Connection;

struct SchemaTable {
    QString name;
    QStringList columns;
};

// All tables with their columns, as createSchema makes them.
std::vector<SchemaTable> schemaTables();

// Makes tables and indexes in an empty database. Raises a database error when one of them exists already.
void createSchema(Connection& connection);

// What is missing of the tables, one text for each table or column, empty when the schema is whole.
QStringList missingFromSchema(Connection& connection);
