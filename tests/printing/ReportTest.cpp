// Report pages and message letters as they stand in the printed document.
#include "printing/Report.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

#include "files/NewFile.h"
#include "printing/Output.h"
#include "support/Helpers.h"
#include "support/PrintedPages.h"
#include "text/TextColumns.h"

using namespace Qt::StringLiterals;

constexpr double half = 1.764; // mm, the width of a half-width column

// An output whose documents are PDF files in a folder of the test's own.
class ReportTest : public ::testing::Test {
  protected:
    ReportTest() {
        output.load(folder.path());
        output.ToggleOutputTarget();
        output.ChooseReportPrinter();
        QDir(folder.path()).mkdir(u"file"_s);
        printer.setOutputFolder(output.FileDir);
        printer.onDocument([this](const QString& path) { document = path; });
    }

    QString messageFile(const QByteArray& content) {
        QString path = output.FileDir + u"\\message.txt"_s;
        writeWholeFile(path, content);
        return path;
    }
    QList<PrintedPage> printMessage(const QByteArray& content, bool keepPage = true) {
        printer.beginDocument(name);
        output.SetUpPage(8);
        output.PrintMessageFile(messageFile(content), 6, keepPage);
        printer.EndDoc();
        return printedPages(document);
    }
    // The pages of a report that `fill` writes.
    QList<PrintedPage> printReport(const std::function<void(Report&)>& fill) {
        Report report(output, heading, name);
        fill(report);
        report.finish();
        return printedPages(document);
    }
    static QList<ReportRow> rowsOf(const QString& prefix, int count) {
        QList<ReportRow> rows;
        for (int i = 0; i < count; ++i) rows.append({{prefix + QString::number(i)}, 4});
        return rows;
    }
    static void addRows(Report& report, const QString& prefix, int count) {
        for (int i = 0; i < count; ++i) report.row({prefix + QString::number(i), u"0.5"_s, u"1"_s});
    }

    QTemporaryDir folder;
    Printer printer;
    Output output{printer};
    QString document;
    DocumentName name{u"報告作成"_s, u"新製品"_s, u"鈴木"_s};
    ReportHeading heading{u"報告作成"_s,
                          {u"鈴木一郎様"_s, u"新製品（3回）"_s},
                          {{u"要因名"_s, 5, 20},
                           {u"評価値"_s, 30, 20, Alignment::Point, u"あなた"_s},
                           {u"順位"_s, 50, 12, Alignment::Right, u"あなた"_s}}};
};

TEST_F(ReportTest, WidthsFollowTheCodePage) {
    for (const auto& [text, limit, fitting] : {std::tuple{u"評価"_s, 3, 1},
                                               {u"評価"_s, 4, 2},
                                               {u"abc"_s, 0, 0},
                                               {u"ｱｲｳ"_s, 2, 2},
                                               {u"\u00ffa"_s, 1, 0},
                                               {u"𠮷𠮷a"_s, 4, 2},
                                               {u"𠮷𠮷a"_s, 5, 3},
                                               {u"①髙"_s, 3, 1}})
        EXPECT_EQ(FitChars(text, static_cast<qint16>(limit)), fitting) << text.toStdString();
    EXPECT_EQ(TextColumns(u"a評ｱ𠮷"_s), 6);
}

TEST_F(ReportTest, PrintersAreTheOnesThatTheUsersSettingsName) {
    EXPECT_EQ(output.OfficePrinterName, u"SHARP AR-266FP SPDL2_T1"_s);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    QDir(folder.path()).mkdir(u"Hollin"_s);
    for (const auto& [typed, name] : {std::pair{"事務室, 2階", u"事務室, 2階"_s},
                                      {" A,B;  C ", u"A,B;  C"_s},
                                      {R"("2階, 奥")", u"2階, 奥"_s},
                                      {R"(\\server\new)", uR"(\\server\new)"_s},
                                      {"", u"SHARP AR-266FP SPDL2_T1"_s}}) {
        writeWholeFile(
            folder.filePath(u"Hollin/Hollin.conf"_s),
            QByteArray("[Settings3]\nOffice=x\n\n[Printers]\r\n# Office=y\nOffice=") + typed + "\n");
        output.load(folder.path());
        EXPECT_EQ(output.OfficePrinterName, name);
        EXPECT_EQ(output.PdfPrinterName, u"いきなりPDF 2"_s);
    }
}

