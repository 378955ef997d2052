#include "core/Schema.h"

#include <QFile>
#include <QRegularExpression>

#include "database/Connection.h"
#include "database/Recordset.h"
#include "text/RuntimeError.h"

// A static library's resources are linked only when someone asks for them, and the macro that asks must stand
// outside of every namespace.
static void loadResources() {
    Q_INIT_RESOURCE(core);
}

using namespace Qt::StringLiterals;

namespace {

QStringList schemaStatements() {
    loadResources();
    QFile file(u":/core/schema.sql"_s);
    if (!file.open(QIODevice::ReadOnly)) throw RuntimeError(ErrorCode::FileNotFound);
    static const QRegularExpression comment(u"^--.*$"_s, QRegularExpression::MultilineOption);
    QStringList statements;
    for (const auto& text : QString::fromUtf8(file.readAll()).remove(comment).split(u';'))
        if (const QString statement = text.trimmed(); !statement.isEmpty()) statements << statement;
    return statements;
}

bool exists(Connection& connection, const QString& table) {
    return Recordset(connection, u"SELECT name FROM sqlite_master WHERE type = 'table' AND name = ?", table)
               .recordCount() > 0;
}

bool hasColumn(Connection& connection, const SchemaTable& table, const QString& column) {
    try {
        static_cast<void>(
            Recordset(connection, SchemaSql{u"SELECT %1 FROM %2 WHERE 0 = 1"_s.arg(column, table.name)}));
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

} // namespace

std::vector<SchemaTable> schemaTables() {
    static const QRegularExpression table(u"^CREATE TABLE (\\S+) \\((.*)\\)$"_s,
                                          QRegularExpression::DotMatchesEverythingOption);
    std::vector<SchemaTable> tables;
    for (const auto& statement : schemaStatements()) {
        const auto match = table.match(statement);
        if (!match.hasMatch()) continue;
        QStringList columns;
        for (const auto& column : match.captured(2).split(u','))
            columns << column.trimmed().section(u' ', 0, 0);
        tables.push_back({match.captured(1), columns});
    }
    return tables;
}

void createSchema(Connection& connection) {
    for (const auto& statement : schemaStatements()) connection.execute(SchemaSql{statement});
}

QStringList missingFromSchema(Connection& connection) {
    QStringList missing;
    for (const auto& table : schemaTables()) {
        if (!exists(connection, table.name)) {
            missing << u"表「%1」がありません。"_s.arg(table.name);
            continue;
        }
        for (const auto& column : table.columns)
            if (!hasColumn(connection, table, column))
                missing << u"表「%1」に列「%2」がありません。"_s.arg(table.name, column);
    }
    return missing;
}
