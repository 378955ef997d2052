#include "printing/Printer.h"

#include <cups/cups.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "files/NewFile.h"
#include "support/Helpers.h"
#include "support/PrintedPages.h"

using namespace Qt::StringLiterals;

class PrinterTest : public ::testing::Test {
  protected:
    PrinterTest() {
        cupsSetServer("/nonexistent/cups.sock");
        printer.setFont(u"ＭＳ ゴシック"_s);
        printer.setOutputFolder(folder.path());
        printer.onDocument([this](const QString& path) { documents.append(path); });
    }

    void selectPdf() { printer.select(printer.Printers().last()); }
    void print(double x, double y, const QString& text) {
        printer.CurrentX = x;
        printer.CurrentY = y;
        printer.Print(text);
    }
    QString printOne(const DocumentName& name) {
        printer.beginDocument(name);
        print(5, 12, u"一対比較"_s);
        printer.EndDoc();
        return documents.value(documents.size() - 1);
    }
    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir folder;
    Printer printer;
    QStringList documents;
};

TEST_F(PrinterTest, TextsStandAtTheirMillimetresOnPagesOfEitherOrientation) {
    selectPdf();
    printer.beginDocument({u"個人結果"_s, u"課題"_s, u"鈴木"_s});
    print(5, 234, u"0123456789"_s.repeated(10));
    print(5, 12, u"評価"_s.repeated(25));
    print(5, 48, u"評\t価"_s); // a tab takes one column
    printer.EndPage();
    printer.setOrientation(Orientation::Landscape);
    print(250, 156, u"α①"_s);
    printer.EndPage();
    printer.EndPage();
    printer.EndDoc();

    const auto pages = printedPages(documents.last());
    ASSERT_EQ(pages.size(), 2);
    EXPECT_NEAR(pages[0].size.height(), 297, 0.3);
    EXPECT_NEAR(pages[1].size.height(), 210, 0.3);
    const struct {
        PrintedWord word;
        double x, y, width;                                                      // mm
    } placed[] = {{pages[0].word(u"0123456789"_s.repeated(10)), 5, 234, 176.39}, // 100 half-width columns
                  {pages[0].word(u"評価"_s.repeated(25)), 5, 12, 176.39},
                  {pages[0].word(u"価"_s), 10.29, 48, 3.53},
                  {pages[1].word(u"α①"_s), 250, 156, printer.TextWidth(u"α①"_s)}};
    for (const auto& [word, x, y, width] : placed) {
        EXPECT_NEAR(word.box.x(), x, 0.1);
        EXPECT_NEAR(word.box.y(), y, 0.1);
        EXPECT_NEAR(word.box.width(), width, 0.1);
    }
    EXPECT_NEAR(printer.TextWidth(u"ｱｲあ"_s), 7.06, 0.01);
}

TEST_F(PrinterTest, FilesBearTheNameOfTheDocumentAndReplaceNone) {
    selectPdf();
    for (const auto& [name, file] :
         {std::pair{DocumentName{u"分析出力"_s, u"課題"_s, {}, 12}, u"分析出力_課題_12回目"_s},
          {DocumentName{u"個人結果"_s, u"A/B\\C:*?\n"_s, u"\"<>|.様"_s},
           u"”＜＞｜.様_個人結果_A／B￥C：＊？＿"_s},
          {DocumentName{u"個人結果"_s, u"長"_s.repeated(80), u"𠮷"_s.repeated(80)},
           u"%2_個人結果_%1"_s.arg(u"長"_s.repeated(30), u"𠮷"_s.repeated(22))}})
        for (int i = 0; i < 3; ++i) { // within one second
            const auto written = QFileInfo(printOne(name)).fileName();
            EXPECT_EQ(written.left(file.size()), file);
            const QRegularExpression time(uR"(^_\d{8}-\d{6}(_\d)?\.pdf$)"_s);
            EXPECT_TRUE(time.match(written.mid(file.size())).hasMatch()) << qPrintable(written);
        }
    EXPECT_EQ(files().size(), 9);
    for (const auto& document : documents) EXPECT_EQ(printedPages(document).size(), 1);
}

