// The session's checks and formatters, and the menus.
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "core/Messages.h"
#include "support/ScreenTest.h"
#include "text/Padding.h"

using namespace Qt::StringLiterals;
using namespace Common;

class CommonTest : public ScreenTest {};

TEST_F(CommonTest, EntriesAreTakenByTheirLeadingNumber) {
    MsgTitle = u"個人結果"_s;
    ProblemEntry = u"  "_s;
    EXPECT_FALSE(CheckProblemChosen());
    EXPECT_EQ(takeMessages(), warning(u"個人結果"_s, u"課題が未設定です"_s));
    ProblemEntry = u" 12:名:前"_s;
    EXPECT_TRUE(CheckProblemChosen());
    EXPECT_EQ(ProblemNo, 12);
    EXPECT_EQ(ProblemNoText, u"12"_s);

    EvaluatorEntry = u"5:山田 太郎"_s;
    EXPECT_TRUE(CheckEvaluatorChosen());
    EXPECT_EQ(EvaluatorNos[0], 5);
    EXPECT_EQ(EvaluatorCount, 1);
    EvaluatorEntry = u"5"_s;
    EXPECT_THROW(CheckEvaluatorChosen(), RuntimeError);
    RoundEntry = u"40000"_s;
    EXPECT_THROW(CheckRoundChosen(), RuntimeError);
    EXPECT_THROW(EvaluatorNos[101], RuntimeError);
}

TEST_F(CommonTest, WhatIsMissingIsToldRoundFirst) {
    MsgTitle = u"評価計算"_s;
    EvaluatorEntry.clear();
    RoundEntry = u" "_s;
    EXPECT_FALSE(CheckRoundAndEvaluator());
    EXPECT_EQ(takeMessages(), (std::vector<ShownMessage>{{u"評価計算"_s, u"比較回数設定"_s},
                                                         {u"評価計算"_s, u"評価者が未選択です"_s}}));
    RoundEntry = u"2"_s;
    EXPECT_FALSE(CheckRoundAndEvaluator());
    EXPECT_EQ(takeMessages(), warning(u"評価計算"_s, u"評価者が未選択です"_s));
    EXPECT_EQ(RoundCount, 2);
}

TEST_F(CommonTest, TextsAreFittedToTheirWidth) {
    qint16 width = 10;
    EXPECT_EQ(PadWidth(u"山A1"_s, width, 1), u"山Ａ１　　"_s);
    EXPECT_EQ(width, 5); // the caller's variable is halved too
    width = 4;
    EXPECT_EQ(PadWidth(u"アイウエオ"_s, width, 1), u"アイ"_s);
    width = 4;
    EXPECT_EQ(PadWidth(u"Ａ１"_s, width, 0), u"A1  "_s);
    EXPECT_EQ(PadLeft(u"12"_s, 4), u"  12"_s);
    EXPECT_EQ(PadLeft(u"12345"_s, 4), u"1234"_s);
    EXPECT_THROW(PadLeft(u"1"_s, -1), RuntimeError);
    EXPECT_EQ(NullToZero(Value()), Value(0));
    EXPECT_EQ(NullToZero(Value(u""_s)), Value(0));
    EXPECT_EQ(NullToZero(Value(u"x"_s)), Value(u"x"_s));
    EXPECT_EQ(NullToEmpty(Value()), u""_s);
}

TEST_F(CommonTest, MenusLeadToTheirScreensAndBack) {
    Forms.show(u"メニュー"_s);
    const Connection* first = DbConn.get();
    EXPECT_EQ(text(u"メニュー"_s, u"Command2"_s), u"終   了"_s);
    EXPECT_EQ(text(u"メニュー"_s, u"Command4"_s), u"比      較"_s);
    click(u"メニュー"_s, u"Command1"_s);
    EXPECT_TRUE(isOpen(u"登録メニュー"_s));
    EXPECT_FALSE(isOpen(u"メニュー"_s));
    click(u"登録メニュー"_s, u"Command2"_s);
    EXPECT_TRUE(isOpen(u"メニュー"_s));
    EXPECT_FALSE(isOpen(u"登録メニュー"_s));
    EXPECT_NE(DbConn.get(), first); // opened anew on every return

    run(u"INSERT INTO 評価者 VALUES (1,'甲','')"_s);
    const QMap<QString, QString> named{{u"基礎データ登録"_s, u"登録メニュー"_s},
                                       {u"比      較"_s, u"比較者設定"_s}};
    for (const auto& menu : {u"メニュー"_s, u"登録メニュー"_s})
        for (int number = 1; number <= 8; ++number) {
            Forms.unloadAll();
            Forms.show(menu);
            const auto* button = Forms.find(menu)->findChild<QPushButton*>(u"Command%1"_s.arg(number));
            if (button == nullptr || button->text() == u"終   了"_s) continue;
            const auto opened = named.value(button->text(), button->text());
            click(menu, button->objectName());
            EXPECT_TRUE(isOpen(opened) && !isOpen(menu)) << opened.toStdString();
        }
    Forms.unloadAll();
    Forms.show(u"メニュー"_s);

    // By keyboard: the arrow goes to the next button, Enter presses it.
    control(u"メニュー"_s, u"Command1"_s)->setFocus();
    QTest::keyClick(control(u"メニュー"_s, u"Command1"_s), Qt::Key_Down);
    QTest::keyClick(control(u"メニュー"_s, u"Command4"_s), Qt::Key_Return);
    EXPECT_TRUE(isOpen(u"比較者設定"_s));
    Forms.find(u"比較者設定"_s)->close(); // by its frame
    click(u"メニュー"_s, u"Command2"_s);
    EXPECT_FALSE(isOpen(u"メニュー"_s));
    EXPECT_FALSE(DbConn->isOpen());
}

