// The database adapter: opening, records, and the unit of work.
#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <cmath>

#include "core/Database.h"
#include "database/Recordset.h"
#include "files/NewFile.h"
#include "support/DiskTrace.h"
#include "support/Helpers.h"
#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;
using Common::DbConn;
using testing::ElementsAre;

static_assert(!std::is_convertible_v<QString, Sql> && !std::is_convertible_v<QStringView, Sql> &&
                  !std::is_convertible_v<const char16_t*, Sql>,
              "a text that is made while the program runs could hold values");

class ConnectionTest : public ScreenTest {
  protected:
    QString databasePath() const { return directory() + u"/DB/Hollin.mdb"_s; }

    QString openWith(const QString& path, const QString& password) {
        Connection connection;
        return raisedBy([&] { openDatabaseFile(connection, path, password); }).description;
    }
    // What another program sees on the disk.
    QString onDisk(const QString& sql) {
        auto seen = std::make_unique<Connection>();
        openDatabaseFile(*seen, databasePath());
        std::swap(seen, DbConn);
        auto records = stored(sql);
        std::swap(seen, DbConn);
        return records;
    }
};

TEST_F(ConnectionTest, WhatIsNoDatabaseIsToldInJapanese) {
    EXPECT_TRUE(DbConn->connectionString().endsWith(
        u"\\DB\\Hollin.mdb;Persist Security Info=False;Jet OLEDB:Database Password=tobul"));
    EXPECT_TRUE(openWith(directory() + u"/DB/none.mdb"_s, databasePassword).contains(u"見つかりません"));
    EXPECT_TRUE(openWith(databasePath(), u"other"_s).contains(u"パスワードが違います"));
    const QString text = directory() + u"/DB/text.mdb"_s;
    writeWholeFile(text, QByteArray(8192, 'x'));
    EXPECT_TRUE(openWith(text, databasePassword).contains(u"データベースのファイルではない"));
    writeWholeFile(text, {});
    EXPECT_TRUE(openWith(text, databasePassword).contains(u"空です"));

    // A folder with the separator of connection strings in its name.
    QDir(directory()).mkpath(u"a;b"_s);
    QFile::copy(databasePath(), directory() + u"/a;b/c.mdb"_s);
    EXPECT_EQ(openWith(directory() + u"/a;b/c.mdb"_s, databasePassword), QString());
}

TEST_F(ConnectionTest, RecordsAreReadByNameWithoutRegardToCase) {
    run(u"insert into tempfac (score) values(0.25)"_s);
    Recordset records(*DbConn, u"select score,dno from tempfac");
    EXPECT_EQ(records[u"SCORE"_s].toDouble(), 0.25);
    EXPECT_EQ(raisedBy([&] { records[u"dno"_s].toLong(); }).number, 94);
    EXPECT_NE(raisedBy([&] { records[u"none"_s]; }).number, 0);
    EXPECT_NE(raisedBy([&] { run(u"delete from tempfac; delete from 要因"_s); }).number, 0);
}

// Texts that would end a statement, and a real number whose digits the engine reads a last bit away.
TEST_F(ConnectionTest, ValuesAreStoredWithTheTypeThatTheyAreBoundWith) {
    DbConn->execute(u"create table t (n,m REAL)");
    const QString text = u"it's; drop 耐震 \"%1?\""_s;
    const std::vector<std::pair<Value, QString>> cases{{qint16{-3}, u"integer"_s},
                                                       {qint64{9223372036854775807}, u"integer"_s},
                                                       {0.1673650105354723, u"real"_s},
                                                       {0.2F, u"real"_s},
                                                       {text, u"text"_s},
                                                       {u"12"_s, u"text"_s},
                                                       {Value(), u"null"_s}};
    for (const auto& [value, type] : cases) {
        DbConn->execute(u"insert into t values(?1,?1)", value);
        const Recordset record(*DbConn, u"select n,typeof(n) as type from t");
        EXPECT_EQ(record[u"n"_s], value);
        EXPECT_EQ(record[u"type"_s].toText(), type);
        EXPECT_EQ(readNumber(*DbConn, u"select count(*) from t where n=?", value), value.isNull() ? 0 : 1);
        DbConn->execute(u"delete from t");
    }
    EXPECT_NE(raisedBy([] { DbConn->execute(u"insert into t values(?,?)", 1); }).number, 0);
    EXPECT_EQ(raisedBy([] { DbConn->execute(u"insert into t values(?,?)", 1, std::nan("")); }).number, 6);
}

