#include <QComboBox>
#include <QListWidget>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

#include "support/ScreenTest.h"
#include "widgets/FlexGrid.h"

using namespace Qt::StringLiterals;

const QString editor = u"要因構成登録"_s;

// Problem 1 "住宅" and the factors 11 … 49 "要因11" …, problem 2 "車" beside it.
class StructureEditorTest : public ScreenTest {
  protected:
    StructureEditorTest() {
        run(u"INSERT INTO 要因 WITH RECURSIVE n(i) AS (SELECT 11 UNION SELECT i + 1 FROM n WHERE i < 49) "
            "SELECT i,1,'要因' || i,'' FROM n UNION VALUES (1,0,'住宅',''),(2,0,'車','')"_s);
    }

    void open(int levels) {
        run(u"INSERT INTO 課題 VALUES (1,0,%1,5,1),(2,0,3,5,1)"_s.arg(levels));
        Common::Forms.show(editor);
        choose(editor, u"Combo1", 0);
    }

    FlexGrid* grid() { return control<FlexGrid>(editor, u"MSFlexGrid1"); }
    QListWidget* list() { return control<QListWidget>(editor, u"List1"); }
    // Numbers of the factor column, "-" for a free row above a filled one.
    QString children() {
        QString numbers;
        for (int row = 1; row <= 20; ++row) {
            const auto number = grid()->text(row, 1).left(4);
            numbers += number.isEmpty() ? u" -"_s : u" %1"_s.arg(number.toInt());
        }
        while (numbers.endsWith(u" -")) numbers.chop(2);
        return numbers.mid(1);
    }
    // The parents on offer.
    QString parents() {
        QStringList numbers;
        const auto* combo = control<QComboBox>(editor, u"Combo2");
        for (int index = 0; index < combo->count(); ++index)
            numbers << QString::number(combo->itemText(index).left(4).toInt());
        return numbers.join(u' ');
    }
    void chooseParent(int number) {
        choose(editor, u"Combo2", static_cast<int>(parents().split(u' ').indexOf(QString::number(number))));
    }
    void doubleClick(int factor) {
        auto* item = list()->findItems(u"%1"_s.arg(factor, 4, 10, QChar(u'0')), Qt::MatchStartsWith).at(0);
        list()->setCurrentItem(item);
        emit list()->itemDoubleClicked(item);
    }
    void setRow(int row, int factor) {
        grid()->setCurrent(row, 1);
        doubleClick(factor);
    }
    void save(int parent, const std::vector<int>& factors) {
        chooseParent(parent);
        for (const int factor : factors) doubleClick(factor);
        click(editor, u"Command1");
    }
    QString edges() {
        return stored(
            u"SELECT 課題番号,親要因番号,子要因番号,子要因表示順,子作成済 FROM 要因構成 ORDER BY 1,2,4"_s);
    }
    // "key label" of every node with its mark, indented by level.
    QString treeTexts() {
        QString texts;
        for (QTreeWidgetItemIterator at(control<QTreeWidget>(editor, u"TreeView1")); *at != nullptr; ++at) {
            texts += u'\n';
            for (auto* above = (*at)->parent(); above != nullptr; above = above->parent()) texts += u' ';
            texts += (*at)->data(0, Qt::UserRole).toString() + u' ' + (*at)->text(0) + (*at)->text(1);
        }
        return texts;
    }
};

