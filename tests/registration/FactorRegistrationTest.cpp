#include "registration/RegistrationTest.h"

namespace {

class FactorRegistrationTest : public RegistrationTest {
  protected:
    FactorRegistrationTest() { run(u"INSERT INTO 要因 VALUES (1,0,'課題','goal'),(5,2,'要因',NULL)"_s); }

    QString factors() { return stored(u"SELECT * FROM 要因 ORDER BY 要因番号"_s); }
};

TEST_F(FactorRegistrationTest, ProposesOnePastTheHighestNumberOfAllFactors) {
    for (const auto& [highest, proposed] : {std::pair{QString(), u"0001"_s},
                                            {u"12,0"_s, u"0013"_s},
                                            {u"9999,1"_s, u"0000"_s},
                                            {u"95000,1"_s, u"0500"_s}}) {
        run(u"DELETE FROM 要因"_s);
        if (!highest.isEmpty()) run(u"INSERT INTO 要因 VALUES (3,0,'a','b'),(%1,'c','d')"_s.arg(highest));
        for (const auto name : {u"要因登録", u"課題登録"}) {
            open(name);
            EXPECT_EQ(texts({u"Text1"}), proposed);
            click(u"Command4");
        }
    }
}

TEST_F(FactorRegistrationTest, RefusesInTheOrderOfTheChecks) {
    for (const auto name : {u"要因登録", u"課題登録"}) {
        open(name);
        expectRefusals(
            name, u"要因",
            {{{{u"Text1", u"1,0"}}, u"Command1", u"要因番号が不正です。", u"Text1"},
             {{{u"Text1", u"05"}, {u"Text2", u" "}}, u"Command1", u"要因区分が不正です。", u"Text2"},
             {{{u"Text2", u"０"}}, u"Command1", u"要因番号 '05' 既に存在します。", u"Command1"},
             {{{u"Text1", u"x"}, {u"Text2", u"y"}}, u"Command2", u"要因区分が不正です。", u"Text2"},
             {{{u"Text2", u"3"}, {u"Text3", u" 　"}}, u"Command2", u"要因名が不正です。", u"Text3"},
             {{{u"Text3", u"n"}}, u"Command2", u"要因番号 'x' は存在しません。", u"Text1"},
             {{{u"Text1", u"%1'"}}, u"Command3", u"要因番号 '%1'' は存在しません。", u"Text1"}});
    }
    expectRefusals(u"課題登録", u"要因",
                   {{{{u"Text1", u"5"}, {u"Text2", u"1"}}, u"Command1", u"要因区分が不正です。", u"Text2"}});
}

TEST_F(FactorRegistrationTest, RegistersNumbersOfSixteenBits) {
    open(u"要因登録");
    type({{u"Text1", u"32768"}, {u"Text2", u"1"}});
    click(u"Command1");
    EXPECT_EQ(takeMessages(), warning(u"登録"_s, u"オーバーフローしました。"_s));

    type({{u"Text1", u"３２７６７"}}); // the name may be empty
    answers = {MessageAnswer::No};
    click(u"Command1");
    EXPECT_EQ(takeMessages(), question(screen, u"登録しますか ？"_s));
    EXPECT_EQ(factors(), u"1|0|課題|goal 5|2|要因|NULL"_s);
    EXPECT_TRUE(isOpen(u"要因表示"));
    click(u"Command1");
    EXPECT_EQ(factors(), u"1|0|課題|goal 5|2|要因|NULL 32767|1||"_s);
    EXPECT_FALSE(isOpen(u"要因表示"));
    EXPECT_TRUE(hasFocus(screen, u"Text1"));
    EXPECT_EQ(texts({u"Text1", u"Text2"}), u"３２７６７|1"_s);
}

TEST_F(FactorRegistrationTest, KeepsEveryTextAsTyped) {
    open(u"要因登録");
    for (const auto& hurting : hurtingTexts) {
        run(u"DELETE FROM 要因 WHERE 要因番号 = 8"_s);
        type({{u"Text1", u"8"}, {u"Text2", u"1"}, {u"Text3", hurting}, {u"Text4", hurting}});
        click(u"Command1");
        EXPECT_TRUE(factors().endsWith(u" 8|1|%1|%1"_s.replace(u"%1"_s, hurting)));
        type({{u"Text2", u"100000"}, {u"Text3", u"改"}});
        click(u"Command2");
        EXPECT_EQ(factors(), u"1|0|課題|goal 5|2|要因|NULL 8|100000|改|"_s + hurting);
        EXPECT_EQ(texts({u"Text1", u"Text2", u"Text3", u"Text4"}), u"|||"_s);
        type({{u"Text1", u"８"}});
        click(u"Command3");
        EXPECT_EQ(texts({u"Text2", u"Text3", u"Text4"}), u"100000|改|"_s + hurting);
    }
}

TEST_F(FactorRegistrationTest, ProblemsBecomeFactorsByChangeAndTheirListStaysOpen) {
    open(u"課題登録");
    for (const auto& [typed, button] :
         {std::pair{Typed{{u"Text1", u"1"}, {u"Text2", u"4"}, {u"Text3", u"n"}}, u"Command2"_s},
          {Typed{{u"Text1", u"9"}, {u"Text2", u"0"}}, u"Command1"_s}}) {
        type(typed);
        Common::Forms.show(u"要因表示"_s);
        click(button);
        EXPECT_FALSE(isOpen(u"要因表示"));
        EXPECT_TRUE(isOpen(u"課題要因表示"));
    }
    EXPECT_EQ(factors(), u"1|4|n| 5|2|要因|NULL 9|0||"_s);
    Common::Forms.find(screen)->close();
    EXPECT_FALSE(isOpen(screen) || isOpen(u"課題要因表示"));
    EXPECT_TRUE(isOpen(u"登録メニュー"));
}

TEST_F(FactorRegistrationTest, ShowsNullAsEmptyAndReadsAWordAsZero) {
    run(u"INSERT INTO 要因 VALUES (0,NULL,NULL,'zero')"_s);
    open(u"要因登録");
    type({{u"Text1", u"abc"}, {u"Text2", u"old"}, {u"Text3", u"old"}});
    click(u"Command3");
    EXPECT_EQ(texts({u"Text2", u"Text3", u"Text4"}), u"||zero"_s);
}

} // namespace
