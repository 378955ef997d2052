#include "platform/Recordset.h"

#include <sqlcipher/sqlite3.h>

#include "platform/Connection.h"
#include "platform/Overloaded.h"
#include "platform/RuntimeError.h"

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

void bindValue(sqlite3_stmt* statement, int parameter, const Value& value) {
    value.visit(Overloaded{
        [&](std::monostate) { sqlite3_bind_null(statement, parameter); },
        [&](qint64 number) { sqlite3_bind_int64(statement, parameter, number); },
        [&](double number) { sqlite3_bind_double(statement, parameter, number); },
        [&](const QString& text) {
            const QByteArray bytes = text.toUtf8();
            sqlite3_bind_text(statement, parameter, bytes.constData(), static_cast<int>(bytes.size()),
                              SQLITE_TRANSIENT);
        },
    });
}

RuntimeError databaseError(const QString& description) {
    return {ErrorCode::Database, description};
}

} // namespace

Recordset::Recordset(const QString& source, Connection& connection) : connection_(&connection) {
    if (source.trimmed().contains(u' ')) {
        read(source);
    } else {
        openTable(source.trimmed());
    }
}

void Recordset::read(const QString& sql) {
    const auto statement = connection_->prepare(sql);
    const int count = sqlite3_column_count(statement.get());
    for (int column = 0; column < count; ++column) {
        names_ << QString::fromUtf8(sqlite3_column_name(statement.get(), column));
        columns_.insert(names_.last().toLower(), column);
    }
    while (connection_->step(statement)) {
        auto& row = rows_.emplace_back();
        row.reserve(static_cast<std::size_t>(count));
        for (int column = 0; column < count; ++column) row.push_back(fieldValue(statement.get(), column));
    }
}

// Only the columns are read: a table may hold many thousands of rows, and adding needs none of them.
void Recordset::openTable(const QString& table) {
    read(u"SELECT * FROM \"%1\" WHERE 0"_s.arg(table));
    table_ = table;
}

void Recordset::moveNext() {
    if (eof()) throw databaseError(u"レコードの終わりを過ぎています。"_s);
    ++position_;
}

const Value& Recordset::field(const QString& name) const {
    if (eof()) throw databaseError(u"現在のレコードがありません。"_s);
    return rows_[position_][static_cast<std::size_t>(column(name))];
}

int Recordset::column(const QString& name) const {
    const auto found = columns_.constFind(name.toLower());
    if (found == columns_.constEnd()) throw databaseError(u"項目「%1」がありません。"_s.arg(name));
    return *found;
}

void Recordset::addNew() {
    if (table_.isEmpty()) throw databaseError(u"このレコードセットには追加できません。"_s);
    added_.assign(static_cast<std::size_t>(names_.size()), Value());
    adding_ = true;
}

void Recordset::setField(const QString& name, const Value& value) {
    if (!adding_) throw databaseError(u"追加中のレコードがありません。"_s);
    added_[static_cast<std::size_t>(column(name))] = value;
}

void Recordset::update() {
    if (!adding_) throw databaseError(u"追加中のレコードがありません。"_s);
    const QString columns = u'"' + names_.join(u"\",\""_s) + u'"';
    const QString parameters = QStringList(names_.size(), u"?"_s).join(u',');
    const auto statement =
        connection_->prepare(u"INSERT INTO \"%1\" (%2) VALUES (%3)"_s.arg(table_, columns, parameters));
    for (std::size_t index = 0; index < added_.size(); ++index)
        bindValue(statement.get(), static_cast<int>(index) + 1, added_[index]);
    connection_->step(statement);
    adding_ = false;
}

void Recordset::close() {
    rows_.clear();
    position_ = 0;
    adding_ = false;
}

qint32 readNumber(const QString& sql, Connection& connection) {
    const Recordset row(sql, connection);
    return row.field(row.fieldNames().first()).toLong();
}

void addRecord(Connection& connection, const QString& table, const NamedValues& fields) {
    QStringList columns;
    for (const auto& [name, value] : fields) columns << u'"' + name + u'"';
    const QString parameters = QStringList(columns.size(), u"?"_s).join(u',');
    const auto statement = connection.prepare(
        u"INSERT INTO \"%1\" (%2) VALUES (%3)"_s.arg(table, columns.join(u','), parameters));
    int parameter = 0;
    for (const auto& [name, value] : fields) bindValue(statement.get(), ++parameter, value);
    connection.step(statement);
}