TEST_F(ReportTest, EachTargetHasItsDevice) {
    const QString installed = u"いきなりPDF 2"_s; // the only one without a print system
    for (const bool office : {true, false}) {
        Printer device;
        Output output(device);
        output.load(folder.path());
        output.OfficePrinterName = office ? installed : u"なし"_s;
        output.PdfPrinterName = office ? u"なし"_s : installed;
        EXPECT_EQ(output.ReportDevice(), office ? installed : QString());
        if (!office) {
            EXPECT_EQ(raisedBy([&] { const Report report(output, heading, name); }).number, 482);
            output.ToggleOutputTarget();
        }
        EXPECT_EQ(output.ReportDevice(), installed);
        EXPECT_EQ(device.DeviceName(), QString());
        output.ChooseReportPrinter();
        EXPECT_EQ(device.DeviceName(), installed);
    }
}

TEST_F(ReportTest, ThirteenColumnsAreLandscapeOnEveryPage) {
    for (const auto& [columns, lines, width] : {std::tuple{13, 27, 297}, {12, 40, 210}}) {
        output.SetUpPage(static_cast<qint16>(columns));
        EXPECT_EQ(output.MaxLines, lines);
        for (int page = 0; page < 2; ++page) {
            printer.Print(u"評価"_s);
            output.EndPage();
        }
        printer.EndDoc();
        for (const auto& page : printedPages(document)) EXPECT_NEAR(page.size.width(), width, 0.3);
    }
}

TEST_F(ReportTest, ParagraphsWrapAtTheirWidthAndBlankLinesTakeNoRow) {
    const auto page =
        printMessage("A\r\n\r\n" + QByteArray(200, 'x') + "\r\n" + QString(50, u'評').toUtf8())[0];
    EXPECT_NEAR(page.word(u"A"_s).box.x(), 6 * half, 0.3);
    QStringList rows;
    for (int line = 2; line < 9; ++line) rows += page.row(6 * line);
    EXPECT_EQ(rows, (QStringList{u"A"_s, QString(94, u'x'), QString(94, u'x'), QString(12, u'x'),
                                 QString(47, u'評'), u"評評評"_s}));
    EXPECT_EQ(output.LineNo, 8);
    EXPECT_EQ(output.PageNo, 0);
}

TEST_F(ReportTest, MarkersStandForTheSlots) {
    output.MsgSlots[0] = u"2024/05/01"_s;
    output.MsgSlots[1] = u"鈴木様"_s;
    output.MsgSlots[2] = u"新~2~案"_s; // a name may look like a marker
    output.MsgSlots[3] = u"2"_s;
    const QByteArray inCodePage = "\x95\x5d\x89\xbf\r\n"; // 評価 in windows-31j
    const auto page = printMessage(inCodePage + "~2~ ~1~\r\n~0~:~03~\r\n~x~~20~\r\n").at(0);
    EXPECT_EQ(page.row(12), QStringList{u"評価"_s});
    EXPECT_EQ(page.row(18), (QStringList{u"新~2~案"_s, u"鈴木様"_s}));
    EXPECT_EQ(page.row(24), QStringList{u"2024/05/01:2"_s});
    EXPECT_EQ(page.row(30), QStringList{u"2024/05/01"_s});
}

TEST_F(ReportTest, ALongMessageGoesOnAndACoveringLetterEndsItsPage) {
    QByteArray content;
    for (int i = 1; i <= 40; ++i) content += "line" + QByteArray::number(i) + "\r\n";
    const auto pages = printMessage(content, false);
    ASSERT_EQ(pages.size(), 2);
    EXPECT_EQ(pages[0].row(6 * 39), QStringList{u"line38"_s});
    EXPECT_EQ(pages[1].row(12), QStringList{u"line39"_s});
    EXPECT_EQ(output.LineNo, 0);
    EXPECT_EQ(output.PageNo, 2);
}

