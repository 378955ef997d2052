#include "platform/DatabaseError.h"

#include <sqlcipher/sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

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

} // namespace

RuntimeError databaseError(sqlite3* database, const QString& what) {
    const QString reason = explanation(sqlite3_extended_errcode(database));
    const QString words = QString::fromUtf8(sqlite3_errmsg(database));
    return {ErrorCode::Database, (reason.isEmpty() ? what : what + u'\n' + reason) + u"\n(%1)"_s.arg(words)};
}
