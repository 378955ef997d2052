#include <QComboBox>
#include <QListWidget>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

#include "platform/FlexGrid.h"
#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

const QString editor = u"要因構成登録"_s;

} // namespace

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
        choose(editor, u"Combo1"_s, 0);
    }
    void edge(int parent, int child, int order, const QString& created = u"1"_s, int problem = 1) {
        run(u"INSERT INTO 要因構成 VALUES (%1,%2,%3,%4,'%5')"_s.arg(problem)
                .arg(parent)
                .arg(child)
                .arg(order)
                .arg(created));
    }

    FlexGrid* grid() { return control<FlexGrid>(editor, u"MSFlexGrid1"_s); }
    QListWidget* list() { return control<QListWidget>(editor, u"List1"_s); }
    // The factor column down to its last filled row.
    QStringList children() {
        QStringList texts;
        for (int row = 1; row <= 20; ++row) texts << grid()->text(row, 1);
        while (!texts.isEmpty() && texts.last().isEmpty()) texts.removeLast();
        return texts;
    }
    QStringList parents() {
        QStringList numbers;
        const auto* combo = control<QComboBox>(editor, u"Combo2"_s);
        for (int index = 0; index < combo->count(); ++index) numbers << combo->itemText(index).left(4);
        return numbers;
    }
    void chooseParent(const QString& number) {
        choose(editor, u"Combo2"_s, static_cast<int>(parents().indexOf(number)));
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
    void save(const QString& parent, const std::vector<int>& factors) {
        chooseParent(parent);
        for (const int factor : factors) doubleClick(factor);
        click(editor, u"Command1"_s);
    }
    QStringList edges() {
        return rows(
            u"SELECT 課題番号,親要因番号,子要因番号,子要因表示順,子作成済 FROM 要因構成 ORDER BY 1,2,4"_s);
    }
    QStringList displayed() {
        return rows(
            u"SELECT 親レベル,親シーケンス,親要因番号,子レベル,子シーケンス,子要因番号,子要因表示順,子作成済 "
            "FROM 構成表示 ORDER BY 1,2,4,5"_s);
    }
    // "key label" of every node, indented by level, the mark behind it.
    QStringList treeTexts() {
        QStringList texts;
        for (QTreeWidgetItemIterator at(control<QTreeWidget>(editor, u"TreeView1"_s)); *at != nullptr; ++at) {
            int level = 0;
            for (auto* above = (*at)->parent(); above != nullptr; above = above->parent()) ++level;
            texts << QString(level, u' ') + (*at)->data(0, Qt::UserRole).toString() + u' ' + (*at)->text(0) +
                         (*at)->text(1);
        }
        return texts;
    }
};

TEST_F(StructureEditorTest, aTreeIsBuiltOneOpenParentAtATime) {
    open(2);
    EXPECT_EQ(parents(), QStringList{u"0001"_s});
    save(u"0001"_s, {12, 11});
    EXPECT_EQ(parents(), (QStringList{u"0001"_s, u"0012"_s}));
    click(editor, u"Command4"_s);
    EXPECT_EQ(text(editor, u"Combo2"_s), u"0012 要因12"_s);
    save(u"0012"_s, {21, 22});
    EXPECT_EQ(parents(), (QStringList{u"0001"_s, u"0012"_s, u"0011"_s}));
    EXPECT_EQ(treeTexts(),
              (QStringList{u"R100 0001 住宅"_s, u" R1211 0012 要因12"_s, u"  R2121 0021 要因21"_s,
                           u"  R2222 0022 要因22"_s, u" R1112 0011 要因11← 次に設定する親要因"_s}));
    save(u"0011"_s, {22, 23});
    EXPECT_EQ(parents(), (QStringList{u"0001"_s, u"0012"_s, u"0011"_s}));
    EXPECT_EQ(edges(), (QStringList{u"1|1|12|1|1"_s, u"1|1|11|2|1"_s, u"1|11|22|1|0"_s, u"1|11|23|2|0"_s,
                                    u"1|12|21|1|0"_s, u"1|12|22|2|0"_s}));
    EXPECT_EQ(displayed(),
              (QStringList{u"0|0|1|1|1|12|1|1"_s, u"0|0|1|1|2|11|2|1"_s, u"1|1|12|2|1|21|1|0"_s,
                           u"1|1|12|2|2|22|2|0"_s, u"1|2|11|2|21|22|1|0"_s, u"1|2|11|2|22|23|2|0"_s}));
    EXPECT_EQ(takeMessages().size(), 0U);

    // Saved again, the children of the problem count as not filled until they are saved themselves.
    save(u"0001"_s, {13});
    EXPECT_EQ(parents(), (QStringList{u"0001"_s, u"0012"_s}));
    EXPECT_EQ(rows(u"SELECT 子要因番号,子作成済 FROM 要因構成 WHERE 親要因番号 = 1"_s),
              (QStringList{u"12|0"_s, u"11|0"_s, u"13|0"_s}));
}

