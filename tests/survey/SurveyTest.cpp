#include <gmock/gmock.h>
#include <xlsxwriter.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include "core/FactorNames.h"
#include "files/NewFile.h"
#include "printing/MadeFiles.h"
#include "printing/Output.h"
#include "sheets/TableFile.h"
#include "support/Desktop.h"
#include "support/Helpers.h"
#include "support/PrintedPages.h"
#include "support/ScreenTest.h"
#include "support/Zip.h"
#include "survey/AnswerLayout.h"
#include "survey/AnswerSheet.h"
#include "survey/CheckedAnswers.h"
#include "survey/QuestionnairePages.h"
#include "survey/SurveyScreen.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

const QString screen = u"調査票"_s;

// Problem 1 in its second round, evaluators 2 and 5. Under 11 three factors, under 12 one: nothing to
// compare. The same factors stand otherwise in problem 2, where 7 answers, too; what was said there, in
// another round and by 7 is all 7.
class SurveyTest : public ScreenTest {
  protected:
    SurveyTest() {
        run(u"insert into 課題 values(1,0,2,3,2),(2,0,9,9,2)"_s);
        run(u"insert into 要因 values(1,0,'候補地',''),(2,0,'他の課題',''),(11,1,'費用',''),(12,1,'環境',''),"
            "(21,1,'建設費',''),(22,1,'維持費',''),(23,1,'用地費',''),(24,1,'騒音','')"_s);
        structure(u"1:11,12 11:21,22,23 12:24"_s);
        evaluators({2, 5});
        structure(u"2:1,12 1:12,24,11 11:24,22 12:21,23"_s, 2);
        run(u"insert into 評価者 values(7,'評価者7','')"_s);
        run(u"insert into 課題評価者 values(2,2,''),(2,7,'')"_s);
        for (const auto& of : {u"2,%1,2,2"_s, u"2,%1,5,2"_s, u"1,%1,2,1"_s, u"1,%1,5,9"_s, u"1,%1,7,2"_s})
            for (const auto& pair : {u"1,11,12"_s, u"11,21,22"_s})
                run(u"insert into 一対比較 values(%1,'2020/01/01',1,7)"_s.arg(of.arg(pair)));
        Printer::ofProgram().onDocument(MadeFiles::add);
    }
    ProblemRound round() const { return {*Common::DbConn, 1, 2}; }

    // The answer sheet of an evaluator as text, with these answers in its pairs: 11-12, then 21-22, 21-23,
    // 22-23.
    QString filled(const QStringList& answers, qint32 evaluator = 2) {
        QStringList lines =
            QString::fromUtf8(
                answerText(questionnaireOf(round()), {evaluator, evaluatorName(*Common::DbConn, evaluator)}))
                .split(u"\r\n"_s);
        qsizetype next = 0;
        for (auto& line : lines) {
            auto cells = line.split(u',');
            if (cells.size() != AnswerLayout::columns || cells[AnswerLayout::PairNo].toInt() == 0) continue;
            cells[AnswerLayout::Answer] = answers.value(next++);
            line = cells.join(u',');
        }
        return lines.join(u"\r\n"_s);
    }
    QString saved(const QString& name, const QByteArray& bytes) const {
        const QString path = directory() + u'/' + name;
        writeWholeFile(path, bytes);
        return path;
    }
    // The same cells in a spreadsheet of another program's making; a cell that begins with "=" is a formula.
    QString spreadsheet(const QString& text, bool merged = false) const {
        const QString path = directory() + u"/other.xlsx"_s;
        auto* book = workbook_new(path.toUtf8().constData());
        workbook_add_worksheet(book, nullptr);
        auto* sheet = workbook_add_worksheet(book, "回答");
        const auto lines = text.split(u"\r\n"_s);
        for (lxw_row_t row = 0; row < static_cast<lxw_row_t>(lines.size()); ++row) {
            const auto cells = lines[row].split(u',');
            for (lxw_col_t column = 0; column < cells.size(); ++column)
                if (const auto cell = cells[column].toUtf8(); cell.startsWith('='))
                    worksheet_write_formula(sheet, row, column, cell.constData(), nullptr);
                else if (bool number = false; cell.toDouble(&number), number)
                    worksheet_write_number(sheet, row, column, cell.toDouble(), nullptr);
                else
                    worksheet_write_string(sheet, row, column, cell.constData(), nullptr);
        }
        if (merged) worksheet_merge_range(sheet, 7, 5, 8, 5, "", nullptr);
        workbook_close(book);
        return path;
    }
    CheckedAnswers checked(const QString& path) {
        CheckedAnswers checked;
        readAnswers({path}, [&](const Answers& answers) {
            checked = checkedAnswers(*Common::DbConn, questionnaireOf(round()), answers);
        });
        return checked;
    }
    QString storedPairs(int evaluator) {
        return rows(
                   u"select 目的要因番号,比較表示順,比較元要因番号,比較対象要因番号,比較値,比較回数 from "
                   u"一対比較 "
                   "where 評価者番号=%1 and 比較値<>7 order by 1,2"_s.arg(evaluator))
            .join(u' ');
    }
};