TEST_F(StructureEditorTest, ATreeIsBuiltOneOpenParentAtATime) {
    open(2);
    EXPECT_EQ(parents(), u"1"_s);
    save(1, {12, 11});
    EXPECT_EQ(parents(), u"1 12"_s);
    click(editor, u"Command4");
    EXPECT_EQ(text(editor, u"Combo2"), u"0012 要因12"_s);
    save(12, {21, 22});
    EXPECT_EQ(parents(), u"1 12 11"_s);
    EXPECT_EQ(treeTexts(),
              u"\nR100 0001 住宅\n R1211 0012 要因12\n  R2121 0021 要因21\n"
              "  R2222 0022 要因22\n R1112 0011 要因11← 次に設定する親要因"_s);
    save(11, {22, 23});
    EXPECT_EQ(parents(), u"1 12 11"_s);
    EXPECT_EQ(edges(), u"1|1|12|1|1 1|1|11|2|1 1|11|22|1|0 1|11|23|2|0 1|12|21|1|0 1|12|22|2|0"_s);
    EXPECT_EQ(
        stored(
            u"SELECT 親レベル,親シーケンス,親要因番号,子レベル,子シーケンス,子要因番号,子要因表示順,子作成済 "
            "FROM 構成表示 ORDER BY 1,2,4,5"_s),
        u"0|0|1|1|1|12|1|1 0|0|1|1|2|11|2|1 1|1|12|2|1|21|1|0 1|1|12|2|2|22|2|0 "
        "1|2|11|2|21|22|1|0 1|2|11|2|22|23|2|0"_s);
    EXPECT_EQ(takeMessages(), std::vector<ShownMessage>());

    // Saved again, the children of the problem count as not filled until they are saved themselves.
    save(1, {13});
    EXPECT_EQ(parents(), u"1 12"_s);
    EXPECT_EQ(stored(u"SELECT 子要因番号,子作成済 FROM 要因構成 WHERE 親要因番号 = 1"_s),
              u"12|0 11|0 13|0"_s);
}

TEST_F(StructureEditorTest, TheStructureLevelBoundsParentsAndDisplay) {
    structure(u"1:11 11:12 12:13 13:14"_s);
    structure(u"2:40"_s, 2);
    // {levels, parents on offer, deepest displayed level}
    for (const auto& [levels, offered, deepest] : {std::tuple{0, u"1"_s, u"1"_s},
                                                   {1, u"1"_s, u"2"_s},
                                                   {3, u"1 11 12"_s, u"4"_s},
                                                   {2000000000, u"1 11 12 13 14"_s, u"4"_s}}) {
        run(u"DELETE FROM 課題"_s);
        open(levels);
        EXPECT_EQ(parents(), offered) << levels;
        EXPECT_EQ(stored(u"SELECT max(子レベル) FROM 構成表示"_s), deepest) << levels;
        Common::Forms.unload(editor);
    }
}

TEST_F(StructureEditorTest, SavingWritesTheRowsAboveTheFirstFreeOne) {
    structure(u"2:11"_s, 2);
    open(3);
    EXPECT_EQ(told(editor, u"Command1"), warning(editor, u"要因（親）を選択して下さい"_s));
    chooseParent(1);
    setRow(2, 21);
    EXPECT_EQ(told(editor, u"Command1"), warning(editor, u"要因（子）が設定されてません"_s));
    EXPECT_EQ(edges(), u"2|2|11|1|0"_s);

    setRow(1, 11);
    setRow(4, 14);
    click(editor, u"Command1");
    EXPECT_EQ(edges(), u"1|1|11|1|0 1|1|21|2|0 2|2|11|1|0"_s);
    // What stands below the gap is still there, and asked for.
    EXPECT_EQ(children(), u"11 21 - 14"_s);
    answers = {MessageAnswer::No};
    chooseParent(11);
    EXPECT_EQ(text(editor, u"Combo2"), u"0001 住宅"_s);

    chooseParent(11);
    save(11, {12});
    // The mark goes to every problem in which 11 is a child.
    EXPECT_EQ(edges(), u"1|1|11|1|1 1|1|21|2|0 1|11|12|1|0 2|2|11|1|1"_s);
}

