// Comparison setup and the entry grid, driven as a user does.
#include <QAbstractItemView>
#include <QComboBox>
#include <QTest>

#include "judgement/ComparisonScale.h"
#include "platform/Dates.h"
#include "platform/FlexGrid.h"
#include "platform/Recordset.h"
#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;
using namespace Common;

namespace {

const QString setup = u"比較者設定"_s;
const QString setupTitle = u"比較（比較者設定）"_s;
const QString grid = u"比較値設定"_s;
const QString gridTitle = u"比較（比較値設定）"_s;

} // namespace

class ComparisonTest : public ScreenTest {
  protected:
    // Problem 1 with children 12, 11, 13 (in display order) and 11 with the single child 14; problem 2
    // without structure and evaluators.
    ComparisonTest() {
        run(u"insert into 要因 values(1,0,'候補地の選定',''),(2,0,'空の課題',''),(11,1,'費用',''),"
            "(12,1,'交通',''),(13,1,'環境',''),(14,1,'建設費','')"_s);
        run(u"insert into 課題 values(1,0,2,3,2),(2,0,1,3,1)"_s);
        structure(u"1:12,11,13 11:14"_s);
        run(u"insert into 評価者 values(7,'山田 太郎',''),(3,'佐藤 花子','')"_s);
        run(u"insert into 課題評価者 values(1,7,''),(1,3,'')"_s);
    }

    void start() {
        CmpProblemNo = 1;
        CmpEvaluatorNo = 3;
        CmpRound = 2;
        CmpDate = u"2026/04/01"_s;
        Forms.show(grid);
        choose(grid, u"Combo1"_s, 0);
        click(grid, u"Command1"_s);
    }
    FlexGrid* cells() { return control<FlexGrid>(grid, u"MSFlexGrid1"_s); }
    QComboBox* chooser() { return control<QComboBox>(grid, u"CmbCell"_s); }
    void clickCell(int row, int column) {
        QTest::mouseClick(cells()->viewport(), Qt::LeftButton, {}, cells()->cellRect(row, column).center());
    }
    void pick(int row, int column, const QString& scale) {
        clickCell(row, column);
        emit chooser()->activated((chooser()->setCurrentText(scale), chooser()->currentIndex()));
    }
    QStringList storedValues() {
        return rows(
            u"select "
            u"課題番号,目的要因番号,比較元要因番号,比較対象要因番号,評価者番号,比較回数,比較日付,比較表示順,"
            u"比較値"
            " from 一対比較 order by 目的要因番号,比較表示順"_s);
    }
};

TEST_F(ComparisonTest, SetupRefusesInOrder) {
    Forms.show(setup);
    EXPECT_EQ(MsgTitle, setupTitle);
    EXPECT_EQ(text(setup, u"Text2"_s), formatDate(QDate::currentDate()));
    EXPECT_EQ(told(setup, u"Command1"_s), warning(setupTitle, u"評価対象課題が未選択です。"_s));

    choose(setup, u"Combo1"_s, 1);
    EXPECT_EQ(takeMessages(), warning(setupTitle, u" '0002 空の課題' の課題評価者は登録されてません。"_s));
    EXPECT_EQ(told(setup, u"Command1"_s),
              warning(setupTitle, u"選択された評価対象課題は要因構成に存在しません"_s));

    choose(setup, u"Combo1"_s, 0);
    EXPECT_EQ(text(setup, u"Label5"_s), u"2"_s);
    EXPECT_EQ(told(setup, u"Command1"_s), warning(setupTitle, u"評価者が未選択です。"_s));
    EXPECT_EQ(CmpProblemName, u"候補地の選定"_s);

    choose(setup, u"Combo2"_s, 0);
    EXPECT_EQ(text(setup, u"Combo2"_s), u"3 佐藤 花子"_s);
    type(setup, u"Text2"_s, u"2026/02/30"_s);
    control(setup, u"Command1"_s)->setFocus();
    EXPECT_EQ(told(setup, u"Command1"_s), warning(setupTitle, u"評価日付が不正です。"_s));
    EXPECT_TRUE(hasFocus(setup, u"Text2"_s));
    EXPECT_TRUE(isOpen(setup));
}

TEST_F(ComparisonTest, SetupOpensTheGridAndTellsOfAnExistingRound) {
    run(u"insert into 一対比較 values(1,1,12,11,3,2,'2026/01/01',1,3)"_s);
    Forms.show(setup);
    choose(setup, u"Combo1"_s, 0);
    choose(setup, u"Combo2"_s, 0);
    type(setup, u"Text2"_s, u"２０２６年４月１日"_s);
    EXPECT_EQ(told(setup, u"Command1"_s),
              (std::vector<ShownMessage>{
                  {setupTitle, u"指定された比較回数は一対比較に存在します"_s, MessageStyle::Plain}}));
    EXPECT_EQ(std::tuple(CmpProblemNo, CmpEvaluatorNo, CmpEvaluatorName, CmpRound, CmpDate),
              std::tuple(1, 3, u"佐藤 花子"_s, 2, u"2026/04/01"_s));
    EXPECT_TRUE(isOpen(grid));
    EXPECT_FALSE(isOpen(setup));
}