const QStringList answersOfTwo{u"左が 3"_s, u"右が 2"_s, u"右が 2"_s, u"左が 9"_s};
const QString pairsOfTwo = u"1|1|11|12|3|2 11|1|21|22|0.5|2 11|2|21|23|0.5|2 11|3|22|23|9|2"_s;

} // namespace

TEST_F(SurveyTest, FilledFormsOfEveryKindAreStoredAlike) {
    const QString text = filled(answersOfTwo);
    QString wide = text;
    wide.replace(u"左が 9"_s, u"　左が９"_s).remove(QChar::ByteOrderMark);
    for (const auto& path :
         {saved(u"a.csv"_s, text.toUtf8()), saved(u"b.csv"_s, toCodePage(wide)), spreadsheet(text)}) {
        const auto answers = checked(path);
        EXPECT_EQ(findingLines(answers), QStringList()) << path.toStdString();
        EXPECT_EQ(answers.evaluator.name, u"評価者2"_s);
        ASSERT_TRUE(answers.canBeStored());
        run(u"delete from 一対比較 where 比較値<>7"_s);
        storeAnswers(round(), answers);
        EXPECT_EQ(storedPairs(2), pairsOfTwo) << path.toStdString();
    }
    // As it is handed out, the spreadsheet says who and what, and nothing is answered yet.
    const auto form = answerSpreadsheet(questionnaireOf(round()), {5, u"評価者5"_s});
    const auto empty = checked(saved(u"c.xlsx"_s, form));
    const auto sheet = QString::fromUtf8(unzipped(form, "xl/worksheets/sheet2.xml"));
    for (const auto& part :
         {u"<sheetProtection sheet=\"1\""_s,
          u"sqref=\"D9\"><formula1>\"左が 9,左が 8,左が 7,左が 6,左が 5,左が 4,左が 3,左が 2,同じ,右が 2,"_s,
          u"sqref=\"D11:D13\"><formula1>\"左が 9"_s, u"<f>COUNT(B8:B13)-COUNTA(D8:D13)</f>"_s,
          u"IF(D9=\"同じ\",\"「\"&amp;C9&amp;\"」と「\"&amp;E9&amp;\"」は同じくらい重要\""_s,
          u"IF(LEFT(D9,1)=\"左\",C9,E9)&amp;\"」のほうが\"&amp;CHOOSE(VALUE(RIGHT(D9,1))-1,"_s})
        EXPECT_TRUE(sheet.contains(part)) << part.toStdString();
    readTableFiles({empty.path}, [](const TableFile& file) {
        QStringList lines;
        for (const auto& row : file.tables[0].rows) lines << row[0].text;
        EXPECT_THAT(lines, testing::IsSupersetOf({u"　左が 9 … 左のほうがきわめて重要（優れている）"_s,
                                                  u"　左が 3 … 左のほうがやや重要（優れている）"_s,
                                                  u"　左が 2 … 左のほうが同じ〜やや重要（優れている）"_s}));
    });
    EXPECT_EQ(completeLine(empty), u"0 / 2 目的（残り: 0001「候補地」、0011「費用」）"_s);
    EXPECT_EQ(findingLines(empty), QStringList());
    EXPECT_EQ(empty.evaluator.number, 5);
    EXPECT_FALSE(empty.canBeStored());
}

