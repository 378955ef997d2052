// Registration of factors, problems and evaluators.
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>

#include "registration/RegistrationTest.h"
#include "text/TextConversion.h"

class RegistrationScreensTest : public RegistrationTest {
  protected:
    RegistrationScreensTest() {
        run(u"INSERT INTO 要因 VALUES (1,0,'課題','goal'),(5,2,'要因',NULL)"_s);
        run(u"INSERT INTO 評価者 VALUES (5,'名',NULL)"_s);
    }
    QString factors() { return stored(u"SELECT * FROM 要因 ORDER BY 要因番号"_s); }
};

TEST_F(RegistrationScreensTest, ProposesOnePastTheHighestNumber) {
    for (const auto& [name, highest, proposed] :
         {std::tuple{u"要因登録"_s, u"要因 VALUES (3,1,'',''),(12,0,'','')"_s, u"0013"_s},
          {u"課題登録"_s, u"要因 VALUES (3,0,'',''),(12,1,'','')"_s, u"0013"_s},
          {u"要因登録"_s, u"要因 VALUES (9999,1,'','')"_s, u"0000"_s},
          {u"課題登録"_s, u"要因 VALUES (95000,1,'','')"_s, u"0500"_s},
          {u"評価者登録"_s, u"評価者 VALUES (7,'','')"_s, u"008"_s},
          {u"評価者登録"_s, u"評価者 VALUES (999,'','')"_s, u"000"_s},
          {u"評価者登録"_s, u"評価者 VALUES (9500,'','')"_s, u"050"_s}}) {
        for (const auto& table : {u"要因"_s, u"評価者"_s}) run(u"DELETE FROM "_s + table);
        run(u"INSERT INTO "_s + highest);
        open(name);
        EXPECT_EQ(texts({u"Text1"}), proposed);
        click(u"Command4");
        EXPECT_FALSE(isOpen(screen));
    }
    run(u"DELETE FROM 要因"_s);
    open(u"要因登録");
    EXPECT_EQ(texts({u"Text1"}), u"0001"_s);
    run(u"DELETE FROM 評価者"_s);
    open(u"登録メニュー");
    click(u"Command6");
    EXPECT_EQ(takeMessages().at(0).title, u"94評価者テーブルエラー"_s);
    EXPECT_TRUE(isOpen(u"登録メニュー"));
    EXPECT_FALSE(isOpen(u"評価者登録") || isOpen(u"評価者表示"));
    EXPECT_EQ(Common::MsgTitle, u"登録メニュー"_s);
}

TEST_F(RegistrationScreensTest, RefusesInTheOrderOfTheChecks) {
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
    open(u"評価者登録");
    expectRefusals(screen, u"評価者",
                   {{{{u"Text1", u""}}, u"Command1", u"評価者番号が不正です。", u"Text1"},
                    {{{u"Text1", u"05"}, {u"Text3", u" "}}, u"Command1", u"評価者氏名が不正です。", u"Text3"},
                    {{{u"Text3", u"n"}}, u"Command1", u"評価者番号 '05' 既に存在します。", u"Command1"},
                    {{{u"Text1", u"6x"}, {u"Text3", u""}}, u"Command2", u"評価者氏名が不正です。", u"Text3"},
                    {{{u"Text3", u"n"}}, u"Command2", u"評価者番号 '6x' は存在しません。", u"Text1"},
                    {{}, u"Command3", u"評価者番号 '6x' は存在しません。", u"Text1"}});
}

TEST_F(RegistrationScreensTest, KeepsEveryTextAsTyped) {
    for (const auto& hurting : hurtingTexts)
        for (const auto& [table, number, record] :
             {std::tuple{u"要因"_s, u"8"_s, u"5|2|要因|NULL 8|1|%1|%2"_s},
              {u"評価者"_s, u"40000"_s, u"5|名|NULL 40000|%1|%2"_s}}) {
            const auto kept = [this, table = table] {
                return stored(u"SELECT * FROM %1 WHERE %1番号 > 1 ORDER BY 1"_s.arg(table));
            };
            open(table + u"登録"_s);
            if (table == u"要因"_s) type({{u"Text2", u"1"}});
            type({{u"Text1", number}, {u"Text3", hurting}, {u"Text4", hurting}});
            click(u"Command1");
            EXPECT_EQ(kept(), record.arg(hurting, hurting));
            EXPECT_FALSE(isOpen(table + u"表示"_s));
            EXPECT_EQ(texts({u"Text1", u"Text3"}), number + u'|' + hurting);
            type({{u"Text3", u"改"}});
            click(u"Command2");
            EXPECT_EQ(kept(), record.arg(u"改"_s, hurting));
            EXPECT_EQ(texts({u"Text1", u"Text3", u"Text4"}), u"||"_s);
            type({{u"Text1", toFullWidth(number)}});
            click(u"Command3");
            EXPECT_EQ(texts({u"Text3", u"Text4"}), u"改|"_s + hurting);
            run(u"DELETE FROM %1 WHERE %1番号 > 5"_s.arg(table));
        }
}

