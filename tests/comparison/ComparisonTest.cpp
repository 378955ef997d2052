// Comparison setup and the entry grid, driven as a user does.
#include <QAbstractItemView>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QTest>
#include <QTreeWidget>

#include "comparison/ComparisonSession.h"
#include "comparison/GoalAspects.h"
#include "database/Recordset.h"
#include "files/NewFile.h"
#include "files/TextFile.h"
#include "support/Helpers.h"
#include "support/ScreenTest.h"
#include "text/Dates.h"
#include "widgets/ElidedLabel.h"
#include "widgets/FlexGrid.h"

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
    // Problem 1 with children 12, 11, 13 (in display order), 11 with the single child 14 and 13 with 15 and
    // 16; problem 2 without structure and evaluators.
    ComparisonTest() {
        run(u"insert into 要因 values(1,0,'候補地の選定',''),(2,0,'空の課題',''),(11,1,'費用',''),"
            "(12,1,'交通',''),(13,1,'環境',''),(14,1,'建設費',''),(15,1,'騒音',''),(16,1,'景観','')"_s);
        run(u"insert into 課題 values(2,0,1,3,1),(1,0,2,3,2)"_s);
        structure(u"1:12,11,13 11:14 13:15,16"_s);
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
    // Keys as a user types them into the grid or the open list; "\n" is Enter, "<" and ">" the arrows, "~"
    // Backspace, "Z" undo.
    void keys(const QString& typed) {
        static const QMap<QChar, int> named{
            {u'\n', Qt::Key_Return}, {u'<', Qt::Key_Left}, {u'>', Qt::Key_Right}, {u'~', Qt::Key_Backspace}};
        for (const QChar key : typed) {
            QWidget* target = chooser()->isVisible() ? static_cast<QWidget*>(chooser()->view()) : cells();
            if (key == u'Z') {
                QTest::keyClick(target, Qt::Key_Z, Qt::ControlModifier);
            } else if (named.contains(key)) {
                QTest::keyClick(target, static_cast<Qt::Key>(named[key]));
            } else {
                QTest::keyClick(target, key.toLatin1());
            }
        }
    }
    // The entered values in pair order, joined by blanks, "." for none.
    QString entered(int items = 3) {
        QStringList values;
        for (int row = 1; row < items; ++row)
            for (int column = row + 1; column <= items; ++column) {
                const QString value = cells()->text(row, column);
                values << (value.isEmpty() ? u"."_s : value);
            }
        return values.join(u' ');
    }
    std::pair<int, int> current() { return {cells()->row(), cells()->column()}; }
    QStringList storedValues() {
        return rows(
            u"select "
            u"課題番号,目的要因番号,比較元要因番号,比較対象要因番号,評価者番号,比較回数,比較日付,比較表示順,"
            u"比較値"
            " from 一対比較 order by 目的要因番号,比較表示順"_s);
    }
};

TEST_F(ComparisonTest, SetupRefusesInOrder) {
    const QDate before = QDate::currentDate();
    Forms.show(setup);
    EXPECT_EQ(MsgTitle, setupTitle);
    const QString today = text(setup, u"Text2"_s); // midnight may come between
    EXPECT_TRUE(today == formatDate(before) || today == formatDate(QDate::currentDate()));
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

    run(u"update 課題 set 比較回数=40000"_s); // told to whoever works with it
    choose(setup, u"Combo1"_s, 0);
    EXPECT_EQ(takeMessages(), std::vector<ShownMessage>());
    EXPECT_EQ(told(setup, u"Command1"_s), warning(u"開始"_s, u"オーバーフローしました。"_s));
}

