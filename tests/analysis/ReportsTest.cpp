// Group report, analysis and coefficients, read back from documents, tables and file. The figures were worked
// out with an eigenvector routine of another tool from the comparisons of the fixture.
#include "analysis/VariationGrade.h"
#include "rounds/RoundSelection.h"
#include "support/Desktop.h"
#include "support/Helpers.h"
#include "support/RoundTest.h"

#include <QListWidget>
#include <QRegularExpression>
#include <QTableWidget>
#include <QTimer>
#include <cmath>
#include <numeric>

#include "widgets/ElidedLabel.h"

using namespace Common;

const QString group = u"報告作成"_s;
const QString analysis = u"分析出力"_s;
const QString final = u"最終結果"_s;

class ReportsTest : public RoundTest {
  protected:
    // A problem whose only level has one leaf, and what the evaluators 2, 5 and 7 think of it.
    void singleLeaf(const QList<double>& weights) {
        run(u"delete from 要因構成"_s);
        structure(u"1:11"_s);
        run(u"delete from 評価結果"_s);
        for (int i = 0; i < weights.size(); ++i) result(11, QList{2, 5, 7}[i], weights[i]);
    }
    void result(int factor, int evaluator, double weight) {
        run(u"insert into 評価結果 values(1,1,%1,%2,1,%3,1,%3),(1,1,%1,%2,1,1,2,%3),"
            "(2,1,%1,%2,1,%3*9,1,9),(1,1,%1,%2,9,%3*9,1,9)"_s.arg(factor)
                .arg(evaluator)
                .arg(weight));
    }
    // The text of the only message of a report.
    QString failure(const QString& screen, const QList<int>& evaluatorRows = {}) {
        const auto messages = report(screen, evaluatorRows);
        return messages.size() == 1 ? messages[0].text : QString();
    }
    QByteArray file(const QString& name) const { return bytesOf(directory() + u"/file/"_s + name); }
};

TEST_F(ReportsTest, TheGroupReportSetsTheEvaluatorBesideTheGroup) {
    EXPECT_EQ(report(group, {0, 1}), notice(group, u" 印刷終了"_s));
    EXPECT_EQ(documents().size(), 2);
    EXPECT_EQ(text(group, u"device"), u"→ いきなりPDF 2"_s);
    EXPECT_EQ(text(group, u"Status"),
              u"2 名：PDF 2 件を作成しました。フォルダーを表示するプログラムがありません。（%1/file）"_s.arg(
                  directory()));
    EXPECT_TRUE(control(group, u"folder")->isVisible());
    EXPECT_EQ(printedRows(u"評価者5_報告作成_候補地の選定_1回目_"_s),
              u"評価者5様:候補地の選定:1 / 候補地の選定（1回） / あなた 全体 / "
              "目的要因 要因 評価値 順位 最小値 最大値 算術平均 幾何平均 / "
              "候補地の選定 費用 0.8736 2 0.3816 1.0000 0.7517 0.6934 / "
              "候補地の選定 環境 1.0000 1 0.3029 1.0000 0.7255 0.6420 / "
              "候補地の選定 広さ 0.3816 3 0.3816 1.0000 0.6440 0.5944 / "
              "費用 建設費 0.2500 3 0.2500 1.0000 0.7500 0.6300 / "
              "費用 維持費 1.0000 1 0.5000 1.0000 0.6667 0.6300 / "
              "環境 維持費 1.0000 1 0.1504 1.0000 0.5606 0.4307 / "
              "環境 騒音 0.4055 3 0.4055 1.0000 0.6268 0.5775 / "
              "環境 景観 0.1644 3 0.1644 1.0000 0.4509 0.3139 / "
              "総合評価値（最終レベル） 広さ 0.3816 3 0.3816 1.0000 0.6440 0.5944 / "
              "建設費 0.2184 3 0.2184 1.0000 0.5333 0.4368 / 維持費 1.8736 1 0.3222 1.8736 0.9522 0.7361 / "
              "騒音 0.4055 2 0.3029 0.4149 0.3744 0.3707 / 景観 0.1644 2 0.0570 0.8736 0.3650 0.2015"_s);
}

