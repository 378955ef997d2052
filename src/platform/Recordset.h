// A set of records read by a statement (client-side: all rows are held), or a table opened to add rows.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "platform/Value.h"

class Connection;

// The whole number that a statement with one row and one field gives.
qint32 readNumber(const QString& sql, Connection& connection);

// Adds one record to a table: columns that are not named stay null. Raises a database error for a table or a
// column that does not exist.
void addRecord(Connection& connection, const QString& table, const NamedValues& fields);

class Recordset {
  public:
    // `source` is a SELECT statement, or the bare name of a table that rows are to be added to.
    Recordset(const QString& source, Connection& connection);

    int recordCount() const { return count_; }
    bool eof() const { return position_ >= count_; }
    void moveNext();

    // Field of the current record, by name without regard to case. Raises an error past the last record or
    // for a name the records do not have.
    const Value& field(const QString& name) const;
    const Value& operator[](const QString& name) const { return field(name); }

    // Names of the fields in the order of the statement.
    const QStringList& fieldNames() const { return names_; }

    // Adds a record to the table: addNew, setField for its columns, update.
    void addNew();
    void setField(const QString& name, const Value& value);
    void update();

    void close();

  private:
    void read(const QString& sql);
    void openTable(const QString& table);
    std::size_t column(const QString& name) const;

    Connection* connection_;
    QString table_;
    QStringList names_;
    std::vector<Value> values_; // record by record
    int count_ = 0;
    int position_ = 0;
    std::vector<Value> added_;
    bool adding_ = false;
};
