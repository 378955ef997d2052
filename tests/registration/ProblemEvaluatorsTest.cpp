#include "registration/RegistrationTest.h"

class ProblemEvaluatorsTest : public RegistrationTest {
  protected:
    ProblemEvaluatorsTest() {
        run(u"INSERT INTO 要因 VALUES (1,0,'課題一',''),(12,0,NULL,''),(7,0,'未設定','')"_s);
        run(u"INSERT INTO 課題 VALUES (12,1,3,7,1),(1,1,3,7,1)"_s);
        run(u"INSERT INTO 評価者 VALUES (20,'乙',''),(3,'甲''',''),(100,NULL,'')"_s);
        run(u"INSERT INTO 課題評価者 VALUES (1,20,'主'),(12,3,'他')"_s);
        open(u"課題評価者登録");
    }
    // What is assigned after the action on the selected rows.
    QString act(const QList<int>& selected, QStringView button, const QString& asked) {
        select(screen, u"List1", selected);
        EXPECT_EQ(told(screen, button), question(screen, asked));
        return stored(u"SELECT * FROM 課題評価者 ORDER BY 課題番号,評価者番号"_s);
    }
};

TEST_F(ProblemEvaluatorsTest, RefusesWithoutAChoice) {
    for (const auto button : {u"Command1", u"Command2", u"Command3"})
        expectRefusals(screen, u"課題評価者", {{{}, button, u"課題が未選択です。", u"Combo1"}});
    choose(screen, u"Combo1", 0);
    expectRefusals(screen, u"課題評価者",
                   {{{}, u"Command1", u"評価者が選択されてません。", u"List1"},
                    {{}, u"Command2", u"評価者が選択されてません", u"List1"},
                    {{}, u"Command3", u"評価者が選択されてません", u"List1"}});
    select(screen, u"List1", {0, 1, 2}); // one of them is assigned: none is added
    expectRefusals(screen, u"課題評価者", {{{}, u"Command2", u"選択された評価者は登録済です。20", u"List1"}});
}

TEST_F(ProblemEvaluatorsTest, ReplacesAddsAndRemoves) {
    const QString replace = u"当該課題に選択された評価者を登録しますか ？"_s;
    const QString remove = u"当該課題から選択された評価者を削除しますか ？"_s;
    choose(screen, u"Combo1", 0);
    EXPECT_EQ(texts({u"Combo1"}), u"0001 課題一"_s);
    EXPECT_EQ(entries(u"List1"), u"3 甲'\n20 乙\n100 "_s);
    EXPECT_EQ(entries(u"List2"), u"20 乙"_s);

    answers = {MessageAnswer::No};
    EXPECT_EQ(act({0}, u"Command1", replace), u"1|20|主 12|3|他"_s);
    EXPECT_EQ(act({0, 2}, u"Command1", replace), u"1|3| 1|100| 12|3|他"_s);
    EXPECT_TRUE(control<QListWidget>(screen, u"List1")->selectedItems().isEmpty());
    EXPECT_EQ(act({1}, u"Command2", u"当該課題に選択された評価者を追加登録しますか ？"_s),
              u"1|3| 1|20| 1|100| 12|3|他"_s);
    EXPECT_EQ(texts({u"Status"}), u"追加しました。この課題の評価者は 3 名です。"_s);
    EXPECT_EQ(act({0, 1}, u"Command3", remove), u"1|100| 12|3|他"_s);
    EXPECT_EQ(act({1}, u"Command3", remove), u"1|100| 12|3|他"_s);
    EXPECT_EQ(entries(u"List2"), u"100 "_s);
    run(u"DELETE FROM 評価者"_s);
    choose(screen, u"Combo1", 1);
    EXPECT_EQ(takeMessages(), warning(screen, u"評価者が登録されてません。"_s));
}

TEST_F(ProblemEvaluatorsTest, WhatCannotBeStoredLeavesListsAndSelection) {
    choose(screen, u"Combo1", 0);
    for (const auto& [button, row] : {std::pair{u"Command1", 0}, {u"Command2", 2}, {u"Command3", 1}}) {
        select(screen, u"List1", {row});
        expectNothingStored(button, [this] {
            return entries(u"List2") +
                   control<QListWidget>(screen, u"List1")->selectedItems().value(0)->text();
        });
    }
}