TEST_F(ComparisonTest, CancellingClearsTheSession) {
    Forms.show(setup);
    choose(setup, u"Combo1"_s, 0);
    choose(setup, u"Combo2"_s, 1);
    type(setup, u"Text2"_s, u"x"_s);
    click(setup, u"Command1"_s);
    click(setup, u"Command2"_s);
    EXPECT_EQ(std::tuple(CmpProblemNo, CmpProblemName, CmpEvaluatorNo, CmpEvaluatorName),
              std::tuple(0, QString(), 0, QString()));
    EXPECT_TRUE(isOpen(u"メニュー"_s));
}

TEST_F(ComparisonTest, TheGridShowsTheChildrenInDisplayOrder) {
    start();
    EXPECT_EQ(MsgTitle, gridTitle);
    EXPECT_EQ(text(grid, u"Combo1"_s), u"0001 候補地の選定"_s);
    EXPECT_EQ(cells()->text(0, 0), u"   比較元要因／比較先要因"_s);
    EXPECT_EQ(cells()->text(0, 2), u"   ②"_s);
    EXPECT_EQ(cells()->text(1, 0), u"①0012交通"_s);
    EXPECT_EQ(cells()->text(2, 0), u"②0011費用"_s);
    EXPECT_EQ(cells()->text(2, 2), u"   －"_s);
    for (const auto& [row, column] : {std::pair{2, 1}, {2, 2}, {3, 1}}) {
        clickCell(row, column);
        EXPECT_FALSE(chooser()->isVisible()) << row << ',' << column;
    }
    clickCell(1, 2);
    EXPECT_TRUE(chooser()->isVisible());
    EXPECT_EQ(chooser()->count(), 17);
    EXPECT_EQ(chooser()->geometry().topLeft(), cells()->cellRect(1, 2).topLeft());
}

TEST_F(ComparisonTest, ChosenValuesAreMirroredAndStoredInPairOrder) {
    run(u"insert into 一対比較 values(1,1,12,11,3,2,'2026/01/01',1,9)"_s);
    run(u"insert into 一対比較 values(1,1,12,11,3,1,'2026/01/01',1,8)"_s);
    run(u"insert into 一対比較 values(1,1,12,11,7,2,'2026/01/01',1,7)"_s);
    start();
    pick(1, 2, u"9"_s);
    pick(1, 2, u"1/3"_s);
    EXPECT_EQ(cells()->text(1, 2), u"1/3"_s);
    EXPECT_EQ(cells()->text(2, 1), u"3"_s);
    EXPECT_FALSE(chooser()->isVisible());
    pick(1, 3, u"1"_s);
    EXPECT_EQ(cells()->text(3, 1), u"1"_s);

    EXPECT_EQ(told(grid, u"Command2"_s),
              warning(gridTitle, u"比較値の未設定があります、全てを設定してください"_s));
    EXPECT_EQ(std::pair(cells()->row(), cells()->column()), std::pair(2, 3)); // the one to be filled
    EXPECT_EQ(storedValues().size(), 3);

    pick(2, 3, u"5"_s);
    EXPECT_EQ(told(grid, u"Command2"_s), std::vector<ShownMessage>());
    EXPECT_EQ(rows(u"select 比較値 from 一対比較 where 比較回数=1 or 評価者番号=7 order by 比較値"_s),
              (QStringList{u"7"_s, u"8"_s}));
    run(u"delete from 一対比較 where 比較回数=1 or 評価者番号=7"_s);
    EXPECT_EQ(storedValues(),
              (QStringList{u"1|1|12|11|3|2|2026/04/01|1|0.3333333432674408"_s, // 1/3 in single precision
                           u"1|1|12|13|3|2|2026/04/01|2|1"_s, u"1|1|11|13|3|2|2026/04/01|3|5"_s}));
}

TEST_F(ComparisonTest, ASingleChildHasNoPairs) {
    run(u"insert into 一対比較 values(1,11,14,14,3,2,'2026/01/01',1,9)"_s);
    start();
    choose(grid, u"Combo1"_s, 1);
    click(grid, u"Command1"_s);
    click(grid, u"Command2"_s);
    EXPECT_EQ(storedValues(), QStringList());
}