TEST_F(CommonTest, AMissingDatabaseEndsTheProgram) {
    Forms.show(u"登録メニュー"_s);
    DbConn->close();
    QFile::remove(directory() + u"/DB/Hollin.mdb"_s);
    const std::function<void()> byButton = [this] { click(u"登録メニュー"_s, u"Command2"_s); };
    const std::function<void()> byFrame = [] { Forms.find(u"登録メニュー"_s)->close(); };
    for (const auto& leave : {byButton, byFrame}) {
        leave();
        const auto messages = takeMessages();
        ASSERT_EQ(messages.size(), 1U);
        EXPECT_TRUE(messages[0].text.contains(u"プログラムを終了します"));
        EXPECT_TRUE(messages[0].text.contains(u"データベースのファイルが見つかりません。"));
        EXPECT_FALSE(isOpen(u"メニュー"_s));
    }
}

// Later a file that is in use or gone keeps the user where he is, with the connection that he had.
TEST_F(CommonTest, OnTheWayBackTheScreenStaysUnlessTheUserEndsTheProgram) {
    const QString file = directory() + u"/DB/Hollin.mdb"_s;
    Forms.show(u"登録メニュー"_s);
    run(u"INSERT INTO 要因 VALUES (1,0,'課題','')"_s);
    makeDurable();
    QFile::rename(file, file + u".moved"_s);
    for (const auto answer : {MessageAnswer::No, MessageAnswer::Yes}) {
        answers = {answer};
        const auto messages = told(u"登録メニュー"_s, u"Command2"_s);
        ASSERT_EQ(messages.size(), 1U);
        EXPECT_EQ(messages[0].title, u"登録メニュー"_s);
        EXPECT_EQ(messages[0].style, MessageStyle::Discard);
        EXPECT_TRUE(messages[0].text.contains(u"データベースのファイルが見つかりません。"));
        EXPECT_TRUE(isOpen(u"登録メニュー"_s) && !isOpen(u"メニュー"_s) && DbConn->isOpen());
    }
    QFile::rename(file + u".moved"_s, file);
    click(u"登録メニュー"_s, u"Command2"_s);
    EXPECT_TRUE(isOpen(u"メニュー"_s));
    EXPECT_EQ(stored(u"SELECT 要因名 FROM 要因"_s), u"課題"_s);
}

TEST_F(CommonTest, AnErrorWhileChoosingLeavesTheScreenAsItWas) {
    run(u"INSERT INTO 要因 VALUES (1,0,'一',''),(2,0,'二',''),(3,1,'子','')"_s);
    run(u"INSERT INTO 課題 VALUES (1,0,2,5,1),(2,0,2,5,7)"_s);
    run(u"INSERT INTO 評価者 VALUES (1,'甲',''),(2,'乙','')"_s);
    run(u"INSERT INTO 課題評価者 VALUES (1,1,''),(2,2,'')"_s);
    structure(u"1:3"_s);
    for (const auto& screen : {u"課題評価者登録"_s, u"要因構成登録"_s, u"比較者設定"_s, u"評価計算"_s,
                               u"分析出力"_s, u"調査票"_s, u"図"_s}) {
        openDatabase(directory());
        Forms.show(screen);
        choose(screen, u"Combo1", 0);
        const auto shown = [&] {
            QString texts;
            for (auto* box : Forms.find(screen)->findChildren<QComboBox*>())
                for (int index = -1; index < box->count(); ++index)
                    texts += index < 0 ? box->currentText() : box->itemText(index);
            for (auto* list : Forms.find(screen)->findChildren<QListWidget*>())
                for (int row = 0; row < list->count(); ++row) texts += list->item(row)->text();
            for (auto* label : Forms.find(screen)->findChildren<QLabel*>()) texts += label->text();
            return texts;
        };
        const QString before = shown();
        const auto other = writer();
        choose(screen, u"Combo1", 1);
        const auto messages = takeMessages();
        ASSERT_EQ(messages.size(), 1U);
        EXPECT_EQ(messages[0].title, MsgTitle);
        EXPECT_TRUE(messages[0].text.contains(u"データベースをほかのプログラムが使用しています。"));
        EXPECT_EQ(shown(), before);
        Forms.unload(screen);
    }
    Forms.show(u"登録メニュー"_s);
    const auto other = writer();
    EXPECT_EQ(told(u"登録メニュー"_s, u"Command5"_s).at(0).title, u"登録メニュー"_s);
    EXPECT_EQ(MsgTitle, u"登録メニュー"_s);
    EXPECT_TRUE(isOpen(u"登録メニュー"_s));
}