TEST_F(PrinterTest, ADiskThatIsFullLeavesNoFile) {
    selectPdf();
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    rlimit full = before;
    full.rlim_cur = 1000; // a file takes no more bytes, as on a full disk
    auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
    const auto error = raisedBy([&] { printOne({u"個人結果"_s, u"課題"_s, {}}); }).number;
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);

    EXPECT_EQ(error, 75);
    EXPECT_EQ(files(), QStringList());
    printOne({u"個人結果"_s, u"課題"_s, {}});
    EXPECT_EQ(files().size(), 1);
    printer.setOutputFolder(folder.filePath(u"missing"_s));
    EXPECT_EQ(raisedBy([&] { printOne({u"個人結果"_s, u"課題"_s, {}}); }).number, 76);
}

TEST_F(PrinterTest, NothingComesOfAnEmptyDocumentAndWithoutAPrinterTheUserIsToldOfPdf) {
    const auto raised = raisedBy([&] { printer.beginDocument({u"個人結果"_s, {}, {}}); });
    EXPECT_EQ(raised.number, 482);
    EXPECT_TRUE(raised.description.contains(u"PDF"_s));
    selectPdf();
    printer.EndPage();
    printer.EndDoc();
    EXPECT_EQ(files(), QStringList());
}

// A print system of the test's own with two queues: "office" keeps what it was given, "closed"
// takes no jobs.
class QueueTest : public PrinterTest {
  protected:
    void SetUp() override {
        for (const auto* name : {"etc", "spool", "cache", "run", "tmp"})
            QDir(system.path()).mkdir(QLatin1String(name));
        write(u"etc/cups-files.conf"_s,
              u"ServerRoot %1/etc\nRequestRoot %1/spool\nCacheDir %1/cache\nStateDir %1/run\nTempDir %1/tmp\n"
              "AccessLog /dev/null\nErrorLog /dev/null\nPageLog /dev/null\nFileDevice Yes\n"_s);
        write(u"etc/cupsd.conf"_s,
              u"Listen %1/socket\nBrowsing No\nDefaultAuthType None\nPreserveJobFiles Yes\n"_s);
        write(u"etc/printers.conf"_s,
              u"<Printer closed>\nDeviceURI file:/dev/null\nState Idle\nAccepting No\n</Printer>\n"
              "<DefaultPrinter office>\nInfo SHARP AR-266FP SPDL2_T1\nDeviceURI file:/dev/null\n"
              "State Idle\nAccepting Yes\n</DefaultPrinter>\n"_s);
        daemon.setProcessChannelMode(QProcess::ForwardedChannels);
        daemon.start(u"/usr/sbin/cupsd"_s,
                     {u"-f"_s, u"-c"_s, path(u"etc/cupsd.conf"_s), u"-s"_s, path(u"etc/cups-files.conf"_s)});
        ASSERT_TRUE(daemon.waitForStarted()) << "package cups-daemon is missing";
        cupsSetServer(QFile::encodeName(path(u"socket"_s)).constData());
        ASSERT_TRUE(QTest::qWaitFor([&] { return printer.Printers().size() == 3; }, 20000));
    }
    void TearDown() override {
        daemon.terminate();
        daemon.waitForFinished();
    }

    QString path(const QString& name) const { return system.filePath(name); }
    void write(const QString& name, const QString& text) {
        QString filled = text;
        writeWholeFile(path(name), filled.replace(u"%1"_s, system.path()).toUtf8());
    }

    QTemporaryDir system;
    QProcess daemon;
};

TEST_F(QueueTest, DocumentsGoToTheCurrentPrinterAndRefusalsAreErrors) {
    QStringList names;
    for (const auto& device : printer.Printers()) names.append(device.DeviceName);
    EXPECT_EQ(names, (QStringList{u"closed"_s, u"SHARP AR-266FP SPDL2_T1"_s, u"いきなりPDF 2"_s}));
    EXPECT_EQ(printer.DeviceName(), u"SHARP AR-266FP SPDL2_T1"_s); // the system's default

    printOne({u"報告作成"_s, u"課題"_s, u"鈴木"_s});
    EXPECT_NEAR(printedPages(path(u"spool/d00001-001"_s)).at(0).word(u"一対比較"_s).box.y(), 12, 0.3);
    EXPECT_EQ(files(), QStringList());

    printer.select(printer.Printers().first());
    const auto raised = raisedBy([&] { printOne({u"報告作成"_s, {}, {}}); });
    EXPECT_EQ(raised.number, 482);
    EXPECT_TRUE(raised.description.contains(u"closed")) << qPrintable(raised.description);
    TearDown();
    EXPECT_EQ(raisedBy([&] { printOne({u"報告作成"_s, {}, {}}); }).number, 482);
}