TEST_F(StructureEditorTest, theStructureLevelBoundsParentsAndDisplay) {
    // {levels, parents on offer, deepest displayed level}; the tree is a chain of four levels.
    const std::vector<std::tuple<int, QStringList, QString>> cases{
        {0, {u"0001"_s}, u"1"_s},
        {1, {u"0001"_s}, u"2"_s},
        {3, {u"0001"_s, u"0011"_s, u"0012"_s}, u"4"_s},
        {2000000000, {u"0001"_s, u"0011"_s, u"0012"_s, u"0013"_s, u"0014"_s}, u"4"_s},
    };
    edge(1, 11, 1);
    for (int parent = 11; parent < 14; ++parent) edge(parent, parent + 1, 1, parent < 13 ? u"1"_s : u"0"_s);
    edge(2, 40, 1, u"0"_s, 2);
    for (const auto& [levels, offered, deepest] : cases) {
        run(u"DELETE FROM 課題"_s);
        open(levels);
        EXPECT_EQ(parents(), offered) << levels;
        EXPECT_EQ(rows(u"SELECT max(子レベル) FROM 構成表示"_s), QStringList{deepest}) << levels;
        Common::Forms.unload(editor);
    }
}

TEST_F(StructureEditorTest, savingWritesTheRowsAboveTheFirstFreeOne) {
    edge(2, 11, 1, u"0"_s, 2);
    open(3);
    setRow(2, 21);
    takeMessages();
    click(editor, u"Command1"_s);
    EXPECT_EQ(takeMessages(), warning(editor, u"要因（親）を選択して下さい"_s));
    chooseParent(u"0001"_s);
    setRow(2, 21);
    click(editor, u"Command1"_s);
    EXPECT_EQ(takeMessages(), warning(editor, u"要因（子）が設定されてません"_s));
    EXPECT_EQ(edges(), QStringList{u"2|2|11|1|0"_s});

    setRow(1, 11);
    setRow(4, 14);
    click(editor, u"Command1"_s);
    EXPECT_EQ(edges(), (QStringList{u"1|1|11|1|0"_s, u"1|1|21|2|0"_s, u"2|2|11|1|0"_s}));
    // What stands below the gap is still there, and asked for.
    EXPECT_EQ(children(), (QStringList{u"0011要因11"_s, u"0021要因21"_s, u""_s, u"0014要因14"_s}));
    answers = {MessageAnswer::No};
    chooseParent(u"0011"_s);
    EXPECT_EQ(text(editor, u"Combo2"_s), u"0001 住宅"_s);

    chooseParent(u"0011"_s);
    save(u"0011"_s, {12});
    // The mark goes to every problem in which 11 is a child.
    EXPECT_EQ(edges(), (QStringList{u"1|1|11|1|1"_s, u"1|1|21|2|0"_s, u"1|11|12|1|0"_s, u"2|2|11|1|1"_s}));
}

