#include "database/Connection.h"

#include <sqlcipher/sqlite3.h>

#include <QFileInfo>
#include <cmath>

#include "files/TextFile.h"
#include "text/Overloaded.h"

using namespace Qt::StringLiterals;

namespace {

// More than the program has statements.
constexpr std::size_t mostStatements = 200;

// What stands between the two texts in a connection string; to its end where the second is empty. A folder
// may have ";" in its name.
QString between(const QString& connectionString, const QString& before, const QString& behind) {
    const auto start = connectionString.indexOf(before);
    if (start < 0) return {};
    const auto from = start + before.size();
    const auto end = behind.isEmpty() ? -1 : connectionString.lastIndexOf(behind);
    return connectionString.mid(from, end < from ? -1 : end - from);
}

} // namespace

void Connection::StatementCloser::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Connection::~Connection() {
    try {
        close();
    } catch (const RuntimeError&) {
        // Whoever needs to know of a failed commit ends the unit of work first; sqlite3_close has undone it.
    }
}

void Connection::open(const QString& user, const QString& password, int options) {
    if (isOpen() || cursorLocation_ != clientSideCursors || provider_.isEmpty() || !user.isEmpty() ||
        !password.isEmpty() || options != -1)
        throw RuntimeError(ErrorCode::InvalidCall);

    const QFileInfo file(
        nativePath(between(connectionString_, u"Data Source="_s, u";Persist Security Info="_s)));
    if (!file.isFile())
        throw RuntimeError(ErrorCode::Database,
                           u"データベースのファイルが見つかりません。\n%1"_s.arg(file.filePath()) +
                               closedFolderHint(file.filePath()));
    if (file.size() == 0) // the engine would make a new database of it
        throw RuntimeError(ErrorCode::Database,
                           u"データベースのファイルが空です。\n%1"_s.arg(file.filePath()));
    database_ =
        openEncryptedFile(file.filePath(), between(connectionString_, u"Jet OLEDB:Database Password="_s, {}));
}

void Connection::close() {
    if (!isOpen()) return;
    waiting_.clear();
    const Database closing = std::move(database_); // closed whether the commit succeeds or fails
    endUnitOfWork(closing.get());
}

void Connection::run(const StatementText& sql, std::initializer_list<Value> values) {
    const auto statement = prepare(sql, values);
    while (step(statement)) {
    }
}

void Connection::beginUnitOfWork() {
    if (!isInUnitOfWork() &&
        sqlite3_exec(database_.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK)
        fail(u"データベースの処理に失敗しました。"_s);
}

void Connection::endUnitOfWork() {
    if (isOpen()) endUnitOfWork(database_.get());
}

bool Connection::isInUnitOfWork() const {
    return isOpen() && sqlite3_get_autocommit(database_.get()) == 0;
}

void Connection::endUnitOfWork(sqlite3* database) {
    if (sqlite3_get_autocommit(database) ||
        sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK)
        return;
    const auto error = databaseError(database, u"データベースの処理に失敗しました。"_s);
    sqlite3_exec(database, "ROLLBACK", nullptr, nullptr, nullptr);
    throw RuntimeError(error);
}

Connection::Statement::~Statement() {
    if (compiled_.empty()) return; // moved away
    sqlite3_reset(get());
    if (connection_.waiting_.size() >= mostStatements) connection_.waiting_.clear();
    connection_.waiting_.insert(std::move(compiled_));
}

void Connection::Statement::bind(int parameter, const Value& value) const {
    value.visit(Overloaded{
        [&](std::monostate) { sqlite3_bind_null(get(), parameter); },
        [&](qint64 number) { sqlite3_bind_int64(get(), parameter, number); },
        [&](double number) {
            if (!std::isfinite(number)) throw RuntimeError(ErrorCode::Overflow); // would be stored as null
            sqlite3_bind_double(get(), parameter, number);
        },
        [&](const QString& text) {
            const QByteArray bytes = text.toUtf8();
            sqlite3_bind_text(get(), parameter, bytes.constData(), static_cast<int>(bytes.size()),
                              SQLITE_TRANSIENT);
        },
    });
}

Connection::Statement Connection::prepare(const StatementText& sql, std::initializer_list<Value> values) {
    auto statement = take(sql, std::ssize(values));
    int parameter = 0;
    for (const auto& value : values) statement.bind(++parameter, value);
    return statement;
}

Connection::Statement Connection::take(const StatementText& sql, qsizetype parameters) {
    if (!isOpen()) throw RuntimeError(ErrorCode::Database, u"データベースが開かれていません。"_s);
    auto compiled = waiting_.extract(sql);
    if (compiled.empty()) compiled = compile(sql);
    if (sqlite3_bind_parameter_count(compiled.mapped().get()) != parameters)
        throw RuntimeError(ErrorCode::InvalidCall);
    return {*this, std::move(compiled)};
}

Connection::Statements::node_type Connection::compile(const StatementText& sql) const {
    const QByteArray text = sql.text.toUtf8();
    sqlite3_stmt* statement = nullptr;
    const char* rest = nullptr;
    if (sqlite3_prepare_v2(database_.get(), text.constData(), static_cast<int>(text.size()), &statement,
                           &rest) != SQLITE_OK)
        fail(u"SQL 文を実行できません。"_s);
    Statements compiled;
    compiled.try_emplace(sql, statement);
    if (statement == nullptr || !QByteArray(rest).trimmed().isEmpty())
        throw RuntimeError(ErrorCode::Database, u"SQL 文を実行できません。文は一つだけ書けます。"_s);
    return compiled.extract(sql);
}

bool Connection::step(const Statement& statement) {
    if (!sqlite3_stmt_readonly(statement.get())) beginUnitOfWork();
    switch (sqlite3_step(statement.get())) {
        case SQLITE_ROW:
            return true;
        case SQLITE_DONE:
            return false;
        default:
            fail(u"データベースの処理に失敗しました。"_s);
    }
}

void Connection::fail(const QString& what) const {
    throw databaseError(database_.get(), what);
}