// A long name takes further lines while its document is made, and none of the path afterwards.
TEST_F(ReportsTest, LongNamesStandWholeInTheRunningLineAndCutBeforeThePath) {
    const QString name(90, u'佐');
    run(u"update 評価者 set 評価者氏名='%1' where 評価者番号=5"_s.arg(name));
    run(u"update 要因 set 要因名='%1' where 要因番号=1"_s.arg(QString(70, u'課')));
    Forms.show(group);
    auto* line = control<ElidedLabel>(group, u"Status");
    const int oneLine = line->height();
    int whole = 0;
    QTimer painted; // the screen handles events at each step
    QObject::connect(&painted, &QTimer::timeout, line, [&] {
        if (line->shownText().contains(name) && control(group, u"progress")->isVisible())
            whole = std::max(whole, line->height());
    });
    painted.start(0);
    report(group, {1});
    painted.stop();
    EXPECT_GE(whole, 2 * line->fontMetrics().height());
    EXPECT_FALSE(control(group, u"progress")->isVisible());
    EXPECT_EQ(line->minimumSizeHint().height(), oneLine);
    report(final, {});
    line = control<ElidedLabel>(final, u"Status");
    line->resize(line->fontMetrics().horizontalAdvance(line->text()) * 2 / 3, line->height());
    EXPECT_TRUE(line->shownText().endsWith(u"… を作成しました。（%1/file）"_s.arg(directory())))
        << line->shownText().toStdString();
}

TEST_F(ReportsTest, WhatWasMadeIsShownAlsoAfterAnError) {
    const QString individual = u"個人結果"_s;
    const QString folder = directory() + u"/file"_s;
    Desktop desktop;
    report(individual, {1});
    EXPECT_EQ(text(individual, u"Status"), u"1 名：PDF 1 件を作成しました。（%1）"_s.arg(folder));
    EXPECT_EQ(desktop.takeOpened(), QStringList{folder + u'/' + documents().value(0)});
    report(individual, {0, 1});
    EXPECT_EQ(desktop.takeOpened(), QStringList{folder});
    desktop.setProgram("");
    run(u"update 一対比較 set 比較値='x' where 評価者番号=5"_s);
    EXPECT_EQ(report(individual, {0, 1}), warning(individual, u"型が一致しません。"_s));
    EXPECT_EQ(text(individual, u"Status"),
              u"「個人結果」を完了できませんでした。PDF 1 件を作成しました。"
              "PDF を表示するプログラムがありません。（%1）"_s.arg(folder));
    EXPECT_TRUE(control(individual, u"folder")->isVisible());
    report(individual, {1});
    EXPECT_EQ(text(individual, u"Status"), u"「個人結果」を完了できませんでした。"_s);
    EXPECT_FALSE(control(individual, u"folder")->isVisible());
}

TEST_F(ReportsTest, APairWithoutOwnValueIsBlankAndTotalsStandBehindDeepKeys) {
    run(u"delete from 評価結果 where 評価者番号=5 and 親要因番号=12"_s);
    run(u"update 課題 set 最大分岐数=100000"_s); // the keys of level 2 are greater than that of the totals
    report(group, {1});
    EXPECT_TRUE(printedRows(u"評価者5_報告作成"_s)
                    .contains(u" / 環境 騒音 0.4750 1.0000 0.7375 0.6892 / "
                              "環境 景観 0.1882 1.0000 0.5941 0.4338 / 総合評価値"));
}

TEST_F(ReportsTest, TheAnalysisShowsGradeSpreadAndClasses) {
    EXPECT_EQ(report(analysis, {}), notice(analysis, u" 評価一覧終了"_s));
    EXPECT_EQ(printedRows(u"分析出力_候補地の選定_1回目_"_s),
              u"候補地の選定（1回） / 評価者 3名：評価者2、評価者5、評価者7 / 分布（0 が最小、6 が最大） / "
              "要因名 最小値 最大値 平均値 偏差値 幾平均 0 1 2 3 4 5 6 / "
              "候補地の選定 / 費用 0.3816 1.0000 0.7517 0.2668 0.6934 1 0 0 0 0 0 2 / "
              "環境 0.3029 1.0000 0.7255 0.3033 0.6420 1 0 0 0 0 0 2 / "
              "広さ 0.3816 1.0000 0.6440 0.2610 0.5944 1 0 1 0 0 0 1 / "
              "費用 / 建設費 0.2500 1.0000 0.7500 0.3536 0.6300 1 0 0 0 0 0 2 / "
              "維持費 0.5000 1.0000 0.6667 0.2357 0.6300 2 0 0 0 0 0 1 / "
              "環境 / 維持費 0.1504 1.0000 0.5606 0.3475 0.4307 1 0 0 1 0 0 1 / "
              "騒音 0.4055 1.0000 0.6268 0.2654 0.5775 1 1 0 0 0 0 1 / "
              "景観 0.1644 1.0000 0.4509 0.3884 0.3139 2 0 0 0 0 0 1 / "
              "総合評価値（最終レベル） / 分布（0 が最小、6 が最大） / "
              "要因名 最小値 最大値 平均値 偏差値 幾平均 0 1 2 3 4 5 6 / "
              "広さ 0.3816 1.0000 0.6440 0.2610 0.5944 1 0 1 0 0 0 1 / "
              "建設費 0.2184 1.0000 0.5333 0.3366 0.4368 1 1 0 0 0 0 1 / "
              "維持費 0.3222 1.8736 0.9522 0.6660 0.7361 1 0 1 0 0 0 1 / "
              "騒音 0.3029 0.4149 0.3744 0.0507 0.3707 1 0 0 0 0 0 2 / "
              "景観 0.0570 0.8736 0.3650 0.3623 0.2015 1 1 0 0 0 0 1"_s);
    const auto page = printedPages(directory() + u"/file/"_s + documents().value(0))[0];
    EXPECT_EQ(page.row(6).value(0), u"変動度:E"_s); // 0.816
    EXPECT_NEAR(page.size.width(), 297, 0.5);
}