TEST_F(StructureEditorTest, childrenThatCannotStandThereAreRefusedBeforeAnythingIsWritten) {
    edge(1, 11, 1);
    edge(11, 12, 1);
    edge(12, 13, 1, u"0"_s);
    open(9);
    const QStringList before = edges();
    const std::vector<std::tuple<int, QString>> cases{
        {13, u"要因（子） '0013要因13' は要因（親）自身なので登録できません。"_s},
        {11, u"要因（子） '0011要因11' は要因（親）より上位の要因なので登録できません。"_s},
        {1, u"要因（子） '0001住宅' は課題そのものなので登録できません。"_s},
        {30, u"要因（子） '0030要因30' は二重に設定されている要因なので登録できません。"_s},
    };
    chooseParent(u"0013"_s);
    setRow(1, 30);
    for (const auto& [factor, message] : cases) {
        setRow(2, factor);
        click(editor, u"Command1"_s);
        EXPECT_EQ(takeMessages(), warning(editor, message));
        EXPECT_EQ(edges(), before);
        EXPECT_EQ(children().size(), 2);
        EXPECT_EQ(grid()->row(), 2);
    }
}

TEST_F(StructureEditorTest, edgesOfRemovedSubtreesGoInOnePassByParentNumber) {
    edge(1, 20, 1);
    for (const auto& [parent, child] : {std::pair{20, 30}, {30, 15}, {15, 16}}) edge(parent, child, 1);
    edge(2, 30, 1, u"0"_s, 2);
    edge(30, 31, 1, u"0"_s, 2);
    open(4);
    chooseParent(u"0001"_s);
    setRow(1, 11);
    click(editor, u"Command1"_s);
    // 20 and then 30 are found without a parent; 15 was looked at before.
    EXPECT_EQ(edges(), (QStringList{u"1|1|11|1|0"_s, u"1|15|16|1|1"_s, u"2|2|30|1|0"_s, u"2|30|31|1|0"_s}));
    click(editor, u"Command1"_s);
    EXPECT_EQ(edges(), (QStringList{u"1|1|11|1|0"_s, u"2|2|30|1|0"_s, u"2|30|31|1|0"_s}));
}

TEST_F(StructureEditorTest, deletingARowShiftsTheRowsDownToTheTenth) {
    for (int order = 1; order <= 12; ++order) edge(1, 10 + order, order, u"0"_s);
    open(2);
    const auto numbers = [this] {
        QStringList texts = children();
        for (auto& each : texts) each = each.mid(2, 2);
        return texts.join(u' ');
    };
    const std::vector<std::tuple<int, QString>> cases{
        {2, u"11 13 14 15 16 17 18 19 20  21 22"_s},
        {10, u"11 12 13 14 15 16 17 18 19  21 22"_s},
        {12, u"11 12 13 14 15 16 17 18 19  21 22"_s},
    };
    for (const auto& [row, expected] : cases) {
        chooseParent(u"0001"_s);
        grid()->setCurrent(row, 1);
        QTest::keyClick(grid(), Qt::Key_Delete);
        EXPECT_EQ(numbers(), expected) << row;
    }
    takeMessages();
    grid()->setCurrent(10, 1);
    click(editor, u"Command3"_s);
    EXPECT_EQ(takeMessages(), warning(editor, u"要因（子）が設定されてません"_s));
    grid()->setCurrent(0, 0);
    click(editor, u"Command3"_s);
    EXPECT_EQ(takeMessages(), warning(editor, u"削除行を選択して下さい"_s));
    EXPECT_EQ(edges().size(), 12);
    click(editor, u"Command1"_s);
    EXPECT_EQ(edges().size(), 9);
    EXPECT_EQ(edges().last(), u"1|1|19|9|0"_s);
}

TEST_F(StructureEditorTest, nodesWhoseKeysCoincideStandInTheirOwnPlaces) {
    run(u"INSERT INTO 要因 VALUES (3,1,'三','')"_s);
    // 32 on level 1 with sequence 15, and 3 on level 2 with sequence (6 − 1) × 20 + 15.
    edge(1, 11, 6);
    edge(1, 32, 15);
    edge(11, 3, 15);
    edge(3, 40, 1);
    edge(32, 41, 1, u"0"_s);
    open(4);
    EXPECT_EQ(treeTexts(), (QStringList{u"R100 0001 住宅"_s, u" R1116 0011 要因11"_s, u"  R32115 0003 三"_s,
                                        u"   R4032281 0040 要因40"_s, u" R32115 0032 要因32"_s,
                                        u"  R412281 0041 要因41← 次に設定する親要因"_s}));
}

