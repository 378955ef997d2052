#include "output/PrintService.h"

#include "output/ReportTest.h"
#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

class PrintServiceTest : public ReportTest {
  protected:
    QList<PrintedPage> printMessage(const QByteArray& content, bool keepPage = true) {
        printer.beginDocument({u"報告作成"_s, u"課題"_s, u"鈴木"_s});
        print.SetUpPage(8);
        print.PrintMessageFile(messageFile(content), 6, keepPage);
        printer.EndDoc();
        return pages();
    }
};

TEST_F(PrintServiceTest, WidthsFollowTheCodePage) {
    const struct {
        QString text;
        qint16 limit;
        qint16 fitting;
    } cases[] = {
        {u"評価"_s, 3, 1},    {u"評価"_s, 4, 2},  {u"abc"_s, 10, 3},  {QString(), 10, 0},
        {u"abc"_s, 0, 0},     {u"ｱｲｳ"_s, 2, 2},   {u"a評b"_s, 3, 2},  {u"\u00ffa"_s, 1, 0},
        {u"\u00ffa"_s, 2, 1}, {u"𠮷𠮷a"_s, 4, 2}, {u"𠮷𠮷a"_s, 5, 3}, {u"①髙"_s, 3, 1},
    };
    for (const auto& [text, limit, fitting] : cases)
        EXPECT_EQ(PrintService::FitChars(text, limit), fitting) << qPrintable(text) << " in " << limit;
    EXPECT_EQ(PrintService::TextColumns(u"a評ｱ𠮷"_s), 6);
}

TEST_F(PrintServiceTest, TheTargetChoosesThePrinterAndUnknownNamesLeaveIt) {
    EXPECT_EQ(printer.DeviceName(), u"いきなりPDF 2"_s);
    print.ToggleOutputTarget();
    EXPECT_EQ(print.OutputTarget, u"印刷"_s);
    print.ChooseReportPrinter(); // the office printer is not installed here
    EXPECT_EQ(printer.DeviceName(), u"いきなりPDF 2"_s);
    print.ToggleOutputTarget();
    print.load(folder.path());
    EXPECT_EQ(print.OutputTarget, u"印刷"_s);
    EXPECT_EQ(print.MaxLines, 65);
}

TEST_F(PrintServiceTest, ThirteenColumnsAreLandscapeOnEveryPage) {
    for (const qint16 columns : {13, 12}) {
        print.SetUpPage(columns);
        EXPECT_EQ(print.MaxLines, columns == 13 ? 27 : 40);
        for (int page = 0; page < 2; ++page) {
            printer.Print(u"評価"_s);
            print.EndPage();
        }
        printer.EndDoc();
        EXPECT_EQ(print.PageNo, 2);
        for (const auto& page : pages()) EXPECT_NEAR(page.size.width(), columns == 13 ? 297 : 210, 0.3);
    }
}

TEST_F(PrintServiceTest, ParagraphsWrapAtTheirWidthAndBlankLinesTakeNoRow) {
    const auto pages =
        printMessage("A\r\n\r\n" + QByteArray(200, 'x') + "\r\n" + QString(50, u'評').toUtf8());
    const double indent = 6 * 1.764;
    EXPECT_NEAR(pages[0].word(u"A"_s).box.x(), indent, 0.3);
    const QStringList rows{
        u"A"_s, QString(94, u'x'), QString(94, u'x'), QString(12, u'x'), QString(47, u'評'), u"評評評"_s};
    for (int i = 0; i < rows.size(); ++i) EXPECT_EQ(pages[0].row(6 * (2 + i)), QStringList{rows[i]}) << i;
    EXPECT_EQ(pages[0].words.size(), rows.size());
    EXPECT_EQ(print.LineNo, 8);
    EXPECT_EQ(print.PageNo, 0);
}

TEST_F(PrintServiceTest, MarkersStandForTheSlots) {
    print.MsgSlots[0] = u"2024/05/01"_s;
    print.MsgSlots[1] = u"鈴木様"_s;
    print.MsgSlots[2] = u"新~2~案"_s; // a name may look like a marker
    print.MsgSlots[3] = u"2"_s;
    const QByteArray inCodePage = "\x95\x5d\x89\xbf\r\n"; // 評価 in windows-31j
    const auto page = printMessage(inCodePage + "~2~ ~1~\r\n~0~:~03~\r\n~x~~20~\r\n").at(0);
    EXPECT_EQ(page.row(12), QStringList{u"評価"_s});
    EXPECT_EQ(page.row(18), (QStringList{u"新~2~案"_s, u"鈴木様"_s}));
    EXPECT_EQ(page.row(24), QStringList{u"2024/05/01:2"_s});
    EXPECT_EQ(page.row(30), QStringList{u"2024/05/01"_s});
}

TEST_F(PrintServiceTest, ALongMessageGoesOnAndACoveringLetterEndsItsPage) {
    QByteArray content;
    for (int i = 1; i <= 40; ++i) content += "line" + QByteArray::number(i) + "\r\n";
    const auto pages = printMessage(content, false);
    ASSERT_EQ(pages.size(), 2);
    EXPECT_EQ(pages[0].row(6 * 39), QStringList{u"line38"_s});
    EXPECT_EQ(pages[1].row(12), QStringList{u"line39"_s});
    EXPECT_EQ(print.LineNo, 0);
    EXPECT_EQ(print.PageNo, 2);
}

TEST_F(PrintServiceTest, FaultsOfTheFileNameTheirLine) {
    const struct {
        QByteArray content;
        int error;
    } cases[] = {{"a\r\n~21~", 9}, {"a\r\n~99999999999~", 9}, {"a\r\nb~1", 5}, {"a\r\n~1~~", 5}};
    for (const auto& [content, error] : cases) {
        try {
            printMessage(content);
            ADD_FAILURE() << content.constData();
        } catch (const RuntimeError& raised) {
            EXPECT_EQ(raised.number(), error) << content.constData();
            EXPECT_TRUE(raised.description().contains(u"message.txt (2 行目)"_s));
        }
    }
    EXPECT_THROW(print.PrintMessageFile(print.FileDir + u"\\errmsg.txt"_s, 6, true), RuntimeError);
}

} // namespace
