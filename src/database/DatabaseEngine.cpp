#include "database/DatabaseEngine.h"

#include <sqlcipher/sqlite3.h>

#include <QFileInfo>
#include <utility>

#include "files/TextFile.h"
using namespace Qt::StringLiterals;

namespace {

constexpr int busyMilliseconds = 5000; // another program may be at work on the file for a moment

// How a file is ciphered. Files outlive the library that made them, and its generations differ in what they
// do unless told: so nothing is left to it.
struct Cipher {
    int pageSize;   // bytes
    int iterations; // of the key's derivation
    QStringView hmac;
    QStringView keyDerivation;
};

// Ours, the only one that all generations of the library can read.
constexpr Cipher ownCipher{1024, 64000, u"HMAC_SHA1", u"PBKDF2_HMAC_SHA1"};
// Of files that were once made with the defaults of a later generation.
constexpr Cipher laterCipher{4096, 256000, u"HMAC_SHA512", u"PBKDF2_HMAC_SHA512"};

// The statements that set it for a database of the connection: "main", or one that is attached.
QByteArray settings(const Cipher& cipher, const QString& database) {
    return u"PRAGMA %1.cipher_page_size = %2; PRAGMA %1.kdf_iter = %3; PRAGMA %1.cipher_hmac_algorithm = %4; "
           "PRAGMA %1.cipher_kdf_algorithm = %5;"_s.arg(database)
               .arg(cipher.pageSize)
               .arg(cipher.iterations)
               .arg(cipher.hmac, cipher.keyDerivation)
               .toUtf8();
}

QString explanation(int code) {
    if (code == SQLITE_READONLY_DBMOVED)
        return u"開いた後に、データベースのファイルが移動、置き換え、または削除されました。"
               "メニューに戻ると、今あるファイルを開き直します。"_s;
    switch (code & 0xff) {
        case SQLITE_NOTADB:
            return u"データベースのファイルではないか、パスワードが違います。"_s;
        case SQLITE_CORRUPT:
            return u"データベースのファイルが壊れています。"_s;
        case SQLITE_FULL:
            return u"ディスクの空き容量が足りません。"_s;
        case SQLITE_READONLY:
        case SQLITE_PERM:
            return u"データベースに書き込めません。"_s + permissionHint;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return u"データベースをほかのプログラムが使用しています。"_s;
        case SQLITE_CANTOPEN:
            return u"データベースのファイルを開けません。"_s + permissionHint;
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

bool execute(sqlite3* database, const char* sql) {
    return sqlite3_exec(database, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

// The file, unlocked; null when cipher and password do not fit. The handle of a failed try is of no more use.
Database tryToOpen(const QString& path, const QString& password, const Cipher& cipher) {
    const QString failure = u"データベースを開けません。\n%1"_s.arg(path);
    sqlite3* opened = nullptr;
    configureEngine();
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    Database database(opened);
    const QByteArray key = password.toUtf8();
    // The key switches the engine's log on; what it says reaches the user as the text of an error instead.
    if (code != SQLITE_OK ||
        sqlite3_key(opened, key.constData(), static_cast<int>(key.size())) != SQLITE_OK ||
        !execute(opened, "PRAGMA cipher_log_level = NONE") ||
        !execute(opened, settings(cipher, u"main"_s).constData()))
        throw databaseError(opened, failure);
    sqlite3_extended_result_codes(opened, 1);
    sqlite3_busy_timeout(opened, busyMilliseconds);
    // The key of a file with contents proves right or wrong at the first read.
    if (execute(opened,
                "PRAGMA temp_store = MEMORY; PRAGMA synchronous = EXTRA; PRAGMA cache_size = -16384; "
                "SELECT count(*) FROM sqlite_master"))
        return database;
    if (sqlite3_errcode(opened) != SQLITE_NOTADB || &cipher == &laterCipher)
        throw databaseError(opened, failure);
    return nullptr;
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
    Database database = tryToOpen(path, password, ownCipher);
    return database ? std::move(database) : tryToOpen(path, password, laterCipher);
}

// What a statement says of the file: one number.
static int numberOf(sqlite3* database, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, sql, -1, &statement, nullptr);
    const int number = sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int(statement, 0) : 0;
    sqlite3_finalize(statement);
    return number;
}

bool hasOwnCipher(sqlite3* database) {
    return numberOf(database, "PRAGMA page_size") == ownCipher.pageSize;
}

// The file as the database "copy".
static bool attach(sqlite3* database, const QByteArray& file, const QByteArray& password) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, "ATTACH ? AS copy KEY ?", -1, &statement, nullptr);
    for (int parameter = 0; const QByteArray& text : {file, password})
        sqlite3_bind_text(statement, ++parameter, text.constData(), static_cast<int>(text.size()),
                          SQLITE_TRANSIENT);
    sqlite3_step(statement);
    return sqlite3_finalize(statement) == SQLITE_OK;
}

bool exportWithOwnCipher(sqlite3* database, const QString& file, const QString& password) {
    return attach(database, file.toUtf8(), password.toUtf8()) &&
           execute(database, settings(ownCipher, u"copy"_s).constData()) &&
           // One transaction: what another program writes meanwhile is in the copy as a whole or not at all.
           execute(database, "BEGIN; SELECT sqlcipher_export('copy')") &&
           // The one thing that the library leaves out.
           execute(database, "PRAGMA copy.user_version = " +
                                 QByteArray::number(numberOf(database, "PRAGMA user_version"))) &&
           execute(database, "COMMIT; DETACH copy");
}

QString closedFolderHint(const QString& path) {
    // Below a folder that lets nobody in, nothing seems to exist.
    QFileInfo folder(QFileInfo(path).absolutePath());
    while (!folder.isDir() && !folder.isRoot()) folder.setFile(folder.absolutePath());
    return !folder.isExecutable() ? u'\n' + permissionHint : QString();
}