TEST_F(ReportTest, FaultsOfTheFileNameTheirLineAndLeaveNothing) {
    for (const auto& [content, error] :
         {std::pair{"a\r\n~21~", 9}, {"a\r\n~99999999999~", 9}, {"a\r\nb~1", 5}, {"a\r\n~1~~", 5}}) {
        const QString letter = messageFile(content);
        const auto raised = raisedBy([&] {
            printReport([&](Report& report) {
                report.row({u"r"_s});
                report.coveringLetter(letter);
            });
        });
        EXPECT_EQ(raised.number, error) << content;
        EXPECT_TRUE(raised.description.contains(u"message.txt (2 行目)"_s));
    }
    const QString letter = messageFile(QByteArray((1 << 20) + 1, 'a'));
    const QString file = folder.filePath(u"file/message.txt"_s);
    const auto refused = [&] {
        return raisedBy([&] { printReport([&](Report& report) { report.coveringLetter(letter); }); })
            .description;
    };
    EXPECT_TRUE(refused().contains(u"大きすぎる"));
    QFile::remove(file);
    ASSERT_EQ(::mkfifo(QFile::encodeName(file).constData(), 0600), 0);
    EXPECT_TRUE(refused().contains(u"普通のファイルではない")); // and nobody waits for whoever writes into it
    QFile::remove(file);
    const auto pages = printReport([](Report& report) { report.row({u"again"_s}); });
    EXPECT_EQ(pages.size(), 1);
    EXPECT_EQ(pages[0].word(u"r"_s).text, QString());
    EXPECT_EQ(QDir(folder.filePath(u"file"_s)).entryList({u"*.pdf"_s}).size(), 1);
}

TEST_F(ReportTest, TheHeadingStandsOnEveryPageAndRowsFillIt) {
    const auto pages = printReport([](Report& report) { addRows(report, u"r"_s, 70); });
    ASSERT_EQ(pages.size(), 3);
    int next = 0;
    for (int i = 0; i < pages.size(); ++i) {
        const auto top = pages[i].row(6);
        EXPECT_EQ(top.mid(0, 2), (QStringList{u"鈴木一郎様"_s, u"報告作成"_s}));
        EXPECT_EQ(top.mid(3).join(u' '), u"− %1 −"_s.arg(i + 1));
        EXPECT_EQ(pages[i].row(12), QStringList{u"新製品（3回）"_s});
        EXPECT_EQ(pages[i].row(24), QStringList{u"あなた"_s});
        EXPECT_EQ(pages[i].row(30), (QStringList{u"要因名"_s, u"評価値"_s, u"順位"_s}));
        for (int row = 6; row < 40 && next < 70; ++row)
            EXPECT_EQ(pages[i].row(6 * row).value(0), u"r%1"_s.arg(next++)) << i << " " << row;
    }
    EXPECT_EQ(next, 70);
}

TEST_F(ReportTest, LongNamesLeaveRoomForWhatFollowsThem) {
    heading.lines = {{QString(200, u'長'), u"様"_s}, {QString(200, u'題'), u"（3回）"_s}};
    const auto page = printReport([](Report& report) { report.row({u"r"_s}); })[0];
    EXPECT_TRUE(page.row(6).value(0).endsWith(u"長…様"));
    EXPECT_TRUE(page.row(12).value(0).endsWith(u"題…（3回）"));
    EXPECT_LE(page.words[0].box.right(), 105);
}

TEST_F(ReportTest, CellsKeepTheirColumn) {
    const auto page = printReport([](Report& report) {
        report.row({u"長い名前の要因は（12）で続く"_s, u"0.25"_s, u"10"_s});
        report.row({u"小"_s, u"1"_s, u"9"_s}, 4);
        report.row({u"大"_s, u"12.1234"_s, u"123456789012"_s});
    })[0];
    const double point = 50 - 5 * half; // room for ".0000" up to the right edge of the column
    EXPECT_EQ(page.row(36), (QStringList{u"長い名前の"_s, u"0.25"_s, u"10"_s}));
    EXPECT_EQ(page.row(42) + page.row(48) + page.row(54),
              (QStringList{u"要因は"_s, u"（12）で"_s, u"続く"_s}));
    EXPECT_NEAR(page.word(u"要因は"_s).box.left(), 5 + 2 * half, 0.1);
    EXPECT_NEAR(page.word(u"0.25"_s).box.left(), point - half, 0.1);
    EXPECT_NEAR(page.word(u"1"_s).box.right(), point, 0.1);
    EXPECT_NEAR(page.word(u"12.1234"_s).box.right(), 50, 0.1);
    EXPECT_NEAR(page.word(u"10"_s).box.right(), 62, 0.1);
    EXPECT_NEAR(page.word(u"小"_s).box.left(), 5 + 4 * half, 0.1);
}