TEST_F(RegistrationScreensTest, RegistersNumbersOfSixteenBitsAfterAQuestion) {
    open(u"要因登録");
    type({{u"Text1", u"32768"}, {u"Text2", u"1"}});
    EXPECT_EQ(told(screen, u"Command1"), warning(u"登録"_s, u"オーバーフローしました。"_s));
    for (const auto& endless : {u"1e999"_s, QString(400, u'9')}) {
        type({{u"Text1", endless}, {u"Text3", u"名"}});
        EXPECT_EQ(told(screen, u"Command2"), warning(u"変更"_s, u"オーバーフローしました。"_s));
        EXPECT_EQ(told(screen, u"Command3"), warning(u"表示"_s, u"オーバーフローしました。"_s));
    }
    type({{u"Text3", u""}});

    type({{u"Text1", u"３２７６７"}}); // the name may be empty
    answers = {MessageAnswer::No};
    EXPECT_EQ(told(screen, u"Command1"), question(screen, u"登録しますか ？"_s));
    EXPECT_EQ(factors(), u"1|0|課題|goal 5|2|要因|NULL"_s);
    EXPECT_TRUE(isOpen(u"要因表示"));
    click(u"Command1");
    EXPECT_EQ(factors(), u"1|0|課題|goal 5|2|要因|NULL 32767|1||"_s);
    EXPECT_TRUE(hasFocus(screen, u"Text1"));
    EXPECT_EQ(texts({u"Status"}), u"32767 '' を登録しました。次の番号は 2768 です。"_s);
    QTest::keyClick(control(screen, u"Text1"), Qt::Key_Escape); // nothing is left to be lost
    EXPECT_FALSE(isOpen(screen));
}

