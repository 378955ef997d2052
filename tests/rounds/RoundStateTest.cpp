// Whose results there are and whether they belong to the answers. Around the round stand another one and
// another problem with other values of the same evaluators.
#include "rounds/RoundState.h"

#include "support/RoundTest.h"

using Common::DbConn;

class RoundStateTest : public RoundTest {
  protected:
    // Of the problem and the round.
    void change(const QString& table, const QString& what) {
        run(table.arg(u" where 課題番号=1 and 比較回数=1 and "_s + what));
    }
    void remove(const QString& table, const QString& what) {
        change(u"delete from %1"_s.arg(table) + u"%1"_s, what);
    }
    // What stands in the brackets of the line.
    QString notes(const QList<qint32>& evaluators = {2, 5, 7}) {
        return readRoundState({*DbConn, 1, 1}).notesOf({evaluators.begin(), evaluators.end()});
    }
    void expectNotes(const QString& expected, const QString& after) {
        EXPECT_EQ(notes(), expected) << after.toStdString();
    }
};

TEST_F(RoundStateTest, WhatIsAmissIsToldOfEachEvaluator) {
    EXPECT_EQ(readRoundState({*DbConn, 1, 1}).line(), u"評価結果 3 / 3 名"_s);
    EXPECT_EQ(readRoundState({*DbConn, 1, 1}).footLine(100), QString());

    change(u"update 一対比較 set 比較値=3%1"_s, u"評価者番号=5 and 目的要因番号=11"_s); // it was 1/4
    remove(u"一対比較"_s, u"評価者番号=7 and 目的要因番号=12"_s);
    expectNotes(u"途中: 評価者7 2/3 目的、回答より古い: 評価者5・評価者7"_s, u"new answers"_s);
    calculateAll(1); // half of the answers give half of the results
    expectNotes(u"途中: 評価者7 2/3 目的"_s, u"calculation"_s);

    remove(u"評価結果"_s, u"評価者番号=2"_s);
    remove(u"一対比較"_s, u"評価者番号=7"_s);
    expectNotes(u"回答より古い: 評価者7、計算前: 評価者2"_s, u"what one of both lost"_s);
    EXPECT_TRUE(readRoundState({*DbConn, 1, 1}).hasOldResults());
    remove(u"評価結果"_s, u"評価者番号=7"_s);
    run(u"delete from 課題評価者 where 評価者番号=5"_s);
    const auto state = readRoundState({*DbConn, 1, 1});
    EXPECT_EQ(state.line(),
              u"評価結果 0 / 2 名（計算前: 評価者2、回答なし: 評価者7、課題評価者以外: 評価者5）"_s);
    EXPECT_EQ(state.footLine(70), u"評価結果 0 / 2 名（計算前 1 名、回答なし 1 名、課題評価者以外 1 名）"_s);
    EXPECT_FALSE(state.hasOldResults());
}

TEST_F(RoundStateTest, ResultsThatAreNotTheProductOfTheTreeAreOld) {
    for (const auto& damage :
         {u"総合評価値=総合評価値*1.000001%1 レベル=2 and 子要因番号=22"_s,
          u"総合評価値=総合評価値*1.000001%1 レベル=1 and 子要因番号=13"_s,
          u"評価値=評価値+0.0001%1 親要因番号=12 and 子要因番号=24 and レベル=1"_s,
          u"子要因番号=99%1 親要因番号=12 and 子要因番号=24"_s, u"レベル=0%1 レベル=2 and 子要因番号=13"_s}) {
        change(u"update 評価結果 set "_s + damage.section(u'%', 0, 0) + u"%1"_s,
               u"評価者番号=5 and"_s + damage.section(u"%1"_s, 1));
        expectNotes(u"回答より古い: 評価者5"_s, damage);
        calculateAll(1);
        expectNotes({}, damage);
    }
    // Another processor may end the power method a step earlier: here the last weights, with what follows.
    change(u"update 評価結果 set 評価値=評価値+0.000001,総合評価値=総合評価値*(1+0.000001/評価値)%1"_s,
           u"レベル=1 and 評価者番号=5 and 子要因番号=21"_s);
    change(
        u"update 評価結果 set 総合評価値=(select sum(総合評価値) from 評価結果 t where t.課題番号=1"
        " and t.比較回数=1 and t.評価者番号=5 and t.子要因番号=21 and t.レベル=1)%1"_s,
        u"レベル=2 and 評価者番号=5 and 子要因番号=21"_s);
    expectNotes({}, u"a step earlier"_s);
}

TEST_F(RoundStateTest, AChangedStructureMakesResultsOld) {
    run(u"insert into 要因 values(31,1,'低音',''),(32,1,'高音','')"_s);
    structure(u"23:31,32"_s); // a leaf becomes a goal factor
    const QString all = u"評価者2・評価者5・評価者7"_s;
    expectNotes(u"途中: 評価者2 3/4 目的・評価者5 3/4 目的・評価者7 3/4 目的、回答より古い: "_s + all,
                u"more"_s);
    run(u"delete from 要因構成 where 課題番号=1 and 親要因番号 in (11,23)"_s); // and a goal factor a leaf
    expectNotes(u"回答より古い: "_s + all, u"less"_s);
    calculateAll(1);
    expectNotes(u"今の構成にない要因がある: "_s + all, u"what is answered below 11 counts on"_s);
    run(u"delete from 要因構成 where 課題番号=1 and 親要因番号=12 and 子要因番号=24"_s);
    expectNotes(
        u"途中: 評価者2 1/2 目的・評価者5 1/2 目的・評価者7 1/2 目的、今の構成にない要因がある: "_s + all,
        u"a child less"_s);
    run(u"insert into 要因構成 values(1,12,1,3,'1')"_s); // in a circle
    EXPECT_TRUE(notes().startsWith(u"途中: "));
}

TEST_F(RoundStateTest, WhatStopsACalculationLeavesPartialResults) {
    InconsistencyList findings;
    calculateLocalWeights({*DbConn, 1, 5, 1}, findings); // stopped before the synthesis
    expectNotes(u"計算が中断: 評価者5"_s, u"no synthesis"_s);
    change(u"update 一対比較 set 比較値=case 比較表示順 when 2 then 0.001 else 1000 end%1"_s,
           u"目的要因番号=12 and 評価者番号=7"_s); // runs in a circle
    calculateAll(1);
    expectNotes(u"結果が一部: 評価者7 3/5 要因"_s, u"not converging"_s);
    change(u"update 一対比較 set 比較値=case 比較表示順 when 2 then 0.001 else 1000 end%1"_s,
           u"目的要因番号=1 and 評価者番号=7"_s);
    calculateAll(1);
    expectNotes(u"結果が一部: 評価者7 0/5 要因"_s, u"not converging at the top"_s);
    // Damaged pairs and too many of them end the calculation with an error; looking goes on.
    change(u"update 一対比較 set 比較値='x'%1"_s, u"評価者番号=2 and 目的要因番号=12"_s);
    remove(u"一対比較"_s, u"評価者番号=5 and 目的要因番号=1 and 比較表示順=3"_s);
    compare(1, {11, 12, 13, 14, 15, 16, 17, 18}, QStringList(28, u"1"_s).join(u' '), 7);
    EXPECT_EQ(notes({2, 5}), u"途中: 評価者5 2/3 目的、回答より古い: 評価者2・評価者5"_s);
    EXPECT_EQ(notes({7}), u"途中: 評価者7 2/3 目的"_s);
}