// Without branches all keys run into each other: 広さ has that of 建設費, 維持費 below 費用 that below 環境.
TEST_F(ReportsTest, PairsWithEqualKeysStayApart) {
    const QStringList screens{group, analysis, u"個人結果"_s};
    QStringList expected;
    QStringList printed;
    for (auto* texts : {&expected, &printed}) {
        for (const auto& screen : screens) {
            report(screen, {0});
            Forms.unload(screen);
            texts->append(printedRows(screen));
            for (const auto& document : documents()) QFile::remove(directory() + u"/file/"_s + document);
        }
        run(u"update 課題 set 最大分岐数=0"_s);
    }
    EXPECT_EQ(printed, expected);
    run(u"insert into 要因構成 values(1,11,12,0,'1')"_s); // 環境 on two levels, its children with equal keys
    report(analysis, {});
    const QRegularExpression figures(u"\\.\\d{4}( \\d){7}$"_s);
    for (const auto& row : printedRows(analysis).split(u" / "_s).filter(figures)) {
        const auto counts = row.last(13).split(u' ');
        EXPECT_EQ(std::accumulate(counts.begin(), counts.end(), 0,
                                  [](int sum, const QString& count) { return sum + count.toInt(); }),
                  3)
            << row.toStdString();
    }
    run(u"update 要因構成 set 子要因表示順=null where 子要因番号=23"_s);
    for (const auto& screen : screens)
        EXPECT_TRUE(failure(screen, {0}).contains(u"「騒音」に表示順がありません"));
    Forms.show(u"要因構成登録"_s); // where it gets one
    choose(u"要因構成登録"_s, u"Combo1"_s, 0);
    EXPECT_EQ(takeMessages(), std::vector<ShownMessage>());
}

TEST_F(ReportsTest, TheScreensSayWhoseResultsGoIn) {
    run(u"delete from 評価結果 where 課題番号=1 and 評価者番号=7 and レベル=2 and 比較回数=1"_s);
    run(u"delete from 課題評価者 where 評価者番号=5"_s);
    for (const auto& screen : {group, analysis, final}) {
        Forms.show(screen);
        choose(screen, u"Combo1", 0);
        EXPECT_EQ(text(screen, u"results"),
                  u"評価結果 1 / 2 名（計算が中断: 評価者7、課題評価者以外: 評価者5）"_s);
        EXPECT_TRUE(control(screen, u"results")->font().bold());
        EXPECT_EQ(report(screen, {1}).size(), 1);
        EXPECT_EQ(hasFocus(screen, u"List1"), screen == group); // where someone else can be chosen
        if (screen == final) continue;
        if (screen == group) report(screen, {0}); // of someone who has results
        const auto page =
            printedPages(directory() + u"/file/"_s + documents().filter(screen).value(0)).last();
        EXPECT_EQ(page.row(screen == group ? 246 : 168).join(u' '),
                  u"評価結果 1 / 2 名（計算が中断: 評価者7、課題評価者以外: 評価者5）"_s);
    }
}

