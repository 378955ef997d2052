#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "core/Database.h"
#include "database/Connection.h"
#include "database/Recordset.h"
#include "files/NewFile.h"
#include "support/Helpers.h"
#include "support/PrintedPages.h"

using namespace Qt::StringLiterals;

// An application directory with the sample problem, and the program at work in it. The user's settings name a
// printer for PDF that is not the programs' business.
class BatchTest : public testing::Test {
  protected:
    BatchTest() {
        for (const auto& folder : {u"DB"_s, u"file"_s}) QDir(folder_.path()).mkpath(folder);
        QDir(folder_.path()).mkpath(u"Hollin"_s);
        writeWholeFile(path(u"Hollin/Hollin.conf"_s), "[Printers]\nPdf=office\n");
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder_.path()));
        const QString programs = qEnvironmentVariable("HOLLIN_DIRECTORY");
        for (const auto& name : {u"errmsg.txt"_s, u"message.txt"_s})
            QFile::copy(programs + u"/file/"_s + name, path(u"file/"_s + name));
        runProgram(programs + u"/hollin-database"_s, {u"create"_s, path(u"DB/Hollin.mdb"_s), u"--sample"_s});
        surround();
    }
    // The same factors and evaluators in another problem and round, with values of 7 and, there, one
    // evaluator more: a statement that forgets to ask for either takes them along.
    void surround() const {
        Connection database;
        openDatabaseFile(database, path(u"DB/Hollin.mdb"_s));
        for (const auto& [problem, round] : {std::pair{98, 1}, {1, 9}}) {
            database.execute(
                u"insert into 一対比較 select ?,目的要因番号,比較元要因番号,比較対象要因番号,評価者番号,?,"
                "'',比較表示順,7 from 一対比較 where 課題番号=1 and 比較回数=1",
                problem, round);
            database.execute(
                u"insert into 評価結果 select 課題番号,目的要因番号,比較元要因番号,評価者番号,"
                "比較回数,7,2,7 from 一対比較 where 比較値=7 and 課題番号=? and 比較回数=?",
                problem, round);
        }
        for (const Sql other :
             {Sql(u"insert into 要因構成 select 98,子要因番号,親要因番号,子要因表示順,'0' from 要因構成"),
              Sql(u"insert into 課題 values(98,0,9,9,9)"),
              Sql(u"insert into 要因 values(98,0,'他の課題','')"),
              Sql(u"insert into 評価者 values(99,'他の評価者','')"),
              Sql(u"insert into 課題評価者 values(98,99,''),(98,2,'')")})
            database.execute(other);
        database.endUnitOfWork();
    }
    QString path(const QString& name) const { return folder_.filePath(name); }
    Outcome run(const QString& arguments) const {
        return runProgram(
            qEnvironmentVariable("HOLLIN_DIRECTORY") + u"/hollin-batch"_s,
            QStringList{u"--directory"_s, folder_.path()} + arguments.split(u' ', Qt::SkipEmptyParts));
    }
    // The screens whose documents were written, in order; each line names a file that is there.
    static QString screens(const Outcome& outcome) {
        QStringList names;
        for (const auto& line : outcome.output.split(u'\n', Qt::SkipEmptyParts)) {
            EXPECT_TRUE(QFile::exists(line)) << line.toStdString();
            const auto parts = line.section(u'/', -1).split(u'_');
            names << parts[parts.size() > 4 ? 1 : 0]; // behind the evaluator, where there is one
        }
        return names.join(u' ');
    }

  private:
    QTemporaryDir folder_;
};

TEST_F(BatchTest, RefusalsAreExplainedWithExitCodes) {
    const struct {
        int exitCode;
        QString arguments;
        QString message;
    } cases[] = {
        {2, {}, u"課題番号を一つ指定してください。"_s},
        {2, u"1 2"_s, u"課題番号を一つ指定してください。"_s},
        {2, u"x"_s, u"「x」は番号ではありません。"_s},
        {2, u"1 --print 最終結果"_s, u"「最終結果」という報告書はありません。"_s},
        {2, u"1 --import"_s, u"読み込むファイルを指定してください。"_s},
        {2, u"1 a.csv --import --round 1"_s, u"--round は指定できません。"_s},
        {1, u"9"_s, u"課題 9 は登録されていません。"_s},
        {1, u"1 --evaluator 77"_s, u"課題評価者 77 は登録されていません。"_s},
        {1, u"1 --round 2 --calculate"_s, u"は一対比較に存在しません"_s},
        {1, u"1 --print 個人結果"_s, u"は評価結果に存在しません"_s},
        {1, u"1 --coefficients"_s, u"選択された課題、評価回数の評価結果が存在しません。"_s},
    };
    for (const auto& [exitCode, arguments, message] : cases) {
        const auto outcome = run(arguments);
        EXPECT_EQ(outcome.exitCode, exitCode) << message.toStdString();
        EXPECT_EQ(outcome.output, QString());
        EXPECT_TRUE(outcome.errors.contains(message)) << outcome.errors.toStdString();
    }
    // Behind the first line, which has the program's path.
    EXPECT_FALSE(
        run(u"--help"_s).output.section(u'\n', 1).contains(QRegularExpression(u"[A-Z][a-z]|[a-z] [a-z]"_s)));
    QFile::remove(path(u"DB/Hollin.mdb"_s));
    EXPECT_TRUE(run(u"1"_s).errors.contains(u"データベースのファイルが見つかりません。"));
}

