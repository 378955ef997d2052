// A set of records read by a statement (client-side: all rows are held), rows that are passed one by one, and
// records that are added to a table.
#pragma once

#include <QString>
#include <QStringList>
#include <initializer_list>
#include <vector>

#include "database/Connection.h"
#include "text/Value.h"

// The whole number that a statement with one row and one field gives.
qint32 readNumber(Connection& connection, Sql sql, std::initializer_list<Value> values);
template <typename... Values>
qint32 readNumber(Connection& connection, Sql sql, const Values&... values) {
    return readNumber(connection, sql, {Value(values)...});
}

// Adds one record to a table: columns that are not named stay null. Raises a database error for a table or a
// column that does not exist.
void addRecord(Connection& connection, const QString& table, const NamedValues& fields);

class Recordset {
  public:
    // The records that the statement gives with a value for each "?".
    template <typename... Values>
    Recordset(Connection& connection, Sql sql, const Values&... values)
        : Recordset(connection, StatementText(sql), {Value(values)...}) {}
    Recordset(Connection& connection, const SchemaSql& sql)
        : Recordset(connection, StatementText(sql.text), {}) {}

    int recordCount() const { return count_; }
    bool eof() const { return position_ >= count_; }
    void moveNext();

    // Field of the current record, by name without regard to case. Raises an error past the last record or
    // for a name the records do not have.
    const Value& field(const QString& name) const;
    const Value& operator[](const QString& name) const { return field(name); }

    // Names of the fields in the order of the statement.
    const QStringList& fieldNames() const { return names_; }

  private:
    Recordset(Connection& connection, const StatementText& sql, std::initializer_list<Value> values);
    std::size_t column(const QString& name) const;

    QStringList names_;
    std::vector<Value> values_; // record by record
    int count_ = 0;
    int position_ = 0;
};

// The rows of a statement one after the other, none of them held, their fields by position: for a hundred
// thousand rows of numbers. Errors are those of Value.
class RowReader {
  public:
    template <typename... Values>
    RowReader(Connection& connection, Sql sql, const Values&... values)
        : connection_(connection), statement_(connection.prepare(sql, {Value(values)...})) {}

    // Goes on to the next row, at first to the first; false when there is none. Not called again then.
    bool next() { return connection_.step(statement_); }

    Value field(int column) const;
    qint32 toLong(int column) const;
    double toDouble(int column) const;

  private:
    Connection& connection_;
    Connection::Statement statement_;
};