TEST_F(StructureEditorTest, WhatIsLackingFollowsTheProblemsOwnTree) {
    structure(u"1:11,12"_s);
    run(u"UPDATE 要因構成 SET 子作成済 = '1'"_s); // parents in another problem
    open(2);
    const auto lacking = [this] {
        EXPECT_EQ(control(editor, u"Command4")->isEnabled(), text(editor, u"Label7").contains(u"次に"));
        return text(editor, u"Label7");
    };
    EXPECT_EQ(parents(), u"1 11 12"_s);
    EXPECT_EQ(lacking(), u"次に設定する親要因： 0011 要因11"_s);
    save(11, {21});
    EXPECT_EQ(lacking(), u"次に設定する親要因： 0012 要因12"_s);
    save(12, {21});
    EXPECT_EQ(lacking(), u"すべての親要因が設定されています。"_s);
    // Enter out of habit: the factor that is still marked is not added to the family just saved.
    EXPECT_TRUE(hasFocus(editor, u"Command2"));
    save(1, {13}); // 12 and 13 are closed before 11 has been saved again with the children that it has
    EXPECT_EQ(parents(), u"1 11"_s);
    for (const auto& [next, offered] : {std::pair{u"11"_s, u"1 11 12"_s}, {u"12"_s, u"1 11 12 13"_s}}) {
        EXPECT_EQ(lacking(), u"次に登録し直す親要因： 00%1 要因%1"_s.arg(next));
        EXPECT_TRUE(treeTexts().contains(next + u"← 次に登録し直す親要因"_s));
        for (const auto& button : {u"Command4"_s, u"Command1"_s}) {
            EXPECT_TRUE(hasFocus(editor, button));
            QTest::keyClick(control(editor, button), Qt::Key_Return);
        }
        EXPECT_EQ(parents(), offered);
    }
    EXPECT_EQ(lacking(), u"次に設定する親要因： 0013 要因13"_s);
    EXPECT_EQ(edges(), u"1|1|11|1|1 1|1|12|2|1 1|1|13|3|0 1|11|21|1|0 1|12|21|1|0"_s);
}