TEST_F(ComparisonTest, TheKeyboardAloneFillsTheGrid) {
    start();
    EXPECT_TRUE(hasFocus(grid, u"MSFlexGrid1"_s));
    QTest::keyClicks(cells(), u"3"_s);
    QTest::keyClick(cells(), Qt::Key_Right);
    QTest::keyClicks(cells(), u"1/4"_s);
    QTest::keyClick(cells(), Qt::Key_Right); // on to the next row's first pair
    EXPECT_EQ(std::pair(cells()->row(), cells()->column()), std::pair(2, 3));
    QTest::keyClick(cells(), Qt::Key_F2);
    EXPECT_TRUE(chooser()->isVisible());
    QTest::keyClick(chooser()->view(), Qt::Key_Return); // nothing is chosen yet
    EXPECT_EQ(cells()->text(2, 3), u""_s);
    QTest::keyClick(cells(), Qt::Key_Return);
    QTest::keyClick(chooser()->view(), Qt::Key_Down);
    QTest::keyClick(chooser()->view(), Qt::Key_End);
    QTest::keyClick(chooser()->view(), Qt::Key_Return);
    EXPECT_EQ(QStringList({cells()->text(1, 2), cells()->text(1, 3), cells()->text(2, 3)}),
              QStringList({u"3"_s, u"1/4"_s, u"1/9"_s}));
    EXPECT_TRUE(hasFocus(grid, u"MSFlexGrid1"_s));
}

TEST_F(ComparisonTest, TypedValuesAreNotLostByASlip) {
    start();
    pick(1, 2, u"2"_s);
    answers = {MessageAnswer::No, MessageAnswer::No, MessageAnswer::Yes};
    click(grid, u"Command1"_s);
    EXPECT_EQ(cells()->text(1, 2), u"2"_s);
    click(grid, u"Command3"_s);
    EXPECT_TRUE(isOpen(grid));
    Forms.find(grid)->close(); // by its frame
    EXPECT_TRUE(isOpen(u"メニュー"_s));
    EXPECT_FALSE(isOpen(grid));
    EXPECT_EQ(takeMessages().size(), 3U);
}

TEST_F(ComparisonTest, WhatCouldNotBeShownCannotBeSaved) {
    run(u"insert into 一対比較 values(1,1,12,11,3,2,'2026/01/01',1,9)"_s);
    run(u"update 要因構成 set 子要因番号 = '' where 子要因番号 = 12"_s);
    run(u"insert into 要因 (要因番号,要因区分,要因名) values('',1,'x')"_s);
    start();
    EXPECT_EQ(takeMessages(), warning(u"評価開始"_s, u"型が一致しません。"_s));
    EXPECT_EQ(told(grid, u"Command2"_s),
              warning(gridTitle, u"目的要因が選択されてません、目的要因を選択してください。"_s));
    EXPECT_EQ(storedValues().size(), 1);
}

TEST_F(ComparisonTest, AnAbandonedChooserChoosesNothing) {
    start();
    clickCell(1, 2);
    chooser()->hidePopup();
    EXPECT_FALSE(chooser()->isVisible());
    EXPECT_TRUE(hasFocus(grid, u"MSFlexGrid1"_s));
    // The input method leaves digits to the grid; full-width ones count too.
    EXPECT_FALSE(cells()->testAttribute(Qt::WA_InputMethodEnabled));
    QKeyEvent wide(QEvent::KeyPress, Qt::Key_3, Qt::NoModifier, u"３"_s);
    QCoreApplication::sendEvent(cells(), &wide);
    EXPECT_EQ(cells()->text(1, 2), u"3"_s);
}

TEST_F(ComparisonTest, AGoalWithTwentyOneChildrenIsAnError) {
    for (int child = 20; child < 40; ++child) {
        run(u"insert into 要因 (要因番号,要因区分,要因名) values(%1,1,'x')"_s.arg(child));
        run(u"insert into 要因構成 values(1,12,%1,%2,'0')"_s.arg(child).arg(child - 19));
    }
    Forms.unload(grid);
    start();
    choose(grid, u"Combo1"_s, 2);
    click(grid, u"Command1"_s);
    EXPECT_EQ(cells()->text(20, 0), u"⑳0039x"_s);
    clickCell(19, 20);
    EXPECT_TRUE(chooser()->isVisible());
    run(u"insert into 要因 (要因番号,要因区分,要因名) values(40,1,'x')"_s);
    run(u"insert into 要因構成 values(1,12,40,21,'0')"_s);
    EXPECT_EQ(told(grid, u"Command1"_s), warning(u"評価開始"_s, u"インデックスが有効範囲にありません。"_s));
}

TEST(ComparisonScale, PositionsMirrorEachOther) {
    EXPECT_EQ(scaleText(0), u"9"_s);
    EXPECT_EQ(scaleText(8), u"1"_s);
    EXPECT_EQ(scaleText(9), u"1/2"_s);
    EXPECT_EQ(scaleText(16), u"1/9"_s);
    EXPECT_EQ(mirrorPosition(8), 8);
    EXPECT_EQ(mirrorPosition(0), 16);
    EXPECT_EQ(scaleValue(10), 1.0F / 3);
}