TEST_F(StructureEditorTest, unsavedChildrenAreNotDroppedWithoutAQuestion) {
    edge(1, 11, 1, u"0"_s);
    open(3);
    chooseParent(u"0011"_s);
    doubleClick(21);
    const QStringList chosen = children();
    const std::vector<std::function<void()>> ways{
        [this] { choose(editor, u"Combo1"_s, 1); },      [this] { chooseParent(u"0001"_s); },
        [this] { click(editor, u"Command4"_s); },        [this] { click(editor, u"Command2"_s); },
        [this] { Common::Forms.find(editor)->close(); },
    };
    for (const auto& way : ways) {
        answers = {MessageAnswer::No};
        way();
        EXPECT_EQ(takeMessages().size(), 1U);
        ASSERT_TRUE(isOpen(editor));
        EXPECT_EQ(children(), chosen);
        EXPECT_EQ(text(editor, u"Combo1"_s), u"0001 住宅"_s);
        EXPECT_EQ(text(editor, u"Combo2"_s), u"0011 要因11"_s);
    }
    choose(editor, u"Combo1"_s, 1);
    EXPECT_EQ(children(), QStringList());
    EXPECT_EQ(parents(), QStringList{u"0002"_s});
    takeMessages();
    click(editor, u"Command2"_s);
    EXPECT_EQ(takeMessages().size(), 0U);
    EXPECT_TRUE(isOpen(u"登録メニュー"_s));
    EXPECT_FALSE(isOpen(editor));
}

TEST_F(StructureEditorTest, factorsAreFoundByNumberOrNameAndTakenByEnter) {
    run(u"INSERT INTO 要因 VALUES (60,1,'コスト''%;','')"_s);
    open(2);
    type(editor, u"Text1"_s, u"0012"_s);
    QTest::keyClick(control(editor, u"Text1"_s), Qt::Key_Return); // no parent is chosen yet
    EXPECT_EQ(children(), QStringList());
    chooseParent(u"0001"_s);
    for (const auto& wanted : {u"ｺｽﾄ"_s, u"ない"_s, u"００１２"_s}) {
        type(editor, u"Text1"_s, wanted);
        QTest::keyClick(control(editor, u"Text1"_s), Qt::Key_Return);
    }
    EXPECT_EQ(children(), (QStringList{u"0060コスト'%;"_s, u"0012要因12"_s}));
    // A row that is filled already is replaced and stays current.
    setRow(1, 12);
    doubleClick(12);
    EXPECT_EQ(grid()->row(), 1);

    run(u"INSERT INTO 要因 VALUES (5,1,'新しい','')"_s);
    control<QTabWidget>(editor, u"SSTab1"_s)->setCurrentIndex(1);
    EXPECT_EQ(list()->count(), 42);
    control<QTabWidget>(editor, u"SSTab1"_s)->setCurrentIndex(0);
    EXPECT_EQ(list()->item(2)->text(), u"0005新しい"_s);
    EXPECT_EQ(Common::StructList.at(2).name, u"新しい"_s);
}

TEST_F(StructureEditorTest, tabGoesThroughTheControlsInReadingOrder) {
    open(2);
    auto* form = Common::Forms.find(editor);
    form->activateWindow();
    control(editor, u"Combo1"_s)->setFocus();
    for (const auto& next :
         {u"qt_tabwidget_tabbar"_s, u"TreeView2"_s, u"Combo2"_s, u"Command4"_s, u"MSFlexGrid1"_s, u"Text1"_s,
          u"List1"_s, u"Command3"_s, u"Command1"_s, u"Command2"_s}) {
        QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(form->focusWidget()->objectName(), next);
    }
}

TEST_F(StructureEditorTest, whatCannotBeDoneIsTold) {
    Common::Forms.show(editor);
    EXPECT_EQ(takeMessages(), warning(editor, u"課題が未登録です。 課題登録を行ってください。"_s));
    click(editor, u"Command1"_s);
    EXPECT_EQ(takeMessages(), warning(editor, u"課題を選択して下さい"_s));
    Common::Forms.unload(editor);
    open(2);
    run(u"DROP TABLE 構成表示"_s);
    save(u"0001"_s, {11});
    const auto messages = takeMessages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages.front().title, u"登録"_s);
    EXPECT_EQ(edges(), QStringList{u"1|1|11|1|0"_s});
}
