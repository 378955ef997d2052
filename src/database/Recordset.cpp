#include "database/Recordset.h"

#include <sqlcipher/sqlite3.h>

#include <utility>

#include "database/Connection.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

Value fieldValue(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_INTEGER:
            return {static_cast<qint64>(sqlite3_column_int64(statement, column))};
        case SQLITE_FLOAT:
            return {sqlite3_column_double(statement, column)};
        case SQLITE_NULL:
            return {};
        default:
            return {QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                                      sqlite3_column_bytes(statement, column))};
    }
}

RuntimeError databaseError(const QString& description) {
    return {ErrorCode::Database, description};
}

} // namespace

Recordset::Recordset(Connection& connection, const StatementText& sql, std::initializer_list<Value> values) {
    const auto statement = connection.prepare(sql, values);
    bool hasRow = connection.step(statement); // a statement compiled earlier learns of new columns here
    const int columns = sqlite3_column_count(statement.get());
    for (int column = 0; column < columns; ++column)
        names_ << QString::fromUtf8(sqlite3_column_name(statement.get(), column));
    for (; hasRow; hasRow = connection.step(statement), ++count_)
        for (int column = 0; column < columns; ++column)
            values_.push_back(fieldValue(statement.get(), column));
}

void Recordset::moveNext() {
    if (eof()) throw databaseError(u"レコードの終わりを過ぎています。"_s);
    ++position_;
}

const Value& Recordset::field(const QString& name) const {
    if (eof()) throw databaseError(u"現在のレコードがありません。"_s);
    return values_[static_cast<std::size_t>(position_) * static_cast<std::size_t>(names_.size()) +
                   column(name)];
}

std::size_t Recordset::column(const QString& name) const {
    auto column = names_.lastIndexOf(name);
    for (auto last = names_.size() - 1; column < 0 && last >= 0; --last)
        if (names_[last].compare(name, Qt::CaseInsensitive) == 0) column = last;
    if (column < 0) throw databaseError(u"項目「%1」がありません。"_s.arg(name));
    return static_cast<std::size_t>(column);
}

Value RowReader::field(int column) const {
    return fieldValue(statement_.get(), column);
}

qint32 RowReader::toLong(int column) const {
    if (sqlite3_column_type(statement_.get(), column) == SQLITE_INTEGER)
        if (const auto number = sqlite3_column_int64(statement_.get(), column); std::in_range<qint32>(number))
            return static_cast<qint32>(number);
    return field(column).toLong();
}

double RowReader::toDouble(int column) const {
    return sqlite3_column_type(statement_.get(), column) == SQLITE_FLOAT
               ? sqlite3_column_double(statement_.get(), column)
               : field(column).toDouble();
}

qint32 readNumber(Connection& connection, Sql sql, std::initializer_list<Value> values) {
    const auto statement = connection.prepare(sql, values);
    if (!connection.step(statement)) throw databaseError(u"現在のレコードがありません。"_s);
    return fieldValue(statement.get(), 0).toLong();
}

void addRecord(Connection& connection, const QString& table, const NamedValues& fields) {
    QStringList columns;
    for (const auto& [name, value] : fields) columns << u'"' + name + u'"';
    const QString parameters = QStringList(columns.size(), u"?"_s).join(u',');
    const auto statement = connection.take(
        StatementText(u"INSERT INTO \"%1\" (%2) VALUES (%3)"_s.arg(table, columns.join(u','), parameters)),
        columns.size());
    int parameter = 0;
    for (const auto& [name, value] : fields) statement.bind(++parameter, value);
    connection.step(statement);
}
