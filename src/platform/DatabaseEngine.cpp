#include "platform/DatabaseEngine.h"

#include <sqlcipher/sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int busyMilliseconds = 5000; // another program may be at work on the file for a moment

QString explanation(int code) {
    switch (code & 0xff) {
        case SQLITE_NOTADB:
            return u"データベースのファイルではないか、パスワードが違います。"_s;
        case SQLITE_CORRUPT:
            return u"データベースのファイルが壊れています。"_s;
        case SQLITE_FULL:
            return u"ディスクの空き容量が足りません。"_s;
        case SQLITE_READONLY:
        case SQLITE_PERM:
            return u"データベースに書き込めません。フォルダーとファイルの権限を確かめてください。"_s;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return u"データベースをほかのプログラムが使用しています。"_s;
        case SQLITE_CANTOPEN:
            return u"データベースのファイルを開けません。"_s;
        case SQLITE_IOERR:
            return u"データベースのファイルの読み書きに失敗しました。"_s;
        default:
            return {};
    }
}

// One thread does all work on databases, and nobody asks the engine how much memory it holds.
void configureEngine() {
    static const bool once = [] {
        sqlite3_config(SQLITE_CONFIG_SINGLETHREAD);
        sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
        return true;
    }();
    static_cast<void>(once);
}

} // namespace

RuntimeError databaseError(sqlite3* database, const QString& what) {
    const QString reason = explanation(sqlite3_extended_errcode(database));
    const QString words = QString::fromUtf8(sqlite3_errmsg(database));
    return {ErrorCode::Database, (reason.isEmpty() ? what : what + u'\n' + reason) + u"\n(%1)"_s.arg(words)};
}

void DatabaseCloser::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

Database openEncryptedFile(const QString& path, const QString& password) {
    const QString failure = u"データベースを開けません。\n%1"_s.arg(path);
    sqlite3* opened = nullptr;
    configureEngine();
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    Database database(opened);
    const QByteArray key = password.toUtf8();
    if (code != SQLITE_OK || sqlite3_key(opened, key.constData(), static_cast<int>(key.size())) != SQLITE_OK)
        throw databaseError(opened, failure);
    sqlite3_extended_result_codes(opened, 1);
    sqlite3_busy_timeout(opened, busyMilliseconds);
    // The key of a file with contents proves right or wrong at the first read.
    constexpr auto prepare =
        "PRAGMA temp_store = MEMORY; PRAGMA synchronous = FULL; PRAGMA cache_size = -16384; "
        "SELECT count(*) FROM sqlite_master";
    if (sqlite3_exec(opened, prepare, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw databaseError(opened, failure);
    return database;
}