TEST_F(ComparisonTest, SetupOpensTheGridAndTellsOfAnExistingRound) {
    for (const auto& compared :
         {u"2,1,12,11,3,2"_s, u"1,1,12,11,7,2"_s, u"1,1,12,11,3,1"_s, u"1,1,12,11,3,2"_s}) {
        run(u"insert into 一対比較 values(%1,'2026/01/01',1,3)"_s.arg(compared));
        Forms.show(setup);
        choose(setup, u"Combo1"_s, 0);
        choose(setup, u"Combo2"_s, 0);
        type(setup, u"Text2"_s, u"２０２６年４月１日"_s);
        EXPECT_EQ(told(setup, u"Command1"_s),
                  compared == u"1,1,12,11,3,2"_s
                      ? notice(setupTitle, u"指定された比較回数は一対比較に存在します"_s)
                      : std::vector<ShownMessage>());
        EXPECT_EQ(std::tuple(CmpProblemNo, CmpEvaluatorNo, CmpEvaluatorName, CmpRound, CmpDate),
                  std::tuple(1, 3, u"佐藤 花子"_s, 2, u"2026/04/01"_s));
        EXPECT_TRUE(isOpen(grid));
        EXPECT_FALSE(isOpen(setup));
    }
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
    for (const auto& [typed, values, cell] :
         {std::tuple{u"1/34<~Z"_s, u"1/3 4 ."_s, std::pair{1, 3}}, // what the rules say is done and shown
          {u"1\n1\n1"_s, u"1 1 1"_s, {2, 3}},
          {u" \n"_s, u"1 . ."_s, {1, 3}},    // the list opens on "1"
          {u"4<\n\n"_s, u"4 . ."_s, {1, 3}}, // and on the value that is set
          {u" 1/5"_s, u"1/5 . ."_s, {1, 3}}, // the list takes the same keys as the grid
          {u"3\nx4"_s, u"3 4 ."_s, {2, 3}}}) {
        start();
        EXPECT_TRUE(hasFocus(grid, u"MSFlexGrid1"_s));
        keys(typed);
        EXPECT_EQ(std::pair(entered(), current()), std::pair(values, cell)) << typed.toStdString();
        EXPECT_FALSE(chooser()->isVisible()) << typed.toStdString();
        Forms.unload(grid);
    }
    start();
    keys(u"1"_s);
    clickCell(1, 2);
    keys(u"5"_s); // for the pair whose list is open
    EXPECT_EQ(entered(), u"5 . ."_s);
    Forms.unload(grid);
    start(); // other cells let no key through to the search of the table
    for (const auto& cell : {std::pair{3, 2}, {2, 2}}) {
        cells()->setCurrent(cell.first, cell.second);
        keys(u"1/3 5-"_s);
        EXPECT_EQ(std::pair(entered(), current()), std::pair(u". . ."_s, cell));
    }
}

TEST_F(ComparisonTest, ValuesOfBeforeAreTakenUpOnRequest) {
    const auto state = [this] { return text(grid, u"Label3"_s); };
    const auto store = [this](const QString& pair, int round, double value) {
        run(u"insert into 一対比較 values(1,1,%1,3,%2,'2026/01/01',1,%3)"_s.arg(pair).arg(round).arg(value));
    };
    start();
    click(grid, u"Command5"_s);
    EXPECT_EQ(std::pair(entered(), text(grid, u"Status"_s)),
              std::pair(u". . ."_s, u"この目的要因には、この回にも前の回にも登録済の値がありません。"_s));

    store(u"12,11"_s, 1, 3);
    store(u"13,12"_s, 1, 4); // the other way round
    store(u"11,13"_s, 1, 3.7);
    store(u"11,14"_s, 1, 2);
    click(grid, u"Command5"_s);
    EXPECT_EQ(std::tuple(entered(), current(), state()),
              std::tuple(u"3 1/4 ."_s, std::pair{2, 3}, u"入力済 2 / 3 組　前回のまま 2 組"_s));
    EXPECT_EQ(text(grid, u"Status"_s),
              u"この回にはまだありません。前の回（1 回目）の値を 2 組入れました。いまの構成にない要因の 1 "
              u"組は除きました。"
              "1/9 〜 9 の目盛りにない値の 1 組は空のままです。"_s);
    EXPECT_EQ(cells()->item(0, 1)->toolTip(), u"<p>3（前回のまま）</p>"_s);
    answers = {MessageAnswer::No};
    click(grid, u"Command3"_s);
    EXPECT_EQ(takeMessages().size(), 1U);
    keys(u"5"_s);
    cells()->setCurrent(1, 2);
    keys(u"3"_s); // the same once more is this time's
    EXPECT_EQ(state(), u"入力済 3 / 3 組　前回のまま 1 組"_s);
    keys(u"Z"_s);
    EXPECT_EQ(state(), u"入力済 3 / 3 組　前回のまま 2 組"_s);
    click(grid, u"Command2"_s);
    EXPECT_EQ(state(), u"入力済 3 / 3 組"_s);
    EXPECT_EQ(rows(u"select 比較値 from 一対比較 where 比較回数=2 order by 比較表示順"_s),
              (QStringList{u"3"_s, u"0.25"_s, u"5"_s}));

    click(grid, u"Command1"_s);
    EXPECT_EQ(entered(), u". . ."_s);
    click(grid, u"Command5"_s);
    EXPECT_EQ(std::pair(entered(), text(grid, u"Status"_s)),
              std::pair(u"3 1/4 5"_s, u"この回に登録した値を 3 組入れました。"_s));
    click(grid, u"Command3"_s); // nothing is lost
    EXPECT_EQ(takeMessages(), std::vector<ShownMessage>());
    EXPECT_FALSE(isOpen(grid));
}