TEST_F(ConnectionTest, AStatementThatIsKeptLearnsOfChangesOfItsTable) {
    DbConn->execute(u"create table t (n)");
    DbConn->execute(u"insert into t values(?)", 7);
    EXPECT_EQ(Recordset(*DbConn, u"select * from t where n=?", 7).fieldNames(), QStringList{u"n"_s});
    run(u"alter table t add column k default 4"_s);
    const Recordset record(*DbConn, u"select * from t where n=?", 7);
    EXPECT_EQ(record[u"k"_s], Value(4));
    EXPECT_TRUE(raisedBy([this] { run(u"insert into t values(5,'x'"_s); }).description.contains(u"SQL"));
    EXPECT_NE(raisedBy([] { addRecord(*DbConn, u"t"_s, {{u"none"_s, 5}}); }).number, 0);
}

TEST_F(ConnectionTest, AUnitOfWorkIsSeenAtOnceAndBecomesDurableTogether) {
    run(u"insert into workfac (factor) values(1)"_s);
    EXPECT_NE(raisedBy([this] { run(u"insert into nowhere values(2)"_s); }).number, 0);
    run(u"insert into workfac (factor) values(3)"_s);
    EXPECT_EQ(stored(u"select factor from workfac"_s), u"1 3"_s); // an error rolls nothing back
    EXPECT_EQ(onDisk(u"select factor from workfac"_s), QString());
    DbConn->endUnitOfWork();
    EXPECT_EQ(onDisk(u"select factor from workfac"_s), u"1 3"_s);
}

// The commit stands when the journal is gone from its folder, too: only then may anyone be told.
TEST_F(ConnectionTest, WhatWasReportedIsOnTheDisk) {
    run(u"insert into workfac (factor) values(1)"_s);
    const auto commit = diskTrace([] { DbConn->endUnitOfWork(); });
    EXPECT_THAT(commit.mid(commit.lastIndexOf(u"contents"_s)),
                ElementsAre(u"contents"_s, u"removal"_s, u"folder"_s));
    run(u"insert into workfac (factor) values(2)"_s);
    Raised raised;
    diskTrace([&] { raised = raisedBy([] { DbConn->endUnitOfWork(); }); }, 1);
    EXPECT_TRUE(raised.description.contains(u"読み書きに失敗しました"));
    EXPECT_EQ(stored(u"select factor from workfac"_s), u"1"_s);
}

TEST_F(ConnectionTest, AFileThatIsNoLongerUnderItsNameTakesNothingMore) {
    QFile::copy(databasePath(), directory() + u"/other.mdb"_s);
    for (const bool isReplaced : {false, true}) {
        Common::openDatabase(directory());
        QFile::rename(databasePath(), directory() + u"/moved.mdb"_s);
        if (isReplaced) QFile::copy(directory() + u"/other.mdb"_s, databasePath());
        const auto refused = raisedBy([this] {
            run(u"insert into workfac (factor) values(1)"_s);
            DbConn->endUnitOfWork();
        });
        EXPECT_TRUE(refused.description.contains(u"移動、置き換え、または削除されました"))
            << refused.description.toStdString();
        QFile::remove(databasePath());
        QFile::rename(directory() + u"/moved.mdb"_s, databasePath());
    }
}

TEST_F(ConnectionTest, AKillInTheMiddleLeavesTheStateBefore) {
    run(u"insert into workfac (factor) values(1)"_s);
    DbConn->endUnitOfWork();
    run(u"delete from workfac"_s);
    for (int row = 0; row < 5000; ++row) run(u"insert into tempfac (parent) values(%1)"_s.arg(row));
    // Files as a power cut would leave them: whatever has been written so far, nothing closed.
    QDir(directory()).mkpath(u"cut/DB"_s);
    for (const auto& suffix : {u""_s, u"-journal"_s})
        QFile::copy(databasePath() + suffix, directory() + u"/cut/DB/Hollin.mdb"_s + suffix);
    Common::openDatabase(directory() + u"/cut"_s);
    EXPECT_EQ(stored(u"select factor,(select count(*) from tempfac) from workfac"_s), u"1|0"_s);
}
