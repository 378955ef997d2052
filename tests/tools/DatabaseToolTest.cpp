#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <array>

#include "core/Database.h"
#include "evaluation/LocalWeights.h"
#include "evaluation/Synthesis.h"
#include "platform/Connection.h"
#include "platform/Recordset.h"
#include "support/Helpers.h"

using namespace Qt::StringLiterals;

namespace {

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class DatabaseToolTest : public testing::Test {
  protected:
    QString path(const QString& name) const { return folder_.filePath(name); }
    static QString tool() { return qEnvironmentVariable("HOLLIN_DIRECTORY") + u"/hollin-database"_s; }
    static Outcome run(const QStringList& arguments) { return runProgram(tool(), arguments); }

    // Runs "create" in a folder of its own kind of file system; the output ends with the number of files left
    // there.
    Outcome createOnVolume(const QString& mountOptions) {
        QDir(folder_.path()).mkpath(u"volume"_s);
        const QString script =
            u"mount -t tmpfs -o %1 tmpfs %2/volume || exit 99; %3 create %2/volume/a.mdb --sample; code=$?; "
            u"ls -A %2/volume | wc -l; exit $code"_s.arg(mountOptions, folder_.path(), tool());
        return runProgram(u"unshare"_s, {u"-rm"_s, u"sh"_s, u"-c"_s, script});
    }

    void open(Connection& connection, const QString& name) { openDatabaseFile(connection, path(name)); }

    QTemporaryDir folder_;
};

TEST_F(DatabaseToolTest, WrongUsageIsExplainedWithExitCode2) {
    const QString file = path(u"a.mdb"_s);
    const std::array<std::pair<QStringList, QString>, 6> cases{{
        {{}, u"コマンドを指定してください。"_s},
        {{u"remove"_s, file}, u"不明なコマンドです: remove"_s},
        {{u"create"_s}, u"ファイルの数が違います。"_s},
        {{u"backup"_s, file}, u"ファイルの数が違います。"_s},
        {{u"check"_s, file, u"--sample"_s}, u"--sample は create だけで使えます。"_s},
        {{u"create"_s, file, u"--force"_s}, u"不明なオプションです: force"_s},
    }};
    for (const auto& [arguments, message] : cases) {
        const auto outcome = run(arguments);
        EXPECT_EQ(outcome.exitCode, 2) << message.toStdString();
        EXPECT_TRUE(outcome.errors.contains(message)) << outcome.errors.toStdString();
    }
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(DatabaseToolTest, TheDeliveredFileHasOneEvaluatorAndIsNeverOverwritten) {
    const QString file = path(u"a.mdb"_s);
    ASSERT_EQ(run({u"create"_s, file}).exitCode, 0);
    const auto checked = run({u"check"_s, file});
    EXPECT_EQ(checked.exitCode, 0);
    EXPECT_TRUE(checked.output.contains(u"評価者: 1 行"));
    const QByteArray before = bytesOf(file);
    for (const QStringList& arguments :
         {QStringList{u"create"_s, file, u"--sample"_s}, {u"backup"_s, file, file}}) {
        const auto outcome = run(arguments);
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_TRUE(outcome.errors.contains(u"既に存在します"));
    }
    EXPECT_EQ(bytesOf(file), before);
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files), QStringList{u"a.mdb"_s});
}

TEST_F(DatabaseToolTest, WhatIsNoSoundDatabaseIsNeitherPassedNorCopied) {
    ASSERT_EQ(run({u"create"_s, path(u"a.mdb"_s)}).exitCode, 0);
    QFile file(path(u"a.mdb"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(file.size() / 2) && file.write("damaged!") == 8);
    file.close();
    EXPECT_EQ(run({u"check"_s, path(u"a.mdb"_s)}).exitCode, 1);
    EXPECT_EQ(run({u"check"_s, path(u"missing.mdb"_s)}).exitCode, 1);
    EXPECT_EQ(run({u"backup"_s, path(u"a.mdb"_s), path(u"copy.mdb"_s)}).exitCode, 1);
    EXPECT_FALSE(QFile::exists(path(u"copy.mdb"_s)));
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

// The figures were worked out apart from this program: eigenvectors by repeated squaring of the matrices,
// overall weights by walking all paths.
TEST_F(DatabaseToolTest, TheSampleProblemHasOneInconsistentEvaluatorAndASharedFactor) {
    ASSERT_EQ(run({u"create"_s, path(u"a.mdb"_s), u"--sample"_s}).exitCode, 0);
    Connection connection;
    open(connection, u"a.mdb"_s);
    InconsistencyList findings;
    for (qint32 evaluator = 1; evaluator <= 5; ++evaluator)
        ASSERT_EQ(calculateLocalWeights(connection, 1, evaluator, 1, findings), ComparisonData::Present);
    constexpr std::array expected{std::array{4, 12, 32, 35}, std::array{4, 12, 33, 34},
                                  std::array{4, 12, 34, 36}, std::array{4, 12, 35, 37},
                                  std::array{4, 14, -1, -1}};
    ASSERT_EQ(findings.count(), static_cast<int>(expected.size()));
    for (int index = 0; const auto& [evaluator, goal, source, target] : expected) {
        const auto& finding = findings[index++];
        EXPECT_EQ((std::array{finding.evaluatorNo, finding.goalNo, finding.sourceNo, finding.targetNo}),
                  (std::array{evaluator, goal, source, target}));
    }

    constexpr std::array weights{1.3949, 0.3310, 0.3377, 0.6266,
                                 0.7589}; // of factor 30, reached along two paths
    for (qint32 evaluator = 1; evaluator <= 5; ++evaluator) {
        synthesise(connection, 1, evaluator, 1);
        const Recordset shared(
            u"SELECT 評価値,総合評価値 FROM 評価結果 WHERE レベル = 2 AND 子要因番号 = 30 "
            u"AND 評価者番号 = %1"_s.arg(evaluator),
            connection);
        EXPECT_EQ(shared[u"評価値"_s].toDouble(), 2);
        EXPECT_NEAR(shared[u"総合評価値"_s].toDouble(), weights[static_cast<std::size_t>(evaluator - 1)],
                    5e-5);
    }
    EXPECT_EQ(Recordset(u"SELECT * FROM 評価結果 WHERE レベル = 2"_s, connection).recordCount(), 5 * 30);
}

} // namespace
