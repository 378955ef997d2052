// The individual results, read back from the document. The figures were worked out with an eigenvector
// routine of another tool from the comparisons of the fixture.
#include <QCheckBox>

#include "evaluation/ComparisonTable.h"
#include "support/RoundTest.h"

using namespace Common;

const QString screen = u"個人結果"_s;

class IndividualResultTest : public RoundTest {};

TEST_F(IndividualResultTest, TreeComparisonsAndTotalsArePrinted) {
    EXPECT_EQ(report(screen, {0}), notice(screen, u" 印刷終了"_s));
    EXPECT_EQ(printedRows(u"評価者2_個人結果_候補地の選定_1回目_"_s),
              u"候補地の選定（1） / 要因名 評価値 累積評価値 / "
              "候補地の選定 / 費用 1 1 / 環境 0.3029 0.3029 / 広さ 0.5503 0.5503 / "
              "費用 / 建設費 1 1 / 維持費 0.5 0.5 / "
              "環境 / 維持費 0.5313 0.1609 / 騒音 1 0.3029 / 景観 0.1882 0.057 / "
              "一対比較：候補地の選定 / ① ② ③ / ① 費用 － 3 2 / ② 環境 1/3 － 1/2 / ③ 広さ 1/2 2 － / "
              "一対比較：費用 / ① ② / ① 建設費 － 2 / ② 維持費 1/2 － / "
              "一対比較：環境 / ① ② ③ / ① 維持費 － 1/2 3 / ② 騒音 2 － 5 / ③ 景観 1/3 1/5 － / "
              "候補地の選定（1） / 総合評価値（最終レベル） / 要因名 総合評価値 / "
              "建設費 1 / 維持費 0.6609 / 広さ 0.5503 / 騒音 0.3029 / 景観 0.057"_s);
}

TEST_F(IndividualResultTest, EachEvaluatorHasADocumentOfTheCurrentRound) {
    run(u"update 課題 set 比較回数=2"_s);
    compareAll(2);
    run(u"update 評価結果 set 評価値=0.12345 where 比較回数=2 and 子要因番号=23"_s);
    const auto before = rows(u"select * from 評価結果"_s);
    Forms.show(screen);
    control<QCheckBox>(screen, u"Check1")->click(); // without values
    report(screen, {0, 2});
    control<QCheckBox>(screen, u"Check1")->click();
    report(screen, {1});
    EXPECT_EQ(documents().size(), 3);
    const auto bare = printedRows(u"評価者7_個人結果_候補地の選定_2回目_"_s);
    EXPECT_TRUE(
        bare.startsWith(u"候補地の選定（2） / 要因名 評価値 累積評価値 / 候補地の選定 / 費用 0 0 / "));
    EXPECT_TRUE(bare.contains(u" / ① 維持費 － 1/3 1/7 / "));
    EXPECT_TRUE(printedRows(u"評価者5_個人結果_候補地の選定_2回目_"_s).contains(u" / 騒音 0.1235 0.4055 / "));
    EXPECT_EQ(rows(u"select * from 評価結果"_s), before);
}

TEST_F(IndividualResultTest, OneEvaluatorWithoutResultsIsNamedAndNothingIsPrinted) {
    run(u"delete from 評価結果 where 課題番号=1 and 評価者番号=7 and レベル=2 and 比較回数=1"_s); // what an
                                                                                                  // error
                                                                                                  // half-way
                                                                                                  // leaves
    EXPECT_EQ(report(screen, {0, 2}), warning(screen,
                                              u"設定された条件、課題：1:候補地の選定 評価回数:1 "
                                              "評価者:7:評価者7は評価結果に存在しません"_s));
    EXPECT_EQ(documents(), QStringList());
}

TEST_F(IndividualResultTest, TwentyOneChildrenFillTheMatrixAndOneMoreIsAnError) {
    EXPECT_EQ(comparisonTexts(static_cast<double>(1 / 9.0F)), (std::pair{u"1/9"_s, u"9"_s}));
    EXPECT_EQ(comparisonTexts(2.5), (std::pair{u"2"_s, u"1/2"_s}));
    for (int child = 101; child <= 121; ++child)
        run(u"insert into 一対比較 values(1,12,100,%1,2,1,'',%1,2)"_s.arg(child));
    EXPECT_EQ(report(screen, {0}),
              warning(screen,
                      u"インデックスが有効範囲にありません。\n「環境」の子要因が多すぎます（21 までです）。\n"
                      "要因構成登録で、いくつかを中間の要因にまとめてください。"_s));
    EXPECT_EQ(documents(), QStringList());
    run(u"delete from 一対比較 where 目的要因番号=12 and 比較対象要因番号 in (22,23,24,121)"_s);
    EXPECT_EQ(report(screen, {0}), notice(screen, u" 印刷終了"_s));
}
