#include "database/DatabaseFile.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "core/Database.h"
#include "database/Connection.h"
#include "database/Recordset.h"
#include "files/NewFile.h"
#include "support/Helpers.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

const QString password = u"合言葉 secret"_s;

bool isReportedDamaged(const QString& path) {
    QStringList faults;
    return raisedBy([&] { faults = databaseFaults(path, password); }).number != 0 || !faults.isEmpty();
}

class DatabaseFileTest : public testing::Test {
  protected:
    QString path(const QString& name) const { return folder_.filePath(name); }

    // A database of some pages, with a text that would be found in a file that is not encrypted.
    QString filledDatabase() {
        createEncryptedDatabase(path(u"a.mdb"_s), password);
        Connection connection;
        openDatabaseFile(connection, path(u"a.mdb"_s), password);
        connection.execute(u"CREATE TABLE 要因 (要因名 TEXT)");
        for (int row = 0; row < 300; ++row)
            connection.execute(u"INSERT INTO 要因 VALUES ('耐震補強 SECRET')");
        connection.close();
        return path(u"a.mdb"_s);
    }

    QTemporaryDir folder_;
};

TEST_F(DatabaseFileTest, IsUnreadableWithoutThePasswordAndBelongsToItsOwnerAlone) {
    const QString file = filledDatabase();
    const QByteArray bytes = bytesOf(file);
    for (const auto& plain : {"SQLite format 3"_ba, "SECRET"_ba, u"要因"_s.toUtf8(), password.toUtf8()})
        EXPECT_FALSE(bytes.contains(plain)) << plain.constData();
    EXPECT_EQ(QFile::permissions(file) & ~QFile::Permissions(QFile::ReadUser | QFile::WriteUser),
              QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_TRUE(databaseFaults(file, password).isEmpty());
    EXPECT_THROW(databaseFaults(file, u"合言葉"_s), RuntimeError);
    EXPECT_THROW(createEncryptedDatabase(file, password), RuntimeError);
    EXPECT_EQ(bytesOf(file), bytes);
}

TEST_F(DatabaseFileTest, OneChangedBitInAnyPageIsFound) {
    const QByteArray sound = bytesOf(filledDatabase());
    constexpr qsizetype page = 1024;
    ASSERT_GT(sound.size(), 8 * page);
    const QString damaged = path(u"damaged.mdb"_s);
    for (qsizetype at = page / 2; at < sound.size(); at += page) {
        QByteArray bytes = sound;
        bytes[at] = static_cast<char>(bytes[at] ^ 1);
        writeWholeFile(damaged, bytes);
        EXPECT_TRUE(isReportedDamaged(damaged)) << "byte " << at;
    }
    writeWholeFile(damaged, sound.left(sound.size() - 3 * page));
    EXPECT_TRUE(isReportedDamaged(damaged)) << "cut off";
}

TEST_F(DatabaseFileTest, ACopyHoldsWhatIsDurableWhileTheProgramWrites) {
    const QString file = filledDatabase();
    Connection program;
    openDatabaseFile(program, file, password);
    program.execute(u"DELETE FROM 要因"); // not yet the end of the unit of work
    NewFile copy(path(u"copy.mdb"_s));
    copyDatabase(file, copy, password);
    copy.publish();
    EXPECT_FALSE(bytesOf(path(u"copy.mdb"_s)).contains("SECRET"));
    Connection connection;
    openDatabaseFile(connection, path(u"copy.mdb"_s), password);
    EXPECT_EQ(Recordset(connection, u"SELECT * FROM 要因").recordCount(), 300);
}

// Made by the command line tools of the library's two generations, each with its own defaults.
TEST_F(DatabaseFileTest, FilesOfBothGenerationsOpenAndTheirCopiesOpenEverywhere) {
    Connection connection;
    openDatabaseFile(connection, filledDatabase(), password);
    const bool isLater =
        Recordset(connection, u"PRAGMA cipher_version")[u"cipher_version"_s].toText() >= u"4"_s;
    const auto firstName = [](const QString& file) {
        Connection opened;
        openDatabaseFile(opened, file, password);
        return Recordset(opened, u"SELECT 要因名 FROM 要因")[u"要因名"_s].toText();
    };
    for (const auto& [generation, opens] : {std::pair{3, true}, {4, isLater}}) {
        const QString file = path(u"generation-%1.mdb"_s.arg(generation));
        ASSERT_TRUE(
            QFile::copy(u"%1/generation-%2.mdb"_s.arg(QStringLiteral(TEST_DATA)).arg(generation), file));
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
        if (!opens) {
            EXPECT_THROW(firstName(file), RuntimeError);
            continue;
        }
        EXPECT_EQ(firstName(file), u"耐震補強"_s);
        NewFile copy(file + u".copy"_s);
        copyDatabase(file, copy, password);
        EXPECT_EQ(firstName(copy.temporaryPath()), u"耐震補強"_s);
        EXPECT_EQ(bytesOf(copy.temporaryPath()).size(), 2 * 1024)
            << "not in the pages of the first generation";
    }
}

} // namespace