TEST_F(SurveyTest, WhatChangedSinceTheFileWasReadStopsItsStoring) {
    const auto answers = checked(saved(u"a.csv"_s, filled(answersOfTwo).toUtf8()));
    ASSERT_TRUE(answers.canBeStored());
    for (const auto& [change, undo, what] :
         {std::tuple{u"update 課題 set 比較回数=3"_s, u"update 課題 set 比較回数=2"_s, u"課題の比較回数"_s},
          {u"delete from 課題評価者 where 評価者番号=2"_s, u"insert into 課題評価者 values(1,2,'')"_s,
           u"課題評価者"_s},
          {u"update 要因構成 set 子要因番号=29 where 子要因番号=23"_s,
           u"update 要因構成 set 子要因番号=23 where 子要因番号=29"_s, u"要因構成"_s},
          {u"insert into 一対比較 values(1,11,21,22,2,2,'',1,5)"_s, u"delete from 一対比較 where 比較値=5"_s,
           u"以前の回答"_s}}) {
        run(change);
        EXPECT_TRUE(raisedBy([&] {
                        storeAnswers(round(), answers);
                    }).description.contains(what + u"が変わったため"_s))
            << what.toStdString();
        run(undo);
        EXPECT_EQ(storedPairs(2), QString());
    }
    storeAnswers(round(), answers);
    EXPECT_EQ(storedPairs(2), pairsOfTwo);
}

// A spreadsheet program would run it, and whoever receives the file has not written it.
TEST_F(SurveyTest, ANameIsNoFormulaInATextFileAndComesInAsItIs) {
    for (const auto& name : {u"=2+2"_s, u"@SUM(A1)"_s, u"-費用,+維持"_s, u"+1"_s}) {
        run(u"update 要因 set 要因名='%1' where 要因番号=11"_s.arg(name));
        const QString text = filled(answersOfTwo);
        EXPECT_EQ(text.contains(u"'"_s + name), name != u"+1") << name.toStdString();
        EXPECT_EQ(findingLines(checked(saved(u"a.csv"_s, text.toUtf8()))), QStringList())
            << name.toStdString();
    }
}

TEST_F(SurveyTest, EachFaultIsToldWithItsPlaceAndStopsTheFile) {
    const struct {
        QString from, to, told;
    } cases[] = {
        {u"課題番号,1"_s, u"課題番号,3"_s,
         u"誤り: 別の課題の調査票です（この調査票は課題 3、選択された課題は 0001「候補地」）。"_s},
        {u"課題番号,1"_s, u"課題番号,一"_s, u"誤り: 「課題番号」が読み取れません。"_s},
        {u"比較回数,2"_s, u"比較回数,1"_s,
         u"誤り: 別の比較回数の調査票です（この調査票は 1 回、課題は 2 回）。"_s},
        {u"評価者番号,2"_s, u"評価者番号,7"_s, u"誤り: 評価者 7「評価者2」は課題評価者ではありません。"_s},
        {u"評価者2"_s, u"山田"_s,
         u"注意: 評価者 2 の氏名が登録と異なります（調査票「山田」、登録「評価者2」）。"_s},
        {u"左が 3"_s, u"左が 10"_s, u"誤り: 8 行　回答「左が 10」は選択肢にありません。"_s},
        {u"左が 3"_s, u"1/3"_s, u"誤り: 8 行　回答「1/3」は選択肢にありません。"_s},
        {u"11,2,建設費,右が 2,用地費,,21,23\r\n"_s,
         {},
         u"誤り: 目的要因 0011「費用」の組 2 の行がありません。"_s},
        {u"11,2,建設費"_s, u"11,1,建設費"_s,
         u"誤り: 11 行　目的番号 11 の組 1 が重複しています（10 行 と）。"_s},
        {u"11,3,"_s, u"11,4,"_s,
         u"誤り: 12 行　目的番号 11 に組 4 はありません。要因構成が変わっています。"_s},
        {u"11,3,"_s, u"13,3,"_s,
         u"誤り: 12 行　目的番号 13 はこの課題の目的要因ではありません。要因構成が変わっています。"_s},
        {u"21,23"_s, u"21,29"_s,
         u"誤り: 11 行　要因が変わっています（調査票は「建設費」と「用地費」、いまは0021「建設費」と0023「用地費」）。"_s},
        {u"費用,左が 3"_s, u"経費,左が 3"_s,
         u"注意: 8 行　要因の名前が変わっています（調査票「経費」、いまは0011「費用」）。"_s},
        {u"左が 3"_s, u"\"左が\n3か4\""_s, u"誤り: 8 行　回答「左が 3か4」は選択肢にありません。"_s},
        {u"11,1,建設費,右が 2,維持費,,21,22\r\n11,2,建設費,右が 2,用地費,,21,23\r\n"_s,
         {},
         u"誤り: 目的要因 0011「費用」に、調査票にない要因があります: 0021「建設費」。行が消されたか、用紙を作った後で加わった要因です。"_s},
        {u"1,1,費用,左が 3,環境,,11,12\r\n"_s,
         {},
         u"誤り: 目的要因 0001「候補地」の行がありません。消されたか、用紙を作った後で加わった目的要因です。"_s},
        {u"11,3,"_s, u"11,三,"_s, u"誤り: 12 行　「組」が番号ではありません。"_s},
        {u"目的番号,"_s, u"番号,"_s,
         u"誤り: 調査票の回答用紙ではありません（見出し「目的番号」「回答」などの行がありません）。"_s},
        {u"建設費,右が 2"_s, u"建設費,"_s,
         u"注意: 目的要因 0011「費用」は途中です（2 / 3 組）。この目的要因は登録されません。"_s},
    };
    for (const auto& [from, to, told] : cases) {
        QString text = filled(answersOfTwo);
        ASSERT_TRUE(text.contains(from)) << from.toStdString();
        const auto answers =
            checked(saved(u"answers.csv"_s, text.replace(text.indexOf(from), from.size(), to).toUtf8()));
        EXPECT_THAT(findingLines(answers), testing::Contains(told));
        EXPECT_EQ(answers.canBeStored(), told.startsWith(u"注意"));
    }
}