TEST_F(ReportsTest, TheListsMarkWhoseComparisonsAreMissing) {
    run(u"delete from 一対比較 where 課題番号=1 and 比較回数=1 and"
        " (評価者番号=7 or 評価者番号=5 and 目的要因番号=12)"_s);
    for (const auto& screen : {u"評価計算"_s, u"個人結果"_s, group}) {
        Forms.show(screen);
        choose(screen, u"Combo1", 0);
        const auto* list = control<QListWidget>(screen, u"List1");
        QStringList tips;
        for (int row = 0; row < list->count(); ++row) tips << list->item(row)->toolTip();
        EXPECT_EQ(tips, (QStringList{{},
                                     u"一対比較は 2 / 3 目的要因まで済んでいます"_s,
                                     u"一対比較は 0 / 3 目的要因まで済んでいます"_s}));
        EXPECT_EQ(list->item(2)->text(), u"7:評価者7"_s);
    }
    report(u"評価計算"_s, {0, 1});
    EXPECT_EQ(text(u"評価計算", u"Status"),
              u"2 名の評価値を計算し、保存しました。食い違いはありません。途中: 評価者5 2/3 目的"_s);
    EXPECT_EQ(text(u"評価計算", u"results"),
              u"評価結果 3 / 3 名（途中: 評価者5 2/3 目的、回答より古い: 評価者7）"_s);
}

TEST_F(ReportsTest, TheGradeComparesDeviationsWithThoseOfTheFamilySize) {
    for (const auto& [children, divisor] :
         {std::pair{1, 1.0}, {2, 0.394}, {3, 0.364}, {4, 0.333}, {5, 0.305}, {7, 0.261}, {20, 0.171}})
        for (const double variation : {0.199, 0.201}) { // beside the bound between B and C
            const double away = std::sqrt(1.5) * variation * divisor * children; // of the outer two of three
            singleLeaf({1 - away, 1, 1 + away});
            for (int child = 1; child < children; ++child) // these differ in nothing
                for (const int evaluator : {2, 5, 7}) result(11 + child, evaluator, 1);
            EXPECT_EQ(VariationGrade({*DbConn, 1, 1}), variation < 0.2 ? u"B"_s : u"C"_s) << children;
        }
    EXPECT_EQ(VariationGrade({*DbConn, 1, 2}), u"A"_s);
    result(31, 2, 1);
    EXPECT_THROW(VariationGrade({*DbConn, 1, 1}), RuntimeError);
}

TEST_F(ReportsTest, CoefficientsAreStoredAndWrittenToTheByte) {
    run(u"insert into 総合係数 values(1,99,1),(2,99,1)"_s);
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(report(final, {}), notice(final, u" 係数設定終了"_s));
        EXPECT_EQ(stored(u"select * from 総合係数 order by 要因番号"_s),
                  u"1|13|0.5944 1|21|0.4368 1|22|0.7361 1|23|0.3707 1|24|0.2015 2|99|1"_s);
        EXPECT_EQ(file(u"候補地の選定.csv"_s),
                  "\"\x97v\x88\xf6\x96\xbc\",\"\x8dL\x82\xb3\",\"\x8c\x9a\x90\xdd\x94\xef\","
                  "\"\x88\xdb\x8e\x9d\x94\xef\","
                  "\"\x91\x9b\x89\xb9\",\"\x8ci\x8a\xcf\"\r\n"
                  "\"\x8cW\x90\x94\",0.5944,0.4368,0.7361,0.3707,0.2015\r\n");
    }
    const auto* table = control<QTableWidget>(final, u"coefficients");
    QStringList shown;
    for (int row = 0; row < table->rowCount(); ++row)
        for (int column = 0; column < 4; ++column) shown << table->item(row, column)->text();
    EXPECT_EQ(
        shown.join(u' '),
        u"1 維持費 0.7361 31.5 2 広さ 0.5944 25.4 3 建設費 0.4368 18.7 4 騒音 0.3707 15.8 5 景観 0.2015 8.6"_s);
    // When a problem is chosen they are there at once, with whose they are.
    const QString present = u"今の評価結果の係数です。"_s;
    EXPECT_EQ(text(final, u"whose"), present);
    for (
        const auto& [change, isPresent] :
        {std::pair{
             u"update 評価結果 set 総合評価値=総合評価値*1.01 where レベル=2 and 子要因番号=24 and 比較回数=1"_s,
             false},
         {u"update 評価結果 set 総合評価値=総合評価値/1.01 where レベル=2 and 子要因番号=24 and 比較回数=1"_s,
          true},
         {u"delete from 総合係数 where 課題番号=1 and 要因番号=24"_s, false}}) {
        run(change);
        choose(final, u"Combo1", 0);
        EXPECT_EQ(text(final, u"whose") == present, isPresent) << change.toStdString();
    }
    report(final, {});
    EXPECT_EQ(text(final, u"Status"), u"候補地の選定.csv を作成しました。（%1/file）"_s.arg(directory()));
    // the next round's rows replace them; a factor counts the evaluators that have a row for it
    run(u"update 課題 set 比較回数=2"_s);
    run(u"insert into 評価結果 values(1,1,21,2,2,1,2,0.2),(1,1,21,5,2,1,2,0.8),(1,1,23,5,2,1,2,0.12345)"_s);
    report(final, {});
    EXPECT_EQ(stored(u"select * from 総合係数 where 課題番号=1"_s), u"1|21|0.4 1|23|0.1235"_s);
    EXPECT_TRUE(file(u"候補地の選定.csv"_s).endsWith(",0.4000,0.1235\r\n"));
}

