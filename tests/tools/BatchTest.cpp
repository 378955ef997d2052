#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "core/Database.h"
#include "platform/Connection.h"
#include "platform/Recordset.h"
#include "support/PrintedPages.h"
#include "support/Helpers.h"

using namespace Qt::StringLiterals;

namespace {

// An application directory with the sample problem, and the program at work in it.
class BatchTest : public testing::Test {
  protected:
    BatchTest() {
        QDir(path(u""_s)).mkpath(u"DB"_s);
        QDir(path(u""_s)).mkpath(u"file"_s);
        const QString programs = qEnvironmentVariable("HOLLIN_DIRECTORY");
        for (const auto& name : {u"errmsg.txt"_s, u"message.txt"_s})
            QFile::copy(programs + u"/file/"_s + name, path(u"file/"_s + name));
        runProgram(programs + u"/hollin-database"_s, {u"create"_s, path(u"DB/Hollin.mdb"_s), u"--sample"_s});
    }
    QString path(const QString& name) const { return folder_.filePath(name); }
    Outcome run(const QStringList& arguments) const {
        return runProgram(qEnvironmentVariable("HOLLIN_DIRECTORY") + u"/hollin-batch"_s,
                          QStringList{u"--directory"_s, folder_.path()} + arguments);
    }
    // The screens whose documents were written, in order; each line names a file that is there.
    static QStringList screens(const Outcome& outcome) {
        QStringList names;
        for (const auto& line : outcome.output.split(u'\n', Qt::SkipEmptyParts)) {
            EXPECT_TRUE(QFile::exists(line)) << line.toStdString();
            names << line.section(u'/', -1).section(u'_', 0, 0);
        }
        return names;
    }

  private:
    QTemporaryDir folder_;
};

TEST_F(BatchTest, WrongUsageIsExplainedWithExitCode2) {
    for (const auto& [arguments, message] : std::initializer_list<std::pair<QStringList, QString>>{
             {{}, u"課題番号を一つ指定してください。"_s},
             {{u"1"_s, u"2"_s}, u"課題番号を一つ指定してください。"_s},
             {{u"x"_s}, u"「x」は番号ではありません。"_s},
             {{u"1"_s, u"--print"_s, u"最終結果"_s}, u"「最終結果」という報告書はありません。"_s},
         }) {
        const auto outcome = run(arguments);
        EXPECT_EQ(outcome.exitCode, 2);
        EXPECT_TRUE(outcome.errors.contains(message)) << outcome.errors.toStdString();
    }
}

TEST_F(BatchTest, WhatIsRefusedEndsWithExitCode1) {
    for (const auto& [arguments, message] : std::initializer_list<std::pair<QStringList, QString>>{
             {{u"9"_s}, u"課題 9 は登録されていません。"_s},
             {{u"1"_s, u"--evaluator"_s, u"77"_s}, u"課題評価者 77 は登録されていません。"_s},
             {{u"1"_s, u"--round"_s, u"2"_s, u"--calculate"_s}, u"は一対比較に存在しません"_s},
             {{u"1"_s, u"--print"_s, u"個人結果"_s}, u"は評価結果に存在しません"_s},
             {{u"1"_s, u"--coefficients"_s}, u"選択された課題、評価回数の評価結果が存在しません。"_s},
         }) {
        const auto outcome = run(arguments);
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_EQ(outcome.output, QString());
        EXPECT_TRUE(outcome.errors.contains(message)) << outcome.errors.toStdString();
    }
    QFile::remove(path(u"DB/Hollin.mdb"_s));
    EXPECT_TRUE(run({u"1"_s}).errors.contains(u"データベースのファイルが見つかりません。"));
}

TEST_F(BatchTest, EverythingIsDoneInOrderWhenNothingIsNamed) {
    const auto outcome = run({u"1"_s});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors.toStdString();
    const QStringList all = QStringList{u"評価計算"_s} + QStringList(5, u"個人結果"_s) +
                            QStringList(5, u"報告作成"_s) +
                            QStringList{u"分析出力"_s, u"防災・減災事業の優先順位.csv"_s};
    EXPECT_EQ(screens(outcome), all);
    // The one who contradicts herself, with four pairs and one goal as a whole.
    const auto pages = printedPages(outcome.output.section(u'\n', 0, 0));
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(pages[0].word(u"全体的に不整合"_s).text, u"全体的に不整合"_s);
}

TEST_F(BatchTest, NamedEvaluatorsAndActionsOnly) {
    EXPECT_EQ(screens(run({u"1"_s, u"--calculate"_s, u"--evaluator"_s, u"2"_s})), QStringList());
    // Named twice, an evaluator is still calculated once.
    EXPECT_EQ(screens(run({u"1"_s, u"--calculate"_s, u"--evaluator"_s, u"4"_s, u"--evaluator"_s, u"04"_s})),
              QStringList{u"評価計算"_s});
    Connection database;
    openDatabaseFile(database, path(u"DB/Hollin.mdb"_s));
    EXPECT_EQ(Recordset(u"select * from 評価結果 where 評価者番号=4"_s, database).recordCount(), 75);
    EXPECT_EQ(screens(run({u"1"_s, u"--evaluator"_s, u"2"_s, u"--print"_s, u"分析出力"_s, u"--print"_s,
                           u"個人結果"_s})),
              (QStringList{u"個人結果"_s, u"分析出力"_s}));
}

} // namespace