TEST_F(SurveyTest, CellsThatAreNoAnswersAndFilesThatAreNoFormsAreRefused) {
    QString formula = filled(answersOfTwo);
    EXPECT_EQ(
        findingLines(checked(spreadsheet(formula.replace(u"左が 3"_s, u"=1+1"_s)))),
        QStringList{u"誤り: シート「回答」8 行　回答に数式が入っています。選択肢から選び直してください。"_s});
    EXPECT_EQ(findingLines(checked(spreadsheet(filled({u"46025"_s})))),
              QStringList{u"誤り: シート「回答」8 行　回答「46025」は選択肢にありません。"_s});
    EXPECT_EQ(findingLines(checked(spreadsheet(filled(answersOfTwo), true))),
              QStringList{u"誤り: シート「回答」8 行　結合されたセルがあります。"_s});

    const auto good = answerSpreadsheet(questionnaireOf(round()), {2, u"評価者2"_s});
    // A part that says it unpacks to 4 GB, and one that says it has a program in it.
    auto bomb = good;
    const auto entry = bomb.lastIndexOf("xl/worksheets/sheet2.xml"); // in the directory at the file's end
    bomb.replace(entry - 46 + 24, 4, "\xff\xff\xff\xf0");
    auto macros = good;
    macros.replace("xl/theme/theme1.xml", "xl/vbaProject.bin.x");
    const struct {
        QByteArray bytes;
        QString told;
    } cases[] = {
        {{}, u"空のファイルです。"_s},
        {good.left(good.size() / 2), u"壊れているため、読み込めません。"_s},
        {QByteArray(5 << 20, 'x'), u"大きすぎるため、読み込めません。正しいファイルか確かめてください。"_s},
        {macros, u"マクロが入っています。マクロのない .xlsx の形式で保存し直してください。"_s},
        {"\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1",
         u"パスワードで保護されているか、古い形式 (.xls) です。パスワードのない .xlsx の形式で保存し直してください。"_s},
        {QByteArray("a\0b", 3), u"この形式では読めません。.xlsx で保存し直してください。"_s},
    };
#ifndef __SANITIZE_ADDRESS__ // the reader has no limit of memory there
    EXPECT_FALSE(checked(saved(u"answers.xlsx"_s, bomb)).canBeStored());
#endif
    for (const auto& [bytes, told] : cases) {
        const auto answers = checked(saved(u"answers.xlsx"_s, bytes));
        EXPECT_EQ(findingLines(answers), QStringList{u"誤り: "_s + told});
        EXPECT_FALSE(answers.canBeStored());
    }
}