TEST_F(ReportsTest, WithoutResultsOnlyTheEarlierCoefficientsAreGone) {
    report(final, {});
    const auto before = file(u"候補地の選定.csv"_s);
    run(u"update 課題 set 比較回数=2"_s);
    run(u"insert into 評価結果 values(1,1,13,5,2,1,1,1)"_s); // what an error before the sums leaves
    for (const auto& screen : {final, analysis}) {
        EXPECT_EQ(report(screen, {}),
                  warning(screen, u"選択された課題、評価回数の評価結果が存在しません。"_s));
    }
    EXPECT_EQ(failure(group, {1}),
              u"設定された条件、課題：1:候補地の選定 評価回数:2 評価者:5:評価者5は評価結果に存在しません"_s);
    EXPECT_EQ(stored(u"select * from 総合係数"_s), QString());
    EXPECT_EQ(file(u"候補地の選定.csv"_s), before);
    EXPECT_EQ(documents(), QStringList());
}

TEST_F(ReportsTest, WhatStopsAReportIsToldAndLeavesNoDocument) {
    run(u"update 評価結果 set 総合評価値=0 where レベル=2 and 子要因番号=23 and 評価者番号=5"_s);
    for (const auto& screen : {group, analysis, final}) {
        EXPECT_EQ(failure(screen, {0}), u"0 以下の評価値があるため、幾何平均を計算できません。\n騒音"_s)
            << screen.toStdString();
    }
    EXPECT_EQ(stored(u"select 要因番号 from 総合係数"_s), u"13 21 22"_s);
    QFile::remove(directory() + u"/file/message.txt"_s);
    EXPECT_TRUE(failure(group, {0}).startsWith(u"ファイルが見つかりません。"));
    EXPECT_EQ(documents(), QStringList());
}

TEST_F(ReportsTest, AFileThatCannotBeWrittenLeavesTheRowsAndTheEarlierFile) {
    for (const auto& [problem, says] : {std::pair{u"A/B"_s, u"「/」"_s},
                                        {u"../A\\B"_s, u"「/」"_s},
                                        {u"A\nB"_s, u"制御文字"_s},
                                        {QString(300, u'A'), u"長すぎる"_s}}) {
        run(u"delete from 総合係数"_s);
        run(u"update 要因 set 要因名='%1' where 要因番号=1"_s.arg(problem));
        const auto failed = failure(final);
        EXPECT_TRUE(failed.contains(says)) << problem.toStdString();
        EXPECT_TRUE(failed.contains(u"係数は保存しました"));
        EXPECT_EQ(rows(u"select * from 総合係数"_s).size(), 5);
    }
    run(u"update 要因 set 要因名='候補.' where 要因番号=1"_s);
    report(final, {});
    const auto before = file(u"候補..csv"_s);
    EXPECT_EQ(before.count("\r\n"), 2);
    run(u"update 要因 set 要因名='費用😀' where 要因番号=21"_s);
    EXPECT_TRUE(failure(final).contains(u"😀"));
    EXPECT_EQ(file(u"候補..csv"_s), before);

    run(u"update 要因 set 要因名='=2+2' where 要因番号=21"_s);
    report(final, {});
    EXPECT_TRUE(file(u"候補..csv"_s).contains(",\"'=2+2\","));
    const auto last = file(u"候補..csv"_s);
    auto other = reader();
    EXPECT_TRUE(failure(final).contains(u"使用しています"));
    other.reset();
    EXPECT_EQ(file(u"候補..csv"_s), last);
    QDir(directory() + u"/file"_s).removeRecursively();
    for (const auto& screen : {final, analysis}) {
        EXPECT_TRUE(failure(screen).startsWith(u"パスが見つかりません。")) << screen.toStdString();
    }
}
