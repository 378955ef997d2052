#include <gtest/gtest.h>
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>

#include "core/Database.h"
#include "core/Schema.h"
#include "database/Connection.h"
#include "database/Recordset.h"
#include "files/NewFile.h"
#include "support/Helpers.h"

using namespace Qt::StringLiterals;

class DatabaseToolTest : public testing::Test {
  protected:
    QString path(const QString& name) const { return folder_.filePath(name); }
    static QString tool() { return qEnvironmentVariable("HOLLIN_DIRECTORY") + u"/hollin-database"_s; }
    // Words of the command line; those that end in ".mdb" are files of the test's folder.
    Outcome run(const QString& words) const {
        QStringList arguments = words.split(u' ', Qt::SkipEmptyParts);
        for (auto& argument : arguments)
            if (argument.endsWith(u".mdb")) argument = path(argument);
        return runProgram(tool(), arguments);
    }

    // Runs "create" in a folder of its own kind of file system; the output ends with the number of files left
    // there.
    Outcome createOnVolume(const QString& mountOptions) {
        QDir(folder_.path()).mkpath(u"volume"_s);
        const QString script =
            u"mount -t tmpfs -o %1 tmpfs %2/volume || exit 99; %3 create %2/volume/a.mdb --sample; code=$?; "
            u"ls -A %2/volume | wc -l; exit $code"_s.arg(mountOptions, folder_.path(), tool());
        return runProgram(u"unshare"_s, {u"-rm"_s, u"sh"_s, u"-c"_s, script});
    }

    QTemporaryDir folder_;
};

TEST_F(DatabaseToolTest, RefusalsAreExplainedWithExitCodesAndChangeNothing) {
    ASSERT_EQ(run(u"create a.mdb"_s).exitCode, 0);
    EXPECT_TRUE(run(u"check a.mdb"_s).output.contains(u"評価者: 1 行"));
    QByteArray damaged = bytesOf(path(u"a.mdb"_s));
    damaged.replace(damaged.size() / 2, 8, "damaged!");
    writeWholeFile(path(u"damaged.mdb"_s), damaged);
    writeWholeFile(path(u"crashed.mdb-journal"_s), "left behind");
    const QString lacking = path(u"lacking.mdb"_s);
    QFile::copy(path(u"a.mdb"_s), lacking);
    Connection connection;
    openDatabaseFile(connection, lacking);
    connection.execute(u"DROP TABLE 総合係数");
    connection.close();
    const QStringList files = QDir(folder_.path()).entryList(QDir::Files);
    const QByteArray before = bytesOf(path(u"a.mdb"_s));
    const struct {
        int exitCode;
        QString arguments;
        QString message;
    } cases[] = {
        {2, {}, u"コマンドを指定してください。"_s},
        {2, u"remove a.mdb"_s, u"不明なコマンドです: remove"_s},
        {2, u"create"_s, u"ファイルの数が違います。"_s},
        {2, u"backup a.mdb"_s, u"ファイルの数が違います。"_s},
        {2, u"check a.mdb --sample"_s, u"--sample は create だけで使えます。"_s},
        {2, u"create b.mdb --force"_s, u"不明なオプションです: force"_s},
        {1, u"create a.mdb --sample"_s, u"既に存在します"_s},
        {1, u"backup a.mdb a.mdb"_s, u"既に存在します"_s},
        {1, u"check damaged.mdb"_s, u"誤りがあります: %1\n"_s.arg(path(u"damaged.mdb"_s))},
        {1, u"backup damaged.mdb copy.mdb"_s,
         u"データベースの控えを作れません。\n%1 → %2"_s.arg(path(u"damaged.mdb"_s), path(u"copy.mdb"_s))},
        {1, u"check lacking.mdb"_s, u"誤りがあります: %1\n表「総合係数」がありません。"_s.arg(lacking)},
        {1, u"backup lacking.mdb copy.mdb"_s, u"表「総合係数」がありません。"_s},
        {1, u"create crashed.mdb"_s, u"異常終了で残った記録"_s},
        {1, u"backup a.mdb crashed.mdb"_s, u"異常終了で残った記録"_s},
        {1, u"check missing.mdb"_s, u"ファイルが見つかりません。"_s},
    };
    for (const auto& [exitCode, arguments, message] : cases) {
        const auto outcome = run(arguments);
        EXPECT_EQ(outcome.exitCode, exitCode) << arguments.toStdString();
        EXPECT_TRUE(outcome.errors.contains(message)) << outcome.errors.toStdString();
    }
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files), files);
    EXPECT_EQ(bytesOf(path(u"a.mdb"_s)), before);
}