TEST_F(SurveyTest, TheScreenTellsWhatCameBackAndReplacesOnlyWhenAsked) {
    compare(11, {21, 22, 23}, u"5 5 1"_s, 2, 2);
    const auto before = storedPairs(2);
    Common::Forms.show(screen);
    choose(screen, u"Combo1", 0);
    auto* opened = dynamic_cast<調査票*>(Common::Forms.find(screen));
    const auto two = saved(u"2.csv"_s, filled(answersOfTwo).toUtf8());
    const auto five = saved(u"5.csv"_s, filled({u"右が 4"_s}, 5).toUtf8());
    const auto wrong = saved(u"x.csv"_s, filled({u"左が 0"_s}, 5).toUtf8());
    // The files come in through the dialog, in two goes; the second adds to the first, and opens where that
    // was.
    const auto load = [this](const QStringList& paths) {
        QString opened;
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            opened = dialog->directory().path();
            QStringList quoted;
            for (const auto& path : paths) quoted << u'"' + path + u'"';
            dialog->findChild<QLineEdit*>()->setText(quoted.join(u' '));
            static_cast<QDialog*>(dialog)->accept();
        });
        click(screen, u"Command6");
        return opened;
    };
    load({wrong, two});
    EXPECT_EQ(load({two, five}), QFileInfo(two).path());
    EXPECT_EQ(text(screen, u"Status"), u"2 件を読み込みました。一覧の 3 件のうち登録できるもの 2 件。"_s);
    auto* left = control<QTableWidget>(screen, u"Table1")->item(2, 0);
    left->setCheckState(Qt::Unchecked);
    load({wrong, two});
    EXPECT_EQ(control<QTableWidget>(screen, u"Table1")->item(0, 0)->checkState(), Qt::Unchecked);
    click(screen, u"Command2");
    Common::Forms.show(screen);
    choose(screen, u"Combo1", 0);
    opened = dynamic_cast<調査票*>(Common::Forms.find(screen));
    opened->readFiles({two, five, wrong});
    auto* table = control<QTableWidget>(screen, u"Table1");
    const auto row = [table](int index) {
        QStringList cells;
        for (int column = 1; column < table->columnCount(); ++column)
            cells << table->item(index, column)->text();
        return cells.join(u'|');
    };
    EXPECT_EQ(row(0), u"2 評価者2|課題 1（2回）|2 / 2|登録できます、以前の回答あり、要確認 1"_s);
    EXPECT_EQ(row(1), u"5 評価者5|課題 1（2回）|1 / 2|登録できます"_s);
    EXPECT_EQ(row(2), u"5 評価者5|課題 1（2回）|0 / 2|誤りがあるため登録できません"_s);
    // λ = 1 + 9^⅓ + 9^−⅓ = 3.5608 for 1/2, 1/2, 9: CI 0.2804, and over 0.9 CR 0.3116.
    EXPECT_TRUE(control<QPlainTextEdit>(screen, u"Text1")
                    ->toPlainText()
                    .contains(u"目的要因 0011「費用」　整合度 CI 0.2804（限度 0.15）　整合比 CR 0.3116（限度 "
                              u"0.15）　限度を超えています。　要確認: 組 3「維持費」と「用地費」"));

    answers = {MessageAnswer::No};
    EXPECT_EQ(told(screen, u"Command7"),
              (std::vector<ShownMessage>{
                  {screen, u"次の評価者の以前の回答を置き換えます。よろしいですか ？\n2 評価者2（1 目的）"_s,
                   MessageStyle::Discard}}));
    EXPECT_EQ(storedPairs(2), before);
    EXPECT_EQ(storedPairs(5), QString());
    auto other = reader();
    click(screen, u"Command7");
    EXPECT_TRUE(row(0).contains(u"登録できます")) << "shows as stored what is not on the disk";
    other.reset();
    click(screen, u"Command7");
    EXPECT_EQ(storedPairs(2), pairsOfTwo);
    EXPECT_EQ(storedPairs(5), u"1|1|11|12|0.25|2"_s);
    EXPECT_EQ(rows(u"select * from 一対比較 where 比較値=7"_s).size(), 10);
    EXPECT_EQ(table->item(0, 4)->text(), u"登録しました"_s);
    EXPECT_FALSE(control(screen, u"Command7")->isEnabled());

    // Which of two answers to the same goal counts, nobody can say.
    opened->readFiles({five, saved(u"5b.csv"_s, filled({u"左が 4"_s}, 5).toUtf8())});
    table->selectRow(0); // what came before, with a fault of its own
    QTest::keyClick(table, Qt::Key_Delete);
    EXPECT_EQ(row(0), row(1));
    EXPECT_TRUE(row(1).endsWith(u"誤りがあるため登録できません"));
    QTest::keyClick(table, Qt::Key_Delete);
    EXPECT_TRUE(row(0).contains(u"登録できます"));
    click(screen, u"Command2");
    EXPECT_TRUE(isOpen(u"比較者設定"));
}