TEST_F(ComparisonTest, ASentenceSaysWhatTheMarkedValueMeans) {
    start();
    const auto* legend = control<QLabel>(grid, u"Label8"_s);
    EXPECT_LE(legend->fontMetrics().horizontalAdvance(legend->text()), legend->width());
    EXPECT_EQ(text(grid, u"Label4"_s), u"① 交通 は ② 費用 に比べて …"_s);
    keys(u" "_s);
    chooser()->view()->setCurrentIndex(chooser()->model()->index(12, 0));
    EXPECT_EQ(text(grid, u"Label4"_s), u"① 交通 は ② 費用 に比べて 1/5 → ② 費用 のほうがかなり重要"_s);
    chooser()->hidePopup();
    EXPECT_EQ(text(grid, u"Label4"_s), u"① 交通 は ② 費用 に比べて …"_s);
    EXPECT_EQ(cells()->horizontalHeaderItem(1)->toolTip(), u"<p>②費用</p>"_s);

    keys(u"/55"_s);
    EXPECT_EQ(text(grid, u"Status"_s), u"① 交通 は ③ 環境 に比べて 5 → ① 交通 のほうがかなり重要"_s);
    EXPECT_EQ(text(grid, u"Label5"_s), QString());
    keys(u"/5"_s);
    EXPECT_EQ(text(grid, u"Label5"_s),
              u"整合度 CI 1.6000（限度 0.15）　整合比 CR 1.7778（限度 0.15）　限度を超えています。"_s);
    EXPECT_EQ(text(grid, u"Label6"_s),
              u"ほかの答えと最も離れた組: ① 交通 は ② 費用 に比べて 1/5（ほかの答えからは 9）"_s);
    keys(u"~"_s);
    EXPECT_EQ(text(grid, u"Label5"_s) + text(grid, u"Label6"_s), QString());
    EXPECT_EQ(text(grid, u"Label3"_s), u"入力済 2 / 3 組"_s);
    EXPECT_EQ(text(grid, u"Status"_s), QString());

    // Names have all the room that the words of a sentence leave them.
    run(u"update 要因 set 要因名='感震ブレーカーの配布' where 要因番号=11"_s);
    run(u"update 要因 set 要因名='%1' where 要因番号=12"_s.arg(QString(99, u'長')));
    click(grid, u"Command1"_s);
    auto* sentence = control<ElidedLabel>(grid, u"Label4"_s);
    EXPECT_EQ(sentence->shownText().count(u"長"_s) > 20, true) << sentence->shownText().toStdString();
    EXPECT_TRUE(sentence->shownText().endsWith(u"… は ② 感震ブレーカーの配布 に比べて …"_s));
    EXPECT_LE(sentence->fontMetrics().horizontalAdvance(sentence->shownText()), sentence->width());
}

