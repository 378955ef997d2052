#include "registration/RegistrationTest.h"

namespace {

class EvaluatorRegistrationTest : public RegistrationTest {
  protected:
    void openWith(const QString& evaluators) {
        run(u"DELETE FROM 評価者"_s);
        if (!evaluators.isEmpty()) run(u"INSERT INTO 評価者 VALUES "_s + evaluators);
        open(u"登録メニュー");
        click(u"Command6");
        screen = u"評価者登録"_s;
    }
};

TEST_F(EvaluatorRegistrationTest, ProposesOnePastTheHighestNumber) {
    for (const auto& [highest, proposed] : {std::pair{7, u"008"_s}, {999, u"000"_s}, {9500, u"050"_s}}) {
        openWith(u"(%1,'a','b')"_s.arg(highest));
        EXPECT_EQ(texts({u"Text1"}), proposed);
        EXPECT_FALSE(isOpen(u"登録メニュー"));
        click(u"Command4");
        EXPECT_FALSE(isOpen(screen) || isOpen(u"評価者表示"));
    }
}

TEST_F(EvaluatorRegistrationTest, StaysInTheMenuWhenTheTableCannotBeRead) {
    for (const auto& [evaluators, title] :
         {std::pair{QString(), u"94評価者テーブルエラー"_s}, {u"(1)"_s, u"評価者テーブルエラー"_s}}) {
        openWith(evaluators);
        const auto messages = takeMessages();
        ASSERT_EQ(messages.size(), 1U);
        EXPECT_EQ(messages[0].title, title);
        EXPECT_TRUE(isOpen(u"登録メニュー"));
        EXPECT_FALSE(isOpen(screen) || isOpen(u"評価者表示"));
        run(u"DROP TABLE 評価者"_s);
        run(u"CREATE TABLE 評価者 (評価者番号 INTEGER)"_s); // enough for the proposal, not for the list
    }
}

TEST_F(EvaluatorRegistrationTest, RefusesInTheOrderOfTheChecks) {
    openWith(u"(5,'名','部')"_s);
    expectRefusals(screen, u"評価者",
                   {{{{u"Text1", u""}}, u"Command1", u"評価者番号が不正です。", u"Text1"},
                    {{{u"Text1", u"05"}, {u"Text3", u" "}}, u"Command1", u"評価者氏名が不正です。", u"Text3"},
                    {{{u"Text3", u"n"}}, u"Command1", u"評価者番号 '05' 既に存在します。", u"Command1"},
                    {{{u"Text1", u"6x"}, {u"Text3", u""}}, u"Command2", u"評価者氏名が不正です。", u"Text3"},
                    {{{u"Text3", u"n"}}, u"Command2", u"評価者番号 '6x' は存在しません。", u"Text1"},
                    {{}, u"Command3", u"評価者番号 '6x' は存在しません。", u"Text1"}});
}

TEST_F(EvaluatorRegistrationTest, KeepsEveryTextAsTyped) {
    openWith(u"(5,'名',NULL)"_s);
    for (const auto& hurting : hurtingTexts) {
        run(u"DELETE FROM 評価者 WHERE 評価者番号 > 5"_s);
        type({{u"Text1", u"40000"}, {u"Text3", hurting}, {u"Text4", u""}});
        click(u"Command1");
        EXPECT_FALSE(isOpen(u"評価者表示"));
        EXPECT_EQ(texts({u"Text1", u"Text3"}), u"40000|"_s + hurting);
        type({{u"Text4", hurting}});
        Common::Forms.show(u"評価者表示"_s);
        click(u"Command2");
        EXPECT_FALSE(isOpen(u"評価者表示"));
        EXPECT_EQ(stored(u"SELECT * FROM 評価者 ORDER BY 評価者番号"_s),
                  u"5|名|NULL 40000|%1|%1"_s.replace(u"%1"_s, hurting));
        EXPECT_EQ(texts({u"Text1", u"Text3", u"Text4"}), u"||"_s);
        type({{u"Text1", u"４００００"}});
        click(u"Command3");
        EXPECT_EQ(texts({u"Text4"}), hurting);
    }
}

} // namespace