TEST_F(ReportTest, WhatBelongsTogetherIsNotParted) {
    const QString title = u"長い名前の目的要因も切らない"_s; // stands above the group
    // {rows before, rows of the group, of the 34 that a page takes}
    for (const auto& [before, rows, onFirstPage] :
         {std::tuple{24, 9, 34}, {25, 9, 25}, {31, 40, 34}, {32, 40, 32}}) {
        const auto pages = printReport([&, before = before, rows = rows](Report& report) {
            for (int i = 0; i < before; ++i) report.row({u"r"_s});
            report.group({rowsOf(u"g"_s, rows), title, 2});
        });
        const auto below = [](const auto& word) { return word.box.y() > 35; };
        EXPECT_EQ(std::ranges::count_if(pages[0].words, below), onFirstPage);
        EXPECT_GT(pages[onFirstPage == 34 ? 0 : 1].word(title).box.x(), 5);
        // A group that goes over to another page says again whose it is.
        EXPECT_EQ(pages.back().row(36).value(0) == title + u"（続き）"_s, rows == 40);
    }
    const auto group = printReport([](Report& report) { // the last two of a long group stay together
        report.group({.rows = rowsOf(u"g"_s, 35), .label = u"総計"_s});
    });
    EXPECT_EQ(group.at(1).row(36) + group.at(1).row(42), (QStringList{u"総計"_s, u"g34"_s}));
    for (const int rows : {20, 21}) { // a blank row, title, heading and 20 rows fill the page
        const auto pages = printReport([&](Report& report) {
            addRows(report, u"r"_s, 11);
            report.newTable(u"市場性"_s, {{u"要因名"_s, 5, 60}}, rowsOf(u"t"_s, rows));
            addRows(report, u"u"_s, 36 - rows);
        });
        EXPECT_EQ(pages.at(1).row(24), QStringList{rows == 20 ? u"市場性（続き）"_s : u"市場性"_s});
        EXPECT_EQ(pages.at(1).row(30), QStringList{u"要因名"_s});
    }
}

TEST_F(ReportTest, TheLargestMatrixFitsThePage) {
    const auto pages = printReport([](Report& report) {
        report.row({u"r"_s});
        report.matrix(u"市場性"_s, QStringList(21, u"長い名前の要"_s),
                      QList<QStringList>(21, QStringList(21, u"1/9"_s)));
        report.matrix(u"成長性"_s, {QString(50, u'長'), u"短"_s}, {{u"－"_s, u"3"_s}, {u"1/3"_s, u"－"_s}});
    });
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(pages[0].word(QString(50, u'長')).text, QString(50, u'長')); // beside two cells there is room
    const auto& words = pages[0].words;
    for (const auto& word : words) EXPECT_LT(word.box.right(), 205.1);
    EXPECT_EQ(std::ranges::count(words, u"1/9"_s, &PrintedWord::text), 21 * 21); // none touches its neighbour
}

TEST_F(ReportTest, EveryPageOfALongMessageHasItsRunningLine) {
    const auto letter = messageFile(QByteArray("line\r\n").repeated(100));
    const auto pages = printReport([&](Report& report) {
        report.message(letter);
        report.row({u"r"_s});
    });
    ASSERT_EQ(pages.size(), 3);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(pages[i].row(6).mid(3).join(u' '), u"− %1 −"_s.arg(i + 1));
}

TEST_F(ReportTest, EachPartBeginsWithItsMessage) {
    const auto path = messageFile("~1~\r\n");
    const auto pages = printReport([&](Report& report) {
        for (const auto& evaluator : {u"鈴木様"_s, u"佐藤様"_s}) {
            output.MsgSlots[1] = u"message:"_s + evaluator;
            report.newPart({evaluator, u"新製品（3回）"_s});
            report.message(path);
            report.row({u"r"_s});
        }
    });
    ASSERT_EQ(pages.size(), 2);
    EXPECT_EQ(pages[1].row(6).value(0), u"佐藤様"_s);
    EXPECT_EQ(pages[1].row(12), QStringList{u"message:佐藤様"_s});
    EXPECT_EQ(pages[1].row(24), QStringList{u"新製品（3回）"_s});
    EXPECT_EQ(pages[1].row(48), QStringList{u"r"_s});
}