TEST_F(SurveyTest, PaperNamesEveryPairAndFillsItsPages) {
    run(u"update 要因 set 要因名='将来にわたって負担することになる維持管理の費用' where 要因番号=22"_s);
    QString children;
    for (int child = 101; child <= 107; ++child) {
        run(u"insert into 要因 values(%1,1,'候補%1','')"_s.arg(child));
        children += (child == 101 ? u""_s : u","_s) + QString::number(child);
    }
    for (int goal = 21; goal <= 22; ++goal) structure(u"%1:%2"_s.arg(goal).arg(children));
    writeWholeFile(directory() + u"/file/survey.txt"_s, u"~1~:~2~:~3~\r\n"_s.toUtf8());
    Common::Forms.show(u"比較者設定"_s);
    choose(u"比較者設定", u"Combo1", 0);
    click(u"比較者設定", u"Command3"); // takes the problem along
    EXPECT_EQ(text(screen, u"Combo1"), u"1:候補地"_s);
    select(screen, u"List1", {1});
    click(screen, u"Command17");
    EXPECT_EQ(told(screen, u"Command3"), std::vector<ShownMessage>{});
    const QDir folder(directory() + u"/file"_s);
    const auto documents = folder.entryList({u"評価者5_調査票_候補地_2回目_*.pdf"_s});
    ASSERT_EQ(documents.size(), 1);
    const auto pages = printedPages(folder.filePath(documents[0]));
    ASSERT_EQ(pages.size(), 3); // letter; two small goals and two of 21 pairs
    EXPECT_EQ(pages[0].row(12), QStringList{u"評価者5様:候補地:2"_s});
    const auto digits = u"9 8 7 6 5 4 3 2 1 2 3 4 5 6 7 8 9"_s.split(u' ');
    const auto texts = [](const PrintedPage& page) {
        QStringList rows;
        for (int row = 0; row < 40; ++row) rows << page.row(6 * row).join(u' ');
        return rows;
    };
    EXPECT_THAT(texts(pages[1]),
                testing::IsSupersetOf({u"0001 「候補地」にとって、左と右のどちらがどれだけ重要ですか。"_s,
                                       u"1 費用 "_s + digits.join(u' ') + u" 環境"_s,
                                       u"1 建設費 "_s + digits.join(u' ') + u" 将来にわたって負担するこ"_s,
                                       u"とになる維持管理の費用"_s}));
    // What stands under both is what is chosen from. A goal goes on on the next page, with its first pairs
    // here.
    const auto question = u"「建設費」について、左と右のどちらがどれだけ優れていますか（望ましいですか）。"_s;
    const auto last = u"21 候補106 "_s + digits.join(u' ') + u" 候補107"_s;
    EXPECT_THAT(texts(pages[1]), testing::Contains(u"0021 "_s + question));
    EXPECT_EQ(texts(pages[1]).count(last) + texts(pages[2]).count(last), 2);
    EXPECT_THAT(texts(pages[2]), testing::Not(testing::Contains(u"0021 "_s + question)));
    // A word stands over its digit.
    double middle = 0;
    for (const auto& word : pages[1].words)
        if (word.text == u"1" && word.box.x() > 60) middle = word.box.center().x();
    EXPECT_NEAR(pages[1].word(u"同じ"_s).box.center().x(), middle, 1.5);

    Desktop desktop;
    for (const auto& [button, made, opened] :
         {std::tuple{u"Command3", u"紙の調査票 2 名：PDF 2 件"_s, QStringList{folder.path()}},
          {u"Command5", u"回答用紙 (.csv) 2 名：ファイル 2 個"_s, {}}}) {
        select(screen, u"List1", {0, 1});
        click(screen, button);
        EXPECT_EQ(text(screen, u"Status"), made + u"を作成しました。（%1）"_s.arg(folder.path()));
        EXPECT_EQ(desktop.takeOpened(), opened);
    }
    EXPECT_EQ(text(screen, u"device"), u"→ いきなりPDF 2"_s);
    click(screen, u"folder");
    EXPECT_EQ(desktop.takeOpened(), QStringList{folder.path()});
}