TEST_F(StructureEditorTest, NothingThatWasSetIsReplacedOrLostUnasked) {
    structure(u"1:11,12,13 12:14"_s);
    open(3);
    chooseParent(1);
    grid()->setCurrent(2, 1);
    for (int step = 0; step < 2; ++step) QTest::keyClick(grid(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(children(), u"11 13 - 12"_s);
    const QString before = edges();
    answers = {MessageAnswer::No};
    EXPECT_EQ(told(editor, u"Command1").at(0).style, MessageStyle::Discard);
    EXPECT_EQ(edges(), before);
    doubleClick(15); // into the gap, where the question led to
    EXPECT_EQ(children(), u"11 13 15 12"_s);
    for (int factor = 16; factor <= 32; ++factor) doubleClick(factor);
    EXPECT_EQ(takeMessages(), warning(editor, u"空いた行がありません。置き換える行を選択して下さい"_s));
    EXPECT_TRUE(children().endsWith(u" 30 31")) << children().toStdString();
    EXPECT_EQ(told(editor, u"Command1").size(), 0U);
}

TEST_F(StructureEditorTest, WhatAnotherProgramStoresWhileTheQuestionStandsIsAskedForToo) {
    structure(u"1:11,12,13"_s);
    open(3);
    chooseParent(1);
    grid()->setCurrent(2, 1);
    for (int step = 0; step < 2; ++step) QTest::keyClick(grid(), Qt::Key_Down, Qt::AltModifier);
    setRow(5, 15);
    EXPECT_EQ(children(), u"11 13 - 12 15"_s);
    answers = {MessageAnswer::Yes, MessageAnswer::No};
    writtenMeanwhile = {u"insert into 要因構成 values(1,1,15,4,'0')"_s};
    const auto asked = told(editor, u"Command1");
    ASSERT_EQ(asked.size(), 2U);
    EXPECT_TRUE(asked[0].text.contains(u" 1 件") && asked[1].text.contains(u" 2 件"));
    EXPECT_EQ(rows(u"select * from 要因構成"_s).size(), 4);
}

TEST_F(StructureEditorTest, ChildrenThatCannotStandThereAreRefusedBeforeAnythingIsWritten) {
    structure(u"1:11 11:12 12:13"_s);
    structure(u"2:30 30:13"_s, 2); // what stands above it elsewhere may stand below it here
    open(9);
    const QString before = edges();
    chooseParent(13);
    setRow(1, 30);
    for (const auto& [factor, reason] : {std::pair{13, u"'0013要因13' は要因（親）自身なので"_s},
                                         {11, u"'0011要因11' は要因（親）より上位の要因なので"_s},
                                         {1, u"'0001住宅' は課題そのものなので"_s},
                                         {30, u"'0030要因30' は二重に設定されている要因なので"_s}}) {
        setRow(2, factor);
        EXPECT_EQ(told(editor, u"Command1"), warning(editor, u"要因（子） %1登録できません。"_s.arg(reason)));
        EXPECT_EQ(edges(), before);
        EXPECT_EQ(children(), u"30 %1"_s.arg(factor));
        EXPECT_EQ(grid()->row(), 2);
    }
}

TEST_F(StructureEditorTest, EdgesOfRemovedSubtreesGoInOnePassByParentNumber) {
    structure(u"1:20 20:30 30:15 15:16"_s);
    structure(u"2:30 30:31"_s, 2);
    open(4);
    chooseParent(1);
    setRow(1, 11);
    click(editor, u"Command1");
    // 20 and then 30 are found without a parent; 15 was looked at before.
    EXPECT_EQ(edges(), u"1|1|11|1|0 1|15|16|1|0 2|2|30|1|1 2|30|31|1|0"_s);
    click(editor, u"Command1");
    EXPECT_EQ(edges(), u"1|1|11|1|0 2|2|30|1|1 2|30|31|1|0"_s);
}

TEST_F(StructureEditorTest, DeletingARowShiftsTheRowsDownToTheTenth) {
    structure(u"1:11,12,13,14,15,16,17,18,19,20,21,22"_s);
    open(2);
    for (const auto& [row, left] : {std::pair{2, u"11 13 14 15 16 17 18 19 20 - 21 22"_s},
                                    {10, u"11 12 13 14 15 16 17 18 19 - 21 22"_s},
                                    {12, u"11 12 13 14 15 16 17 18 19 - 21 22"_s}}) {
        chooseParent(1);
        grid()->setCurrent(row, 1);
        QTest::keyClick(grid(), Qt::Key_Delete);
        EXPECT_EQ(children(), left) << row;
    }
    for (const auto& [row, message] :
         {std::pair{10, u"要因（子）が設定されてません"_s}, {0, u"削除行を選択して下さい"_s}}) {
        grid()->setCurrent(row, row == 0 ? 0 : 1);
        EXPECT_EQ(told(editor, u"Command3"), warning(editor, message));
    }
    EXPECT_EQ(toldText(editor, u"Command1"), // 21 and 22
              u"空いた行より下の要因（子）は登録されません。\n登録済みの要因（子） 2 件が"
              "その下の構成とともに削除されます。登録しますか ？"_s);
    EXPECT_TRUE(edges().endsWith(u" 1|1|19|9|0"));
}

TEST_F(StructureEditorTest, NodesWhoseKeysCoincideStandInTheirOwnPlaces) {
    run(u"INSERT INTO 要因 VALUES (3,1,'三','')"_s);
    // 32 on level 1 with sequence 15, and 3 on level 2 with sequence (6 − 1) × 20 + 15.
    structure(u"1:11@6,32@15 11:3@15 3:40 32:41"_s);
    open(4);
    EXPECT_EQ(treeTexts(),
              u"\nR100 0001 住宅\n R1116 0011 要因11\n  R32115 0003 三\n"
              "   R4032281 0040 要因40\n R32115 0032 要因32\n"
              "  R412281 0041 要因41← 次に設定する親要因"_s);
}

TEST_F(StructureEditorTest, UnsavedChildrenAreNotDroppedWithoutAQuestion) {
    structure(u"1:11"_s);
    open(3);
    chooseParent(11);
    doubleClick(21);
    const std::vector<std::function<void()>> ways{
        [this] { choose(editor, u"Combo1", 1); },    [this] { chooseParent(1); },
        [this] { click(editor, u"Command4"); },      [this] { click(editor, u"Command2"); },
        [] { Common::Forms.find(editor)->close(); },
    };
    for (const auto& way : ways) {
        answers = {MessageAnswer::No};
        way();
        EXPECT_EQ(takeMessages().size(), 1U);
        ASSERT_TRUE(isOpen(editor));
        EXPECT_EQ(children(), u"21"_s);
        EXPECT_EQ(text(editor, u"Combo1"), u"0001 住宅"_s);
        EXPECT_EQ(text(editor, u"Combo2"), u"0011 要因11"_s);
    }
    choose(editor, u"Combo1", 1);
    EXPECT_EQ(children(), QString());
    EXPECT_EQ(parents(), u"2"_s);
    EXPECT_EQ(told(editor, u"Command2").size(), 0U);
    EXPECT_TRUE(isOpen(u"登録メニュー"));
    EXPECT_FALSE(isOpen(editor));
}

TEST_F(StructureEditorTest, WhatCannotBeStoredCountsAsUnsaved) {
    structure(u"1:11"_s);
    open(3);
    save(11, {});
    doubleClick(21);
    const auto shown = [this] { return children() + parents() + treeTexts(); };
    const QString before = shown();
    auto other = reader();
    takeMessages();
    for (const auto& act : std::vector<std::function<void()>>{[this] { click(editor, u"Command1"); },
                                                              [this] { choose(editor, u"Combo1", 1); }}) {
        act();
        EXPECT_TRUE(takeMessages().back().text.contains(u"データベースをほかのプログラムが使用しています。"));
        EXPECT_EQ(shown(), before);
        EXPECT_EQ(text(editor, u"Combo1"), u"0001 住宅"_s);
    }
    EXPECT_EQ(toldText(editor, u"Command2"), u"登録されていない要因（子）があります。終了しますか ？"_s);
    other.reset();
    EXPECT_EQ(edges(), u"1|1|11|1|0"_s);
}

TEST_F(StructureEditorTest, FactorsAreFoundByNumberOrNameAndTakenByEnter) {
    run(u"INSERT INTO 要因 VALUES (60,1,'コスト''%;','')"_s);
    run(u"INSERT INTO 要因 VALUES (0,1,'番号\n'||char(13)||'なし','')"_s);
    open(2);
    const auto find = [this](const QString& wanted) {
        type(editor, u"Text1", wanted);
        QTest::keyClick(control(editor, u"Text1"), Qt::Key_Return);
    };
    find(u"0012"_s); // no parent is chosen yet
    EXPECT_EQ(children(), QString());
    chooseParent(1);
    for (const auto& wanted : {u"ｺｽﾄ"_s, u"ない"_s, u"００１２"_s}) find(wanted);
    EXPECT_EQ(children(), u"60 12"_s);
    EXPECT_EQ(grid()->text(1, 1), u"0060コスト'%;"_s);
    setRow(1, 12); // a row that is filled already is replaced and stays current
    EXPECT_EQ(grid()->row(), 1);

    run(u"INSERT INTO 要因 VALUES (5,1,'新しい','')"_s);
    for (const int tab : {1, 0}) control<QTabWidget>(editor, u"SSTab1")->setCurrentIndex(tab);
    EXPECT_EQ(list()->count(), 44);
    EXPECT_EQ(list()->item(3)->text(), u"0005新しい"_s);

    setRow(2, 0); // a number like any other
    EXPECT_EQ(grid()->text(2, 1), u"0000番号 なし"_s);
    click(editor, u"Command1");
    EXPECT_EQ(edges(), u"1|1|12|1|0 1|1|0|2|0"_s);
    QTest::keyClick(grid(), Qt::Key_Up, Qt::AltModifier); // leaves no gap
    chooseParent(1);
    EXPECT_EQ(children(), u"12 0"_s);
}

TEST_F(StructureEditorTest, ALongNameLeavesTheScreenItsSize) {
    open(2);
    save(1, {12, 11});
    const int width = Common::Forms.find(editor)->minimumSizeHint().width();
    run(u"UPDATE 要因 SET 要因名 = '%1' WHERE 要因番号 = 12"_s.arg(QString(400, u'A')));
    choose(editor, u"Combo1", 0);
    click(editor, u"Command4");
    EXPECT_EQ(Common::Forms.find(editor)->minimumSizeHint().width(), width);
}

TEST_F(StructureEditorTest, TabGoesThroughTheControlsInReadingOrder) {
    open(2);
    auto* form = Common::Forms.find(editor);
    form->activateWindow();
    control(editor, u"Combo1")->setFocus();
    for (const auto& next :
         {u"qt_tabwidget_tabbar"_s, u"TreeView2"_s, u"Combo2"_s, u"Command4"_s, u"MSFlexGrid1"_s, u"Text1"_s,
          u"List1"_s, u"Command3"_s, u"Command1"_s, u"Command2"_s}) {
        QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(form->focusWidget()->objectName(), next);
    }
}

TEST_F(StructureEditorTest, WhatIsMissingIsTold) {
    Common::Forms.show(editor);
    EXPECT_EQ(takeMessages(), warning(editor, u"課題が未登録です。 課題登録を行ってください。"_s));
    EXPECT_TRUE(text(editor, u"Status").contains(u"課題構成登録"));
    EXPECT_EQ(told(editor, u"Command1"), warning(editor, u"課題を選択して下さい"_s));
}
