#include <QTest>

#include "registration/ListDialogs.h"
#include "registration/RegistrationTest.h"

class ProblemConfigurationTest : public RegistrationTest {
  protected:
    ProblemConfigurationTest() {
        run(u"INSERT INTO 要因 VALUES (1,0,'課題一',''),(2,0,'課題二',''),(5,2,'要因','')"_s);
        run(u"INSERT INTO 課題 VALUES (1,1,3,7,2),(5,1,NULL,NULL,1)"_s);
        open(u"課題構成登録");
    }
    QString fields() { return texts({u"Text1", u"Label6", u"Text2", u"Text3", u"Text4", u"Text5"}); }
};

TEST_F(ProblemConfigurationTest, RefusesInTheOrderOfTheChecks) {
    const Typed allWrong{{u"Text2", u"a"}, {u"Text3", u"b"}, {u"Text4", u"c"}, {u"Text5", u" "}};
    type(allWrong);
    expectRefusals(
        u"課題登録", u"課題",
        {{{{u"Text1", u"x"}}, u"Command1", u"課題番号が不正です。", u"Text1"},
         {{{u"Text1", u"09"}}, u"Command1", u"課題番号 '09' は要因テーブルに存在しません。", u"Text1"},
         {{{u"Text1", u"5"}},
          u"Command1",
          u"課題番号 '5' は課題要因として要因テーブルに存在しません。",
          u"Text1"},
         {{{u"Text1", u"1"}}, u"Command1", u"課題区分が不正です。", u"Text2"},
         {{{u"Text2", u"1"}}, u"Command1", u"構成レベルが不正です。", u"Text3"},
         {{{u"Text3", u""}}, u"Command1", u"最大分岐数が不正です。", u"Text4"},
         {{{u"Text4", u" "}}, u"Command1", u"比較回数が不正です。", u"Text5"},
         {{{u"Text5", u"-1.5"}}, u"Command1", u"'1' は既に存在します。", u"Text1"}});
    type(allWrong);
    expectRefusals(u"課題登録", u"課題",
                   {{{{u"Text1", u"x"}}, u"Command2", u"課題区分が不正です。", u"Text2"},
                    {{{u"Text2", u"1"}}, u"Command2", u"構成レベルが不正です。", u"Text3"},
                    {{{u"Text3", u"3"}, {u"Text4", u"7"}}, u"Command2", u"比較回数が不正です。", u"Text5"},
                    {{{u"Text5", u"1"}}, u"Command2", u"課題番号 'x' は存在しません。", u"Text1"},
                    {{}, u"Command3", u"課題番号 'x' は存在しません。", u"Text1"}});
}

TEST_F(ProblemConfigurationTest, RegistersChangesAndShows) {
    type({{u"Text1", u"２"}, {u"Text2", u"-1"}, {u"Text5", u"100000"}});
    click(u"Command1");
    EXPECT_EQ(fields(), u"２||-1|||100000"_s);
    EXPECT_EQ(texts({u"Status"}), u"0002 '課題二' を登録しました。"_s);
    EXPECT_TRUE(hasFocus(screen, u"Text1"));
    click(u"Command3");
    EXPECT_EQ(fields(), u"２|課題二|-1|0|0|100000"_s); // empty levels and branches are 0
    type({{u"Text1", u"5"}, {u"Text3", u"4"}});
    click(u"Command2"); // although the factor is no problem any more
    EXPECT_EQ(stored(u"SELECT * FROM 課題 ORDER BY 課題番号"_s),
              u"1|1|3|7|2 2|-1|0|0|100000 5|-1|4|0|100000"_s);
    EXPECT_EQ(fields(), u"|||||"_s);

    // Whole numbers only: what no screen could read again is refused, fractions are rounded to the even
    // neighbour.
    type({{u"Text1", u"1"},
          {u"Text2", u"0"},
          {u"Text3", u"3000000000"},
          {u"Text4", u"2.5"},
          {u"Text5", u"1"}});
    EXPECT_EQ(told(screen, u"Command2"), warning(u"変更"_s, u"オーバーフローしました。"_s));
    type({{u"Text3", u"3"}});
    click(u"Command2");
    EXPECT_EQ(stored(u"SELECT * FROM 課題 WHERE 課題番号=1"_s), u"1|0|3|2|1"_s);
}

TEST_F(ProblemConfigurationTest, WhatCannotBeStoredStaysInTheFields) {
    for (const auto& [button, number] : {std::pair{u"Command1", u"2"}, {u"Command2", u"1"}}) {
        type({{u"Text1", number}, {u"Text2", u"1"}, {u"Text5", u"4"}});
        expectNothingStored(button, [this] { return fields(); });
    }
}

TEST_F(ProblemConfigurationTest, DoubleClickTakesWhatWasPicked) {
    const auto doubleClick = [this] { QTest::mouseDClick(control(screen, u"Text1"), Qt::LeftButton); };
    EXPECT_TRUE(isOpen(u"課題候補表示"));
    doubleClick(); // the list of problems picks none
    EXPECT_EQ(fields(), u"|||||"_s);
    Common::PickCount = 0;
    doubleClick();
    EXPECT_EQ(fields(), u"1|課題一||||"_s);
    EXPECT_EQ(Common::PickList.size(), 1U);
    Common::Forms.find(screen)->close();
    EXPECT_FALSE(isOpen(screen) || isOpen(u"課題候補表示"));
}