TEST_F(RegistrationScreensTest, ProblemsBecomeFactorsByChangeAndTheirListStaysOpen) {
    open(u"課題登録");
    Common::Forms.show(u"要因表示"_s);
    type({{u"Text1", u"1"}});
    click(u"Command3");
    EXPECT_EQ(texts({u"Status"}), u"0001 '課題' を表示しました。"_s);
    EXPECT_TRUE(hasFocus(screen, u"Text3"));
    type({{u"Text2", u"4"}, {u"Text3", u"n"}, {u"Text4", u""}});
    click(u"Command2");
    EXPECT_EQ(texts({u"Status"}), u"0001 'n' を変更しました。"_s);
    EXPECT_TRUE(hasFocus(screen, u"Text1"));
    for (const auto& next : {u"Text2", u"Text3"}) {
        QTest::keyClick(Common::Forms.find(screen)->focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(hasFocus(screen, next)); // Enter goes on to the next field
    }
    QTest::keyClick(Common::Forms.find(screen)->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(factors(), u"1|4|n| 5|2|要因|NULL"_s);
    EXPECT_FALSE(isOpen(u"要因表示"));
    EXPECT_TRUE(isOpen(u"課題要因表示"));
    QTest::keyClick(control(screen, u"Text1"), Qt::Key_Escape); // the fields are empty
    EXPECT_FALSE(isOpen(screen) || isOpen(u"課題要因表示"));
    EXPECT_TRUE(isOpen(u"登録メニュー"));
}

TEST_F(RegistrationScreensTest, WhatCannotBeStoredStaysInTheFields) {
    for (const auto& [name, list] : {std::pair{u"要因登録"_s, u"要因表示"_s},
                                     {u"課題登録"_s, u"課題要因表示"_s},
                                     {u"評価者登録"_s, u"評価者表示"_s}})
        for (const auto& [button, number] : {std::pair{u"Command1", u"8"}, {u"Command2", u"5"}}) {
            open(name);
            if (name != u"評価者登録"_s) type({{u"Text2", u"0"}});
            type({{u"Text1", number}, {u"Text3", u"名前"}, {u"Text4", u"説明"}});
            expectNothingStored(button, [this] { return texts({u"Text1", u"Text3", u"Text4"}); });
            EXPECT_TRUE(isOpen(list));
            EXPECT_EQ(factors() + stored(u"SELECT * FROM 評価者"_s),
                      u"1|0|課題|goal 5|2|要因|NULL5|名|NULL"_s);
        }
}

TEST_F(RegistrationScreensTest, WhatAnotherProgramWroteWhileTheQuestionStoodIsLookedUpAgain) {
    run(u"INSERT INTO 課題 VALUES (1,0,2,5,1)"_s);
    const struct {
        QString screen, number, button, written, refusal;
    } cases[] = {
        // Each goes on from what the one before left.
        {u"評価者登録"_s, u"6"_s, u"Command1"_s, u"INSERT INTO 評価者 VALUES (6,'他','')"_s,
         u"評価者番号 '6' 既に存在します。"_s},
        {u"評価者登録"_s, u"6"_s, u"Command2"_s, u"DELETE FROM 評価者 WHERE 評価者番号 = 6"_s,
         u"評価者番号 '6' は存在しません。"_s},
        {u"要因登録"_s, u"6"_s, u"Command1"_s, u"INSERT INTO 要因 VALUES (6,0,'他','')"_s,
         u"要因番号 '6' 既に存在します。"_s},
        {u"課題構成登録"_s, u"6"_s, u"Command1"_s, u"INSERT INTO 課題 VALUES (6,9,9,9,9)"_s,
         u"'6' は既に存在します。"_s},
        {u"課題構成登録"_s, u"6"_s, u"Command2"_s, u"DELETE FROM 課題 WHERE 課題番号 = 6"_s,
         u"課題番号 '6' は存在しません。"_s},
        {u"課題構成登録"_s, u"6"_s, u"Command1"_s, u"UPDATE 要因 SET 要因区分 = 1 WHERE 要因番号 = 6"_s,
         u"課題番号 '6' は課題要因として要因テーブルに存在しません。"_s},
        {u"課題登録"_s, u"6"_s, u"Command2"_s, u"DELETE FROM 要因 WHERE 要因番号 = 6"_s,
         u"要因番号 '6' は存在しません。"_s},
    };
    const auto everything = [this] {
        return factors() + u'/' + stored(u"SELECT * FROM 評価者"_s) + u'/' + stored(u"SELECT * FROM 課題"_s);
    };
    const QString before = everything();
    for (const auto& [name, number, button, written, refusal] : cases) {
        open(name);
        for (const QStringView field : {u"Text1", u"Text2", u"Text3", u"Text4", u"Text5"})
            if (Common::Forms.find(name)->findChild<QLineEdit*>(field.toString()))
                type({{field, field == u"Text1" ? number : u"0"_s}});
        writtenMeanwhile = {written};
        const auto messages = told(name, button);
        ASSERT_EQ(messages.size(), 2U) << refusal.toStdString();
        EXPECT_EQ(messages[1].text, refusal);
    }
    EXPECT_EQ(everything(), before); // what the other program added it took away again
}

TEST_F(RegistrationScreensTest, FieldsKeepOneLineOfWhatIsPasted) {
    open(u"要因登録");
    auto* name = control<QLineEdit>(screen, u"Text3");
    for (const auto& [pasted, kept] : {std::pair{u"防災\r\n計画\r\n"_s, u"前防災後"_s},
                                       {u"\n\n防災\t計画\u2028次"_s, u"前防災 計画後"_s},
                                       {u"防\x1b災"_s, u"前防災後"_s},
                                       {u"\r\n"_s, u"前後"_s}}) {
        name->setText(u"前後"_s);
        name->setCursorPosition(1);
        QGuiApplication::clipboard()->setText(pasted);
        name->paste();
        EXPECT_EQ(name->text(), kept);
    }
    for (const auto& marked : {u"旧計画"_s, u"防災と計画"_s, u"防災"_s}) {
        name->setText(marked);
        name->selectAll();
        QGuiApplication::clipboard()->setText(u"防災\r\n計画"_s);
        name->paste();
        EXPECT_EQ(name->text(), u"防災"_s);
    }
    // What was stored with line breaks is shown on one line, here and in the list, and changed so as a whole.
    run(u"UPDATE 要因 SET 要因名 = char(10) || '課' || char(13,10,9) || '題' || char(7,10) WHERE 要因番号 = 5"_s);
    for (int time = 0; time < 2; ++time) {
        type({{u"Text1", u"5"}});
        click(u"Command3");
        click(u"Command2");
        EXPECT_EQ(factors(), u"1|0|課題|goal 5|2|課 題|"_s);
    }
}