TEST_F(BatchTest, EverythingIsDoneInOrderWhenNothingIsNamed) {
    const auto outcome = run(u"1"_s);
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors.toStdString();
    EXPECT_EQ(outcome.errors.count(u"評価結果 5 / 5 名\n"), 1); // once for all that is made of them
    EXPECT_EQ(screens(outcome), u"評価計算 "_s + u"個人結果 "_s.repeated(5) + u"報告作成 "_s.repeated(5) +
                                    u"分析出力 防災・減災事業の優先順位.csv"_s);
    // The one who contradicts herself, with four pairs and one goal as a whole.
    const auto pages = printedPages(outcome.output.section(u'\n', 0, 0));
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(pages[0].word(u"全体的に不整合"_s).text, u"全体的に不整合"_s);
    // The figures are drawn when they are asked for, in one document.
    EXPECT_EQ(screens(run(u"1 --figures"_s)), u"図"_s);
}

TEST_F(BatchTest, NamedEvaluatorsAndActionsOnly) {
    EXPECT_EQ(screens(run(u"1 --calculate --evaluator 2"_s)), QString());
    // Named twice, an evaluator is still calculated once.
    EXPECT_EQ(screens(run(u"1 --calculate --evaluator 4 --evaluator 04"_s)), u"評価計算"_s);
    Connection database;
    openDatabaseFile(database, path(u"DB/Hollin.mdb"_s));
    EXPECT_EQ(Recordset(database, u"select * from 評価結果 where 評価者番号=4 and 評価値<>7").recordCount(),
              75);
    // Worked out apart from this program, along the two paths to the shared factor.
    const Recordset shared(
        database, u"select * from 評価結果 where レベル=2 and 子要因番号=30 and 評価者番号=4 and 評価値<>7");
    EXPECT_NEAR(shared[u"総合評価値"_s].toDouble(), 0.6266, 5e-5);
    EXPECT_EQ(screens(run(u"1 --evaluator 2 --print 分析出力 --print 個人結果"_s)), u"個人結果 分析出力"_s);
}

TEST_F(BatchTest, AnswersComeInFromFilesAndReplaceOthersOnlyWhenAsked) {
    const QString form = path(u"form.csv"_s);
    QFile::rename(run(u"1 --answer-texts --evaluator 2"_s).output.trimmed(), form);
    auto text = QString::fromUtf8(bytesOf(form));
    static const QRegularExpression unanswered(u"(\n\\d+,\\d+,[^,]+),,"_s);
    const QString answered = path(u"answered.csv"_s);
    writeWholeFile(answered, text.replace(unanswered, u"\\1,同じ,"_s).toUtf8());

    const auto refused = run(u"1 --import %1 %2"_s.arg(form, answered));
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.output, QString());
    EXPECT_TRUE(refused.errors.contains(form + u": 回答が揃った目的要因がないため"_s))
        << refused.errors.toStdString();
    EXPECT_TRUE(refused.errors.contains(u"の以前の回答（15 目的）があるため登録しませんでした。"_s));

    EXPECT_EQ(run(u"1 --import %1 --replace"_s.arg(answered)).output, answered + u'\n');
    Connection database;
    openDatabaseFile(database, path(u"DB/Hollin.mdb"_s));
    EXPECT_EQ(readNumber(database, u"select count(*) from 一対比較 where 評価者番号=2 and 比較値=1"), 56);
    EXPECT_EQ(readNumber(database, u"select count(*) from 一対比較 where 評価者番号=2"), 3 * 56);
}

TEST_F(BatchTest, OnlyWorksThatTakeEvaluatorsAskForAtMost101) {
    ASSERT_EQ(run(u"1 --calculate"_s).exitCode, 0);
    Connection database;
    openDatabaseFile(database, path(u"DB/Hollin.mdb"_s));
    for (int number = 101; number <= 202; ++number)
        database.execute(u"insert into 評価者 values(?,'他','')", number);
    database.execute(u"insert into 課題評価者 select 1,評価者番号,'' from 評価者 where 評価者番号>100");
    database.close();
    for (const auto& works :
         {u"1 --coefficients"_s, u"1 --print 分析出力 --figures"_s, u"1 --calculate --evaluator 1"_s}) {
        const auto outcome = run(works);
        EXPECT_EQ(outcome.exitCode, 0) << works.toStdString() << outcome.errors.toStdString();
    }
    const auto refused = run(u"1 --calculate"_s);
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.errors.contains(u"--evaluator")) << refused.errors.toStdString();
}
