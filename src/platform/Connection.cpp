#include "platform/Connection.h"

#include <sqlcipher/sqlite3.h>

#include <QFileInfo>

#include "platform/DatabaseError.h"
#include "platform/SqlText.h"
#include "platform/TextFile.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int busyMilliseconds = 5000; // another program may be reading the file for a moment

// The value of "name=value;" in a connection string, to its end when no semicolon follows.
QString part(const QString& connectionString, const QString& name) {
    const auto start = connectionString.indexOf(name + u'=');
    if (start < 0) return {};
    const auto from = start + name.size() + 1;
    const auto end = connectionString.indexOf(u';', from);
    return connectionString.mid(from, end < 0 ? -1 : end - from);
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
    if (isOpen() || !user.isEmpty() || !password.isEmpty() || options != -1)
        throw RuntimeError(ErrorCode::InvalidCall);

    const QString path = nativePath(part(connectionString_, u"Data Source"_s));
    if (!QFileInfo(path).isFile())
        throw RuntimeError(ErrorCode::Database, u"データベースのファイルが見つかりません。\n%1"_s.arg(path));
    try {
        if (sqlite3_open_v2(path.toUtf8().constData(), &database_, SQLITE_OPEN_READWRITE, nullptr) !=
            SQLITE_OK)
            fail(u"データベースを開けません。\n%1"_s.arg(path));
        unlock(part(connectionString_, u"Jet OLEDB:Database Password"_s).toUtf8());
    } catch (const RuntimeError&) {
        sqlite3_close(std::exchange(database_, nullptr));
        throw;
    }
}

void Connection::unlock(const QByteArray& key) {
    sqlite3_extended_result_codes(database_, 1);
    sqlite3_busy_timeout(database_, busyMilliseconds);
    if (sqlite3_key(database_, key.constData(), static_cast<int>(key.size())) != SQLITE_OK)
        fail(u"データベースを開けません。"_s);
    // The key proves right or wrong only when the first page is read.
    const auto probe = prepare(u"SELECT count(*) FROM sqlite_master"_s);
    step(probe);
    // Nothing readable may be left beside the file, and the one file is always the whole truth.
    run("PRAGMA temp_store = MEMORY");
    run("PRAGMA journal_mode = DELETE");
    run("PRAGMA synchronous = FULL");
}

void Connection::close() {
    if (!isOpen()) return;
    const auto closing = [this] { sqlite3_close_v2(std::exchange(database_, nullptr)); };
    try {
        endUnitOfWork();
    } catch (const RuntimeError&) {
        closing();
        throw;
    }
    closing();
}

void Connection::execute(const QString& sql) {
    const auto statement = prepare(sql);
    while (step(statement)) {
    }
}

void Connection::endUnitOfWork() {
    if (!isOpen() || sqlite3_get_autocommit(database_)) return;
    try {
        run("COMMIT");
    } catch (const RuntimeError&) {
        sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

Connection::Statement Connection::prepare(const QString& sql) {
    if (!isOpen()) throw RuntimeError(ErrorCode::Database, u"データベースが開かれていません。"_s);
    const QByteArray text = separateNumbers(sql).toUtf8();
    sqlite3_stmt* statement = nullptr;
    const char* rest = nullptr;
    if (sqlite3_prepare_v2(database_, text.constData(), static_cast<int>(text.size()), &statement, &rest) !=
        SQLITE_OK)
        fail(u"SQL 文を実行できません。"_s);
    Statement prepared(statement);
    if (!prepared || !QByteArray(rest).trimmed().isEmpty())
        throw RuntimeError(ErrorCode::Database, u"SQL 文を実行できません。文は一つだけ書けます。"_s);
    return prepared;
}

bool Connection::step(const Statement& statement) {
    if (sqlite3_get_autocommit(database_) && !sqlite3_stmt_readonly(statement.get())) run("BEGIN IMMEDIATE");
    switch (sqlite3_step(statement.get())) {
        case SQLITE_ROW:
            return true;
        case SQLITE_DONE:
            return false;
        default:
            fail(u"データベースの処理に失敗しました。"_s);
    }
}

void Connection::run(const char* sql) {
    if (sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        fail(u"データベースの処理に失敗しました。"_s);
}

void Connection::fail(const QString& what) const {
    throw databaseError(database_, what);
}
