#include "output/ReportPage.h"

#include "output/ReportTest.h"
#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

const QList<ReportColumn> columns{{u"要因名"_s, 5, 20},
                                  {u"評価値"_s, 30, 20, Alignment::Point, u"あなた"_s},
                                  {u"順位"_s, 50, 12, Alignment::Right, u"あなた"_s}};

class ReportPageTest : public ReportTest {
  protected:
    ReportHeading heading{u"報告作成"_s, {u"鈴木一郎様"_s, u"新製品（3回）"_s}, columns};
    DocumentName name{u"報告作成"_s, u"新製品"_s, u"鈴木"_s};
};

TEST_F(ReportPageTest, TheHeadingStandsOnEveryPageAndRowsFillIt) {
    ReportPage page(print, heading, name);
    for (int i = 0; i < 70; ++i) page.row({u"r%1"_s.arg(i), u"0.5"_s, u"1"_s});
    page.finish();

    const auto printed = pages();
    ASSERT_EQ(printed.size(), 3);
    int next = 0;
    for (int i = 0; i < printed.size(); ++i) {
        const auto top = printed[i].row(6);
        EXPECT_EQ(top.mid(0, 2), (QStringList{u"鈴木一郎様"_s, u"報告作成"_s}));
        EXPECT_EQ(top.mid(3).join(u' '), u"− %1 −"_s.arg(i + 1));
        EXPECT_EQ(printed[i].row(12), QStringList{u"新製品（3回）"_s});
        EXPECT_EQ(printed[i].row(24), QStringList{u"あなた"_s});
        EXPECT_EQ(printed[i].row(30), (QStringList{u"要因名"_s, u"評価値"_s, u"順位"_s}));
        for (int row = 6; row < 40 && next < 70; ++row)
            EXPECT_EQ(printed[i].row(6 * row).value(0), u"r%1"_s.arg(next++)) << i << " " << row;
    }
    EXPECT_EQ(next, 70);
}

TEST_F(ReportPageTest, CellsKeepTheirColumn) {
    ReportPage page(print, heading, name);
    page.row({u"長い名前の要因は切る"_s, u"0.25"_s, u"10"_s});
    page.row({u"小"_s, u"1"_s, u"9"_s}, 4);
    page.row({u"大"_s, u"12.1234"_s, u"123456789012"_s});
    page.finish();

    const auto printed = pages().at(0);
    const double half = 1.764;
    const double point = 50 - 5 * half; // room for ".0000" up to the right edge of the column
    EXPECT_EQ(printed.row(36).value(0), u"長い名前…"_s);
    EXPECT_NEAR(printed.word(u"0.25"_s).box.left(), point - half, 0.1);
    EXPECT_NEAR(printed.word(u"1"_s).box.right(), point, 0.1);
    EXPECT_NEAR(printed.word(u"12.1234"_s).box.right(), 50, 0.1);
    EXPECT_NEAR(printed.word(u"10"_s).box.right(), 62, 0.1);
    EXPECT_NEAR(printed.word(u"9"_s).box.right(), 62, 0.1);
    EXPECT_NEAR(printed.word(u"小"_s).box.left(), 5 + 4 * half, 0.1);
}

TEST_F(ReportPageTest, WhatBelongsTogetherIsNotParted) {
    struct Case {
        int before, rows, onFirstPage; // of the 34 that a page takes; a title stands above the group
    };
    for (const auto& [before, rows, onFirstPage] :
         {Case{24, 9, 34}, Case{25, 9, 25}, Case{31, 40, 34}, Case{32, 40, 32}}) {
        ReportPage page(print, heading, name);
        for (int i = 0; i < before; ++i) page.row({u"r"_s});
        page.group(rows, u"長い名前の目的要因も切らない"_s, 2);
        for (int i = 0; i < rows; ++i) page.row({u"g"_s}, 4);
        page.finish();
        const auto printed = pages();
        const auto& words = printed[0].words;
        EXPECT_EQ(std::ranges::count_if(words, [](const auto& word) { return word.box.y() > 35; }),
                  onFirstPage);
        EXPECT_EQ(printed[onFirstPage == 34 ? 0 : 1].word(u"長い名前の目的要因も切らない"_s).box.x() > 5,
                  true);
    }
    ReportPage group(print, heading, name); // the last two of a long group stay together
    group.group(35);
    for (int i = 0; i < 35; ++i) group.row({u"g%1"_s.arg(i)});
    group.finish();
    EXPECT_EQ(pages().at(1).row(36).value(0), u"g33"_s);
    for (const int rows : {20, 21}) { // a blank row, title, heading and 20 rows fill the page
        ReportPage page(print, heading, name);
        for (int i = 0; i < 11; ++i) page.row({u"r"_s});
        page.newTable(u"市場性"_s, {{u"要因名"_s, 5, 60}}, rows);
        EXPECT_EQ(print.PageNo, rows - 20);
        for (int i = 0; i < 36; ++i) page.row({u"t%1"_s.arg(i)});
        page.finish();
        EXPECT_EQ(pages().at(1).row(24), QStringList{rows == 20 ? u"市場性（続き）"_s : u"市場性"_s});
        EXPECT_EQ(pages().at(1).row(30), QStringList{u"要因名"_s});
    }
}

TEST_F(ReportPageTest, TheLargestMatrixFitsThePage) {
    QStringList names;
    QList<QStringList> cells(21, QStringList(21, u"1/9"_s));
    for (int i = 0; i < 21; ++i) names.append(u"とても長い名前をもつ要因はここで切れる"_s);
    ReportPage page(print, heading, name);
    page.row({u"r"_s});
    page.matrix(u"市場性"_s, names, cells);
    page.finish();
    const auto printed = pages();
    ASSERT_EQ(printed.size(), 1);
    int values = 0;
    for (const auto& word : printed[0].words) {
        EXPECT_LT(word.box.right(), 205.1);
        values += word.text == u"1/9"_s ? 1 : 0;
    }
    EXPECT_EQ(values, 21 * 21); // none touches its neighbour
}

TEST_F(ReportPageTest, EachPartBeginsWithItsMessage) {
    const auto path = messageFile("~1~\r\n");
    ReportPage page(print, heading, name);
    for (const auto& evaluator : {u"鈴木様"_s, u"佐藤様"_s}) {
        print.MsgSlots[1] = u"message:"_s + evaluator;
        page.newPart({evaluator, u"新製品（3回）"_s});
        page.message(path);
        page.row({u"r"_s});
    }
    page.finish();
    const auto printed = pages();
    ASSERT_EQ(printed.size(), 2);
    EXPECT_EQ(printed[1].row(6).value(0), u"佐藤様"_s);
    EXPECT_EQ(printed[1].row(12), QStringList{u"message:佐藤様"_s});
    EXPECT_EQ(printed[1].row(24), QStringList{u"新製品（3回）"_s});
    EXPECT_EQ(printed[1].row(48), QStringList{u"r"_s});
}

TEST_F(ReportPageTest, AnInterruptedReportLeavesNothing) {
    EXPECT_THROW(
        {
            ReportPage page(print, heading, name);
            page.row({u"r"_s});
            page.coveringLetter(messageFile("~30~"));
        },
        RuntimeError);
    ReportPage page(print, heading, name);
    page.row({u"again"_s});
    page.finish();
    EXPECT_EQ(pages().size(), 1);
    EXPECT_EQ(QDir(folder.filePath(u"file"_s)).entryList({u"*.pdf"_s}).size(), 1);
}

} // namespace
