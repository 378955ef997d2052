// Figures of a round, against values that another program worked out from the same comparisons and draws.
#include <QImage>

#include "figures/Agreement.h"
#include "figures/Figures.h"
#include "figures/Ranking.h"
#include "figures/Sensitivity.h"
#include "figures/Stability.h"
#include "support/Helpers.h"
#include "support/RoundTest.h"

class FiguresTest : public RoundTest {
  protected:
    RoundResults results(qint16 round = 1) { return readRoundResults({*Common::DbConn, 1, round}); }

    Stability stability(
        int runs, const std::function<bool(int)>& proceed = [](int) { return true; }) {
        return rankStability(readRoundComparisons(*Common::DbConn, results()), runs, proceed);
    }
    // The words of all pages of the only document.
    QString printed() {
        QString texts;
        for (const auto& page : printedPages(directory() + u"/file/"_s + documents().value(0)))
            for (const auto& word : page.words) texts += word.text;
        return texts;
    }
};

TEST_F(FiguresTest, LeavesStandByTheirCoefficient) {
    const auto leaves = rankedLeaves(results());
    const std::vector<std::pair<qint32, double>> expected{{22, 0.7361469952464708},
                                                          {13, 0.5943797803804202},
                                                          {21, 0.43679023526089705},
                                                          {23, 0.37072607739510277},
                                                          {24, 0.201544186300378}};
    ASSERT_EQ(leaves.size(), expected.size());
    for (std::size_t i = 0; i < leaves.size(); ++i) {
        EXPECT_EQ(leaves[i].factorNo, expected[i].first);
        EXPECT_EQ(leaves[i].rank, static_cast<int>(i) + 1);
        EXPECT_NEAR(leaves[i].coefficient, expected[i].second, 1e-6);
    }
}

TEST_F(FiguresTest, TheWorstAgreementStandsFirstAndSaysHowItHasMoved) {
    compareAll(2);
    run(u"update 評価結果 set 評価値=0.5 where 比較回数=2 and 親要因番号=11 and 子要因番号=21"_s);
    EXPECT_EQ(earlierRounds({*Common::DbConn, 1, 9}), (std::vector<qint16>{2, 1})); // without itself
    const auto before = results(1);
    const auto found = agreement(results(2), &before);
    const auto& worst = found.weights.front();
    EXPECT_EQ((std::pair{worst.parentNo, worst.factorNo}), (std::pair{12, 24}));
    EXPECT_NEAR(worst.deviation, 0.38841235206045277, 1e-6);
    EXPECT_NEAR(worst.earlierDeviation.value_or(0), worst.deviation, 1e-12);
    EXPECT_EQ(worst.classes, (std::array{2, 0, 0, 0, 0, 0, 1}));
    const auto& best = found.weights.back(); // all three agree now
    EXPECT_EQ((std::pair{best.parentNo, best.factorNo}), (std::pair{11, 21}));
    EXPECT_EQ(best.deviation, 0);
    EXPECT_NEAR(best.earlierDeviation.value_or(0), 0.3535533905932738, 1e-6);
    EXPECT_EQ(found.totals.front().factorNo, 22);
    EXPECT_NEAR(found.totals.front().deviation, 0.6660168960529277, 1e-6);
}

TEST_F(FiguresTest, RanksChangeWhereTheCurvesCross) {
    const auto found = sensitivities(results(), 8);
    const std::array expected{std::vector<RankChange>{{0.8487508361391507, 3, 23, 21},
                                                      {1.3607899911622199, 2, 21, 13},
                                                      {0.6831431596136304, 1, 13, 22},
                                                      {0.46142099806785875, 4, 24, 21},
                                                      {0.19483049902515548, 2, 23, 22}},
                              std::vector<RankChange>{{1.1782020793627264, 3, 23, 21},
                                                      {1.6032855971633135, 2, 23, 13},
                                                      {0.517573309778049, 1, 13, 22},
                                                      {2.1672182327795477, 4, 24, 21},
                                                      {2.949128879830683, 3, 24, 13},
                                                      {5.132666625623562, 1, 23, 22}},
                              std::vector<RankChange>{{1.2385128491001418, 1, 13, 22},
                                                      {0.7348672510046332, 2, 21, 13},
                                                      {0.6237191937414617, 3, 23, 13},
                                                      {0.33908318040594165, 4, 24, 13}}};
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t factor = 0; factor < found.size(); ++factor) {
        const auto& changes = found[factor].changes;
        ASSERT_EQ(changes.size(), expected.at(factor).size());
        for (std::size_t i = 0; i < changes.size(); ++i) {
            const auto& right = expected.at(factor)[i];
            EXPECT_NEAR(changes[i].k, right.k, 1e-6);
            EXPECT_EQ((std::tuple{changes[i].rank, changes[i].risingNo, changes[i].fallingNo}),
                      (std::tuple{right.rank, right.risingNo, right.fallingNo}));
        }
    }
    EXPECT_EQ(sensitivities(results(), 2)[0].changes.size(), 1U); // among the first two ranks
}

