// Comparisons as they are stored: writing one goal factor's, and telling what a round has.
#include "comparison/StoredComparisons.h"

#include "rounds/AnsweredGoals.h"
#include "support/Helpers.h"
#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;
using Common::DbConn;

class StoredComparisonsTest : public ScreenTest {
  protected:
    // Goals 1 (children 12, 11, 13 in display order), 11 (14, 15) and 12 (the single child 16); problem 2 has
    // the same goal factors with other children.
    StoredComparisonsTest() {
        for (int factor = 1; factor < 20; ++factor)
            run(u"insert into 要因 values(%1,1,'要因%1','')"_s.arg(factor));
        structure(u"1:13@3,12@1,11@2 11:14,15 12:16"_s);
        structure(u"2:11,12 11:13,16,17"_s, 2);
    }
    QString answered(const AnsweredGoals& goals) {
        QStringList texts;
        for (const auto& [evaluator, numbers] : goals.byEvaluator)
            for (const auto number : numbers) texts << u"%1:%2"_s.arg(evaluator).arg(number);
        return texts.join(u' ');
    }
    QString answeredIn(qint16 round) { return answered(readAnsweredGoals(ProblemRound{*DbConn, 1, round})); }
};

TEST_F(StoredComparisonsTest, GoalsAndTheirChildrenAreInOrder) {
    const auto goals = readGoals(*DbConn, 1);
    ASSERT_EQ(goals.size(), 3U);
    EXPECT_EQ(goals[1].name, u"要因11"_s);
    QStringList children;
    for (const auto& child : readGoalChildren(*DbConn, 1, 1))
        children << QString::number(child.number) + child.name;
    EXPECT_EQ(children, (QStringList{u"12要因12"_s, u"11要因11"_s, u"13要因13"_s}));
}

TEST_F(StoredComparisonsTest, SavingReplacesJustTheRowsOfItsGoalFactor) {
    for (const auto* other :
         {u"1,1,12,11,3,2", u"1,11,14,15,3,2", u"1,1,12,11,3,1", u"1,1,12,11,4,2", u"2,1,12,11,3,2"})
        run(u"insert into 一対比較 values(%1,'2026/01/01',1,9)"_s.arg(QStringView(other)));
    const EvaluatorRound of{*DbConn, 1, 3, 2};
    EXPECT_EQ(raisedBy([&] { saveComparisons(of, 1, u"2026/04/01"_s, {12, 11, 13}, {2, 3}); }).number, 5);
    EXPECT_EQ(rows(u"select * from 一対比較"_s).size(), 5);

    saveComparisons(of, 1, u"2026/04/01"_s, {12, 11, 13}, {2, 1.0F / 3, 4});
    EXPECT_EQ(
        rows(u"select "
             u"課題番号,目的要因番号,比較元要因番号,比較対象要因番号,評価者番号,比較回数,比較日付,比較表示順,"
             "比較値,typeof(比較値) from 一対比較 where 比較日付='2026/04/01' order by 比較表示順"_s),
        (QStringList{u"1|1|12|11|3|2|2026/04/01|1|2|real"_s,
                     u"1|1|12|13|3|2|2026/04/01|2|0.3333333432674408|real"_s,
                     u"1|1|11|13|3|2|2026/04/01|3|4|real"_s}));
    EXPECT_EQ(rows(u"select * from 一対比較 where 比較日付='2026/01/01'"_s).size(), 4);
}

TEST_F(StoredComparisonsTest, AGoalIsAnsweredWhenJustThePairsOfItsPresentChildrenAreStored) {
    compare(1, {12, 11, 13}, u"1 1 1"_s, 3, 1);
    compare(1, {11, 13, 12}, u"1 1 1"_s, 5, 1); // before the children were put into another order
    compare(1, {12, 11, 14}, u"1 1 1"_s, 6, 1); // before 14 made way for 13
    compare(1, {12, 11}, u"1"_s, 7, 1);
    compare(1, {12, 11, 13}, u"1 1 1"_s, 8, 1);
    compare(1, {12, 11}, u"1"_s, 8, 1); // a pair twice
    compare(11, {14, 15}, u"1"_s, 3, 1);
    for (const int evaluator : {5, 7}) compare(11, {14, 15}, u"1"_s, evaluator, 2);
    compare(13, {14, 15}, u"1"_s, 7, 1); // no goal any more
    run(u"insert into 一対比較 values(2,11,14,15,9,1,'2026/01/01',1,9)"_s);

    const auto goals = readAnsweredGoals(ProblemRound{*DbConn, 1, 1});
    EXPECT_EQ(goals.goals, (std::set<qint32>{1, 11})); // 12 has one child: nothing to answer
    EXPECT_EQ(answered(goals), u"3:1 3:11 5:1"_s);
    EXPECT_EQ(std::tuple(goals.count(3), goals.count(5), goals.count(9)), std::tuple(2, 1, 0));
    EXPECT_TRUE(goals.isComplete(3) && !goals.isComplete(5) && !goals.isComplete(9));
    EXPECT_TRUE(goals.isAnswered(5, 1) && !goals.isAnswered(5, 11) && !goals.isAnswered(9, 1));
    EXPECT_EQ(answeredIn(2), u"5:11 7:11"_s);
    EXPECT_EQ(answered(readAnsweredGoals(EvaluatorRound{*DbConn, 1, 5, 1})), u"5:1"_s);
}