// 15 and 16 stand under 11 and 13 alike; under 12 stands 15 beside 14, which has no other parent.
TEST_F(ComparisonTest, AlternativesAreComparedByQualityUnlessUsersChooseOtherwise) {
    run(u"delete from 要因構成 where 親要因番号=11"_s);
    structure(u"11:15,16 12:14,15"_s);
    const auto byQuality = [&](const QString& file) {
        const QString folder = directory() + u"\\file"_s;
        if (!file.isNull()) writeWholeFile(nativePath(folder) + u"/questions.txt"_s, file.toUtf8());
        QStringList goals;
        for (const auto& [goal, aspect] : readGoalAspects(*DbConn, 1, folder).asKeyValueRange())
            if (aspect == Aspect::Quality) goals << QString::number(goal);
        goals.sort();
        return goals.join(u' ');
    };
    EXPECT_EQ(byQuality({}), u"11 13"_s);
    EXPECT_EQ(byQuality(u"# 1 12 優れている\r\n\r\n2 99 重要\r\n"_s), u"11 13"_s);
    EXPECT_EQ(byQuality(u"１　１２，優れている\n 1 11 重要"_s), u"12 13"_s);
    for (const auto& [file, why] :
         {std::pair{u"# 1\n1 12"_s, u"「課題番号 目的番号 問い方」の形で書いてください。\n%1 2 行: 1 12"_s},
          {u"1 12 よい"_s, u"問い方は「重要」か「優れている」です。\n%1 1 行: 1 12 よい"_s},
          {u"1 14 重要"_s, u"要因 14 は課題 1 の目的要因ではありません。\n%1 1 行: 1 14 重要"_s},
          {u"1 12 重要\n1 12 重要"_s, u"目的 12 は上の行にもあります。\n%1 2 行: 1 12 重要"_s}})
        EXPECT_EQ(raisedBy([&, text = file] { byQuality(text); }).description,
                  why.arg(directory() + u"/file/questions.txt"_s));
    // The grid tells of the fault and can be filled all the same.
    start();
    EXPECT_EQ(text(grid, u"Label4"_s), u"① 交通 は ② 費用 に比べて …"_s);
    byQuality(u"1 1 優れている"_s);
    Forms.unload(grid);
    start();
    keys(u"3"_s);
    EXPECT_EQ(text(grid, u"Status"_s), u"① 交通 は ② 費用 に比べて 3 → ① 交通 のほうがやや優れている"_s);
    const auto* legend = control<QLabel>(grid, u"Label8"_s);
    EXPECT_LE(legend->fontMetrics().horizontalAdvance(legend->text()), legend->width());
}

TEST_F(ComparisonTest, AfterSavingTheNextOpenGoalIsOneKeyAway) {
    compare(1, {12, 11, 13}, u"1 1 1"_s, 7, 2);
    start();
    EXPECT_EQ(text(grid, u"Label7"_s), u"登録済 0 / 2"_s); // a single child has nothing to answer
    keys(u"222"_s);
    auto other = reader(); // nothing becomes durable, so nothing counts as saved
    EXPECT_TRUE(toldText(grid, u"Command2"_s).contains(u"データベースをほかのプログラムが使用しています。"));
    EXPECT_EQ(text(grid, u"Label7"_s), u"登録済 0 / 2"_s);
    other.reset();
    click(grid, u"Command2"_s);
    EXPECT_EQ(text(grid, u"Status"_s), u"登録しました。次は 0013 環境 です。"_s);
    EXPECT_TRUE(hasFocus(grid, u"Command4"_s));
    QTest::keyClick(control(grid, u"Command4"_s), Qt::Key_Return);
    EXPECT_EQ(text(grid, u"Combo1"_s), u"0013 環境"_s);
    EXPECT_EQ(text(grid, u"Label7"_s), u"登録済 1 / 2"_s);
    keys(u"31/"_s); // half of a value is neither dropped nor taken for one
    click(grid, u"Command2"_s);
    EXPECT_TRUE(text(grid, u"Status"_s).startsWith(u"打ちかけの値"));
    EXPECT_TRUE(hasFocus(grid, u"MSFlexGrid1"_s));
    EXPECT_EQ(storedValues().size(), 6);
    keys(u"5"_s);
    click(grid, u"Command2"_s);
    EXPECT_EQ(text(grid, u"Label7"_s), u"登録済 2 / 2"_s);
    EXPECT_FALSE(control(grid, u"Command4"_s)->isEnabled());
    EXPECT_EQ(storedValues().size(), 7);

    Forms.show(setup);
    choose(setup, u"Combo1"_s, 0);
    auto* answers = control<QTreeWidget>(setup, u"List1"_s);
    EXPECT_EQ(answers->topLevelItem(0)->text(0) + answers->topLevelItem(0)->text(1),
              u"3 佐藤 花子2 / 2 目的要因"_s);
    EXPECT_EQ(answers->topLevelItem(1)->text(1), u"1 / 2 目的要因"_s);
    const auto* evaluators = control<QComboBox>(setup, u"Combo2"_s);
    EXPECT_FALSE(evaluators->itemIcon(0).isNull());
    choose(setup, u"Combo1"_s, 1); // nobody is asked: the list keeps its entries, not what they have done
    EXPECT_EQ(evaluators->count(), 2);
    EXPECT_TRUE(evaluators->itemIcon(0).isNull());
}