TEST_F(FiguresTest, TheSameDrawsGiveTheSameRanks) {
    const auto found = stability(1000);
    const std::vector<std::array<int, 3>> expected{
        {862, 138, 0}, {138, 723, 116}, {0, 81, 570}, {0, 58, 314}, {0, 0, 0}};
    ASSERT_EQ(found.leaves.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(found.leaves[i].timesOn, expected[i]);
    EXPECT_EQ((std::pair{found.leaves[3].bestRank, found.leaves[3].worstRank}), (std::pair{2, 4}));
    EXPECT_EQ(stability(1000, [](int done) { return done < 7; }).runs, 7);
}

TEST_F(FiguresTest, AnIncompleteGoalAndACircleAreErrors) {
    run(u"delete from 一対比較 where 評価者番号=5 and 目的要因番号=12 and 比較表示順=3"_s);
    EXPECT_EQ(raisedBy([this] { stability(1); }).number, 5);
    run(u"insert into 評価結果 values(1,22,12,2,1,1,0,1)"_s);
    EXPECT_EQ(raisedBy([this] { results(); }).number, 5);
}

TEST_F(FiguresTest, TheScreenShowsPrintsAndSavesWhatWasChosen) {
    copyRound(u"1,%1,0"_s);
    Common::Forms.show(u"分析出力"_s);
    choose(u"分析出力", u"Combo1", 0);
    click(u"分析出力", u"Command3");
    EXPECT_FALSE(isOpen(u"分析出力"));
    EXPECT_EQ(text(u"図", u"Combo1"), u"1:候補地の選定"_s);
    choose(u"図", u"Combo2", 2);
    EXPECT_TRUE(toldText(u"図", u"Command7").startsWith(u"プリンタがインストールされていません。"));
    EXPECT_EQ(documents(), QStringList());
    click(u"図", u"Command17");
    click(u"図", u"Command7");
    EXPECT_TRUE(printed().contains(
        u"『環境』を1.18倍にすると3位と4位が入れ替わります。「騒音」が「建設費」を上回ります。"_s));
    EXPECT_EQ(text(u"図", u"device"), u"→ いきなりPDF 2"_s);
    EXPECT_EQ(text(u"図", u"Status"),
              u"3 ページ：PDF 1 件を作成しました。PDF を表示するプログラムがありません。（%1/file）"_s.arg(
                  directory()));
    EXPECT_TRUE(control(u"図", u"folder")->isVisible());

    auto other = writer();
    choose(u"図", u"Combo2", 1); // the round before cannot be read: no figure under the name of another
    EXPECT_TRUE(takeMessages().at(0).text.contains(u"データベースをほかのプログラムが使用しています。"));
    EXPECT_FALSE(control(u"図", u"Command4")->isEnabled());
    other.reset();
    choose(u"図", u"Combo2", 1);
    EXPECT_TRUE(control(u"図", u"Command4")->isEnabled());

    choose(u"図", u"Combo2", 3);
    EXPECT_FALSE(control(u"図", u"Command4")->isEnabled()); // nothing has been calculated yet
    click(u"図", u"Command1");
    click(u"図", u"Command4");
    click(u"図", u"Command5");
    EXPECT_TRUE(text(u"図", u"Status").endsWith(u".png を作成しました。（%1/file）"_s.arg(directory())));
    const QDir folder(directory() + u"/file"_s);
    const auto files = folder.entryList({u"図_順位の安定_候補地の選定_*"_s}, QDir::Files, QDir::Name);
    ASSERT_EQ(files.size(), 2);
    EXPECT_FALSE(QImage(folder.filePath(files.filter(u".png"_s).value(0))).isNull());
    const auto svg = QString::fromUtf8(bytesOf(folder.filePath(files.filter(u".svg"_s).value(0))));
    EXPECT_TRUE(svg.contains(u"86.2%"));
    click(u"図", u"Command2");
    EXPECT_TRUE(isOpen(u"メニュー"));
}

TEST_F(FiguresTest, FiguresOfOldResultsSaySoAndTheRankingIsNotShakenWithNewAnswers) {
    run(u"update 一対比較 set 比較値=7 where 課題番号=1 and 比較回数=1 and 評価者番号=5 and 目的要因番号=11"_s);
    const QString state = u"評価結果 3 / 3 名（回答より古い: 評価者5）"_s;
    Common::ProblemEntry = u"1:候補地の選定"_s;
    Common::Forms.show(u"図"_s);
    EXPECT_EQ(text(u"図", u"results"), state);
    click(u"図", u"Command17");
    for (const int figure : {0, 1, 2}) {
        choose(u"図", u"Combo2", figure);
        click(u"図", u"Command4");
        const QDir folder(directory() + u"/file"_s);
        const auto newest = folder.entryList({u"*.svg"_s}, QDir::Files, QDir::Time).value(0);
        EXPECT_TRUE(bytesOf(folder.filePath(newest)).contains(state.toUtf8())) << newest.toStdString();
    }
    choose(u"図", u"Combo2", 3);
    EXPECT_TRUE(told(u"図", u"Command1").at(0).text.contains(u"順位の安定は図にできません"));
    EXPECT_FALSE(control(u"図", u"Command7")->isEnabled());
}

TEST_F(FiguresTest, WithoutResultsTheScreenOffersNothing) {
    run(u"delete from 評価結果"_s);
    Common::ProblemEntry = u"1:候補地の選定"_s;
    Common::Forms.show(u"図"_s);
    choose(u"図", u"Combo2", 3);
    for (const auto* button : {u"Command1", u"Command4", u"Command5", u"Command7"})
        EXPECT_FALSE(control(u"図", button)->isEnabled());
}

// Twelve leaves whose names begin alike. The goals 31 and 32 are alike to the group: evaluators 2 and 5
// exchange them, 7 answers both alike and does not answer 33. So their leaves are equal by pairs, and part
// where a goal's weight changes; 311 and 312 stay equal whatever it is.
class WideRoundTest : public FiguresTest {
  protected:
    WideRoundTest() {
        for (const auto* table : {u"要因構成", u"一対比較", u"評価結果"})
            run(u"delete from %1 where 課題番号=1"_s.arg(table));
        QStringList goals;
        for (const int goal : {31, 32, 33}) {
            QStringList leaves;
            run(u"insert into 要因 values(%1,1,'要因%1','')"_s.arg(goal));
            for (int leaf = 10 * goal + 1; leaf <= 10 * goal + 4; ++leaf) {
                leaves << QString::number(leaf);
                run(u"insert into 要因 values(%1,1,'%2%1','')"_s.arg(QString::number(leaf),
                                                                     QString(36, u'長')));
            }
            goals << u"%1:%2"_s.arg(goal).arg(leaves.join(u','));
        }
        structure(u"1:31,32,33 "_s + goals.join(u' '));
        const QString falling = u"1 2 4 2 4 2"_s;
        const QString rising = u"1 1/4 1/8 1/4 1/8 1/2"_s;
        answer(2, u"2 4 2"_s, {falling, rising, u"2 4 4 2 2 1"_s});
        answer(5, u"1/2 2 4"_s, {rising, falling, u"1 1/2 1 1/2 1 2"_s});
        answer(7, u"1 1 1"_s, {u"1 4 8 4 8 2"_s, u"1 4 8 4 8 2"_s});
        calculateAll(1);
    }
    void answer(int evaluator, const QString& top, const QStringList& below) {
        compare(1, {31, 32, 33}, top, evaluator);
        for (int goal = 31; const auto& scales : below) {
            compare(goal, {10 * goal + 1, 10 * goal + 2, 10 * goal + 3, 10 * goal + 4}, scales, evaluator);
            ++goal;
        }
    }
    // What stands on the sheets, without what breaks lines.
    static QString wordsOf(const std::vector<FigureSheet>& sheets) {
        QString words;
        for (const auto& sheet : sheets) words += sheet.words;
        return words.remove(u'\n');
    }
};

TEST_F(WideRoundTest, EqualLeavesShareARankAndAreToldOnce) {
    std::vector<int> order;
    for (const auto& leaf : rankedLeaves(results())) order.push_back(leaf.rank);
    EXPECT_EQ(order, (std::vector{1, 1, 1, 1, 5, 5, 7, 7, 9, 10, 10, 12}));
    EXPECT_NEAR(rankedLeaves(results())[0].coefficient, 0.3968502629920499, 1e-6);

    const auto found = sensitivities(results(), 8);
    for (const auto& sensitivity : found)
        for (const auto& change : sensitivity.changes) {
            const auto at = [&](qint32 factorNo) {
                return std::ranges::find(sensitivity.leaves, factorNo, &LeafResponse::factorNo)
                    ->coefficient(change.roundedK);
            };
            EXPECT_GT(at(change.risingNo), at(change.fallingNo) * (1 + 1e-9)) << change.roundedK;
            EXPECT_GT(std::abs(std::log(change.k)), 0.1) << "leaves that are equal now do not change places";
        }
    ASSERT_FALSE(found[2].changes.empty());
    EXPECT_NEAR(found[2].changes[0].k, 1.414213562, 1e-5);
    EXPECT_EQ(found[2].changes[0].roundedK, 1.42); // and so beyond it
    const auto words = wordsOf(drawSensitivity(results()));
    EXPECT_EQ(words.count(u"が同じ 1 位です。"_s), 3);          // on the sheet of each factor
    EXPECT_TRUE(words.contains(QString(36, u'長') + u"333"_s)); // a name is whole
}
