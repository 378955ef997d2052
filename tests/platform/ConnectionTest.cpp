// The database adapter: opening, records, and the unit of work.
#include <QDir>
#include <QFile>

#include "core/Database.h"
#include "platform/Recordset.h"
#include "platform/TextFile.h"
#include "support/Helpers.h"
#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;
using Common::DbConn;

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
    Recordset records(u"select score,dno from tempfac"_s, *DbConn);
    EXPECT_EQ(records[u"SCORE"_s].toDouble(), 0.25);
    EXPECT_EQ(raisedBy([&] { records[u"dno"_s].toLong(); }).number, 94);
    EXPECT_NE(raisedBy([&] { records[u"none"_s]; }).number, 0);
    EXPECT_NE(raisedBy([&] { run(u"delete from tempfac; delete from 要因"_s); }).number, 0);
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