TEST_F(ComparisonTest, LongNamesTakeNoMoreThanTheirShare) {
    run(u"update 要因 set 要因名='%1'"_s.arg(QString(400, u'長')));
    run(u"update 評価者 set 評価者氏名='%1'"_s.arg(QString(400, u'氏')));
    CmpProblemName = QString(400, u'長');
    start();
    EXPECT_LE(cells()->verticalHeader()->width(), cells()->width() * 0.4);
    Forms.show(setup);
    choose(setup, u"Combo1"_s, 0);
    for (const auto& screen : {grid, setup})
        EXPECT_LE(Forms.find(screen)->width(), 800) << screen.toStdString();
}

TEST_F(ComparisonTest, TypedValuesAreNotLostByASlip) {
    start();
    pick(1, 2, u"2"_s);
    answers = {MessageAnswer::No, MessageAnswer::No, MessageAnswer::No, MessageAnswer::Yes};
    click(grid, u"Command1"_s);
    EXPECT_EQ(cells()->text(1, 2), u"2"_s);
    choose(grid, u"Combo1"_s, 2); // another goal factor
    EXPECT_EQ(text(grid, u"Combo1"_s), u"0001 候補地の選定"_s);
    EXPECT_EQ(cells()->text(1, 2), u"2"_s);
    click(grid, u"Command3"_s);
    EXPECT_TRUE(isOpen(grid));
    Forms.find(grid)->close(); // by its frame
    EXPECT_TRUE(isOpen(u"メニュー"_s));
    EXPECT_FALSE(isOpen(grid));
    EXPECT_EQ(takeMessages().size(), 4U);

    start(); // and the values of one goal factor are never saved under another
    pick(1, 2, u"2"_s);
    choose(grid, u"Combo1"_s, 2);
    EXPECT_EQ(takeMessages().size(), 1U);
    EXPECT_EQ(cells()->text(1, 2), QString());
    EXPECT_EQ(told(grid, u"Command2"_s),
              warning(gridTitle, u"目的要因が選択されてません、目的要因を選択してください。"_s));
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
    keys(u"/9"_s.repeated(190)); // two strokes for a pair
    EXPECT_EQ(text(grid, u"Label3"_s), u"入力済 190 / 190 組"_s);
    EXPECT_TRUE(cells()->viewport()->rect().contains(cells()->cellRect(19, 20)));
    EXPECT_EQ(text(grid, u"Label5"_s), u"整合度を計算できません（評価計算が扱う要因は 7 つまでです）"_s);
    click(grid, u"Command2"_s);
    EXPECT_EQ(storedValues().size(), 190);
    run(u"insert into 要因 (要因番号,要因区分,要因名) values(40,1,'x')"_s);
    run(u"insert into 要因構成 values(1,12,40,21,'0')"_s);
    EXPECT_EQ(told(grid, u"Command1"_s), warning(u"評価開始"_s, u"インデックスが有効範囲にありません。"_s));
}