// A kill before the journal is whole leaves one that means nothing; the copy that takes the name must not
// wait for it.
TEST_F(DatabaseToolTest, ACopyTakesThePlaceOfADatabaseWhoseProgramWasKilled) {
    ASSERT_EQ(run(u"create a.mdb"_s).exitCode, 0);
    ASSERT_EQ(run(u"backup a.mdb copy.mdb"_s).exitCode, 0);
    const QString file = path(u"a.mdb"_s);
    const QString journal = file + u"-journal"_s;
    for (const auto& cold : {QByteArray(), QByteArray(512, '\0') + "pages"}) {
        writeWholeFile(journal, cold);
        Connection busy;
        openDatabaseFile(busy, file);
        const Recordset open(busy, u"SELECT * FROM 評価者");
        EXPECT_EQ(run(u"check a.mdb"_s).exitCode, 0);
        EXPECT_FALSE(QFile::exists(journal));
        writeWholeFile(journal, cold);
        writeWholeFile(path(u".hollin-Killed"_s), "half a copy");
        QFile::remove(path(u"old.mdb"_s));
        ASSERT_TRUE(QFile::rename(file, path(u"old.mdb"_s)));
        EXPECT_EQ(run(u"backup copy.mdb a.mdb"_s).errors, QString());
        EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden),
                  (QStringList{u"a.mdb"_s, u"copy.mdb"_s, u"old.mdb"_s}));
    }
}

TEST_F(DatabaseToolTest, LaterVersionsAreRefusedAndEarlierOnesBroughtUpToDate) {
    ASSERT_EQ(run(u"create a.mdb"_s).exitCode, 0);
    const auto mark = [this](Sql version) {
        Connection connection;
        openDatabaseFile(connection, path(u"a.mdb"_s));
        connection.execute(version);
    };
    EXPECT_TRUE(run(u"upgrade a.mdb b.mdb"_s).output.contains(u"変えるものはありません"));
    EXPECT_FALSE(QFile::exists(path(u"b.mdb"_s)));
    mark(u"PRAGMA user_version = 0");
    EXPECT_EQ(run(u"check a.mdb"_s).exitCode, 0);
    EXPECT_TRUE(run(u"upgrade a.mdb b.mdb"_s).output.contains(path(u"b.mdb"_s)));
    EXPECT_TRUE(run(u"upgrade b.mdb c.mdb"_s).output.contains(u"変えるものはありません"));
    mark(u"PRAGMA user_version = 2");
    for (const auto& command : {u"check a.mdb"_s, u"backup a.mdb d.mdb"_s, u"upgrade a.mdb d.mdb"_s}) {
        const auto outcome = run(command);
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_TRUE(outcome.errors.contains(u"もっと新しい版の Hollin")) << outcome.errors.toStdString();
    }
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden),
              (QStringList{u"a.mdb"_s, u"b.mdb"_s}));
}

TEST_F(DatabaseToolTest, SamplesAreEqualRowForRow) {
    QStringList samples[2];
    for (auto& sample : samples) {
        const QString file = path(QString::number(&sample - samples) + u".mdb"_s);
        ASSERT_EQ(runProgram(tool(), {u"create"_s, file, u"--sample"_s}).exitCode, 0);
        Connection connection;
        openDatabaseFile(connection, file);
        for (const auto& table : schemaTables())
            for (Recordset rows(connection, SchemaSql{u"SELECT * FROM "_s + table.name}); !rows.eof();
                 rows.moveNext())
                for (const auto& column : table.columns) sample << rows[column].toText();
    }
    EXPECT_GT(samples[0].size(), 1000);
    EXPECT_EQ(samples[0], samples[1]);
}

TEST_F(DatabaseToolTest, WhoLacksThePermissionIsToldSo) {
    ASSERT_EQ(run(u"create a.mdb"_s).exitCode, 0);
    const QString hint = u"フォルダーとファイルの権限を確かめてください。"_s;
    // The administrator may do everything, unless the process gives that up.
    QStringList check{u"--bounding-set=-all"_s, tool(), u"check"_s, path(u"a.mdb"_s)};
    if (::geteuid() != 0) check = {u"--no-new-privs"_s, tool(), u"check"_s, path(u"a.mdb"_s)};
    QFile::setPermissions(path(u"a.mdb"_s), {});
    EXPECT_TRUE(runProgram(u"setpriv"_s, check).errors.contains(u"開けません。"_s + hint));
    QFile::setPermissions(folder_.path(), {});
    EXPECT_TRUE(runProgram(u"setpriv"_s, check).errors.contains(hint));
    QFile::setPermissions(folder_.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(DatabaseToolTest, AFullDiskOrAReadOnlyFolderLeavesNoFile) {
    if (runProgram(u"unshare"_s, {u"-rm"_s, u"true"_s}).exitCode != 0)
        GTEST_SKIP() << "no user namespaces here";
    const auto full = createOnVolume(u"size=32k"_s);
    EXPECT_EQ(full.exitCode, 1);
    EXPECT_TRUE(full.errors.contains(u"ディスクの空き容量が足りません。")) << full.errors.toStdString();
    EXPECT_EQ(full.output.trimmed(), u"0"_s);
    const auto readOnly = createOnVolume(u"ro"_s);
    EXPECT_EQ(readOnly.exitCode, 1);
    EXPECT_TRUE(readOnly.errors.contains(u"ファイルを作成できません。")) << readOnly.errors.toStdString();
    EXPECT_EQ(createOnVolume(u"size=1m"_s).exitCode, 0);
}
