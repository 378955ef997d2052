// The database adapter: opening, records, and the unit of work.
#include <unistd.h>

#include <QFile>

#include "core/Database.h"
#include "platform/Recordset.h"
#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;
using Common::DbConn;

class ConnectionTest : public ScreenTest {
  protected:
    QString databasePath() const { return directory() + u"/DB/Hollin.mdb"_s; }

    // The description of the error, empty when there was none.
    static QString errorOf(const std::function<void()>& body) {
        try {
            body();
        } catch (const RuntimeError& error) {
            return error.description();
        }
        return {};
    }
    QString openWith(const QString& path, const QString& password) {
        Connection connection;
        return errorOf([&] { openDatabaseFile(connection, path, password); });
    }
    // What another program sees on the disk.
    QStringList stored(const QString& sql) {
        auto seen = std::make_unique<Connection>();
        openDatabaseFile(*seen, databasePath());
        std::swap(seen, DbConn);
        const auto records = rows(sql);
        std::swap(seen, DbConn);
        return records;
    }
};

TEST_F(ConnectionTest, TheConnectionStringIsComposedAsDelivered) {
    EXPECT_EQ(DbConn->connectionString(), u"Data Provider=Microsoft.Jet.OLEDB.4.0; Data Source="_s +
                                              directory() +
                                              u"\\DB\\Hollin.mdb;Persist Security Info=False;"
                                              "Jet OLEDB:Database Password=tobul"_s);
}

TEST_F(ConnectionTest, WhatIsNoDatabaseIsToldInJapanese) {
    EXPECT_EQ(openWith(databasePath(), databasePassword), QString());
    EXPECT_TRUE(openWith(directory() + u"/DB/none.mdb"_s, databasePassword).contains(u"見つかりません"));
    EXPECT_TRUE(openWith(databasePath(), u"other"_s).contains(u"パスワードが違います"));

    const QString text = directory() + u"/DB/text.mdb"_s;
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(8192, 'x'));
    file.close();
    EXPECT_TRUE(openWith(text, databasePassword).contains(u"データベースのファイルではない"));
    file.resize(0);
    EXPECT_TRUE(openWith(text, databasePassword).contains(u"空です"));

    // A folder with the separator of connection strings in its name.
    QDir(directory()).mkpath(u"a;b"_s);
    QFile::copy(databasePath(), directory() + u"/a;b/c.mdb"_s);
    EXPECT_EQ(openWith(directory() + u"/a;b/c.mdb"_s, databasePassword), QString());
}

TEST_F(ConnectionTest, RecordsAreReadByNameWithoutRegardToCase) {
    run(u"insert into tempfac (parent,child,score) values(1,2,0.25)"_s);
    Recordset records(u"select parent,child,score,dno,'字' as Text from tempfac"_s, *DbConn);
    EXPECT_EQ(records.recordCount(), 1);
    EXPECT_EQ(records[u"Parent"_s].toLong(), 1);
    EXPECT_EQ(records[u"SCORE"_s].toDouble(), 0.25);
    EXPECT_EQ(records[u"text"_s].toText(), u"字"_s);
    EXPECT_TRUE(records[u"dno"_s].isNull());
    EXPECT_TRUE(errorOf([&] { records[u"dno"_s].toLong(); }).contains(u"Null"));
    EXPECT_FALSE(errorOf([&] { records[u"none"_s]; }).isEmpty());
    records.moveNext();
    EXPECT_TRUE(records.eof());
    EXPECT_FALSE(errorOf([&] { records[u"Parent"_s]; }).isEmpty());
    EXPECT_FALSE(errorOf([&] { DbConn->execute(u"delete from tempfac; delete from 要因"_s); }).isEmpty());
    EXPECT_EQ(rows(u"select * from tempfac"_s).size(), 1);
}

TEST_F(ConnectionTest, AUnitOfWorkIsSeenAtOnceAndBecomesDurableTogether) {
    DbConn->execute(u"insert into workfac (factor) values(1)"_s);
    EXPECT_FALSE(errorOf([] { DbConn->execute(u"insert into nowhere values(2)"_s); }).isEmpty());
    DbConn->execute(u"insert into workfac (factor) values(3)"_s);
    EXPECT_EQ(rows(u"select factor from workfac"_s),
              (QStringList{u"1"_s, u"3"_s})); // an error rolls nothing back
    EXPECT_EQ(stored(u"select factor from workfac"_s), QStringList());
    DbConn->endUnitOfWork();
    EXPECT_EQ(stored(u"select factor from workfac"_s), (QStringList{u"1"_s, u"3"_s}));
}

TEST_F(ConnectionTest, AKillInTheMiddleLeavesTheStateBefore) {
    run(u"insert into workfac (factor) values(1)"_s);
    DbConn->endUnitOfWork();
    DbConn->execute(u"delete from workfac"_s);
    for (int row = 0; row < 5000; ++row)
        DbConn->execute(u"insert into tempfac (parent) values(%1)"_s.arg(row));
    // Files as a power cut would leave them: whatever has been written so far, nothing closed.
    QDir(directory()).mkpath(u"cut/DB"_s);
    QFile::copy(databasePath(), directory() + u"/cut/DB/Hollin.mdb"_s);
    QFile::copy(databasePath() + u"-journal"_s, directory() + u"/cut/DB/Hollin.mdb-journal"_s);
    Common::openDatabase(directory() + u"/cut"_s);
    EXPECT_EQ(rows(u"select factor from workfac"_s), QStringList{u"1"_s});
    EXPECT_EQ(rows(u"select count(*) from tempfac"_s), QStringList{u"0"_s});
}
