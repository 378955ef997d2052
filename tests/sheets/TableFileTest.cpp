#include "sheets/TableFile.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "files/NewFile.h"
#include "sheets/CsvRow.h"
#include "support/Zip.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

using Parts = QList<std::pair<QByteArray, QByteArray>>;

class TableFileTest : public testing::Test {
  protected:
    QString saved(const QByteArray& bytes) {
        const QString path = folder_.filePath(QString::number(++files_));
        writeWholeFile(path, bytes);
        return path;
    }
    QString path(const QString& name) const { return folder_.filePath(name); }
    static TableFile read(const QString& path) {
        TableFile read;
        readTableFiles({path}, [&read](const TableFile& file) { read = file; });
        return read;
    }
    // "table:row:column kind text", in order.
    static QStringList cells(const TableFile& file) {
        QStringList cells{};
        if (!file.fault.isEmpty()) cells << file.fault;
        for (const auto& table : file.tables) {
            for (auto [row, columns] : table.rows.asKeyValueRange())
                for (auto [column, cell] : columns.asKeyValueRange())
                    cells << u"%1:%2:%3 %4 %5"_s.arg(
                        table.name, QString::number(row), QString::number(column),
                        QString(QLatin1Char(static_cast<char>(cell.kind))), cell.text);
            for (const auto& merged : table.merged)
                cells << u"%1:%2-%3"_s.arg(table.name).arg(merged.firstRow).arg(merged.lastRow);
        }
        return cells;
    }

  private:
    QTemporaryDir folder_;
    int files_ = 0;
};

// A workbook whose sheet has these rows, with absolute names of its parts, in the namespaces of the strict
// form.
Parts workbook(const QByteArray& rows, const QByteArray& more = {}) {
    const QByteArray relations = "http://purl.oclc.org/ooxml/officeDocument/relationships";
    const auto part = [&](const QByteArray& list) {
        return "<Relationships xmlns='http://schemas.openxmlformats.org/package/2006/relationships'>" + list +
               "</Relationships>";
    };
    const auto relation = [&](const char* id, const QByteArray& type, const QByteArray& target) {
        return QByteArray("<Relationship Id='") + id + "' Type='" + relations + type + "' Target='" + target +
               "'/>";
    };
    const QByteArray main =
        " xmlns='http://purl.oclc.org/ooxml/spreadsheetml/main' xmlns:r='" + relations + "'";
    return {{"[Content_Types].xml", "<Types/>"},
            {"_rels/.rels", part(relation("a", "/officeDocument", "/xl/workbook.xml"))},
            {"xl/workbook.xml", "<workbook" + main +
                                    "><sheets><sheet name='回答' sheetId='1' r:id='b'/></sheets>"
                                    "</workbook>"},
            {"xl/_rels/workbook.xml.rels", part(relation("b", "/worksheet", "/xl/worksheets/one.xml") +
                                                relation("c", "/sharedStrings", "../xl/texts.xml"))},
            {"xl/texts.xml",
             "<sst" + main + "><si><r><t>左</t></r><r><t>が 3</t></r><rPh><t>ヒダリ</t></rPh></si></sst>"},
            {"xl/worksheets/one.xml",
             "<worksheet" + main + "><sheetData>" + rows + "</sheetData>" + more + "</worksheet>"}};
}

Parts document(const QByteArray& rows) {
    return {{"mimetype", "application/vnd.oasis.opendocument.spreadsheet"},
            {"content.xml",
             "<o:document-content xmlns:o='urn:oasis:names:tc:opendocument:xmlns:office:1.0' "
             "xmlns:t='urn:oasis:names:tc:opendocument:xmlns:table:1.0' "
             "xmlns:x='urn:oasis:names:tc:opendocument:xmlns:text:1.0' "
             "xmlns:c='urn:org:documentfoundation:names:experimental:calc:xmlns:calcext:1.0'>"
             "<t:table t:name='回答'>" +
                 rows + "</t:table></o:document-content>"}};
}

} // namespace

TEST_F(TableFileTest, WorkbooksGiveEveryCellAndSayWhatItIs) {
    const auto file = zipped(workbook(
        "<row r='2'><c r='B2' t='s'><v>0</v></c><c r='C2' t='s'><v>7</v></c>"
        "<c r='D2' t='inlineStr'><is><t>右が_x000d_ _x005F_x000A_ "
        "_x12_</t><rPh><t>ミギ</t></rPh></is></c></row>"
        "<row><c t='str'><v>同じ</v></c><c><v>12</v></c><c t='b'><v>1</v></c><c t='e'><v>#N/A</v></c>"
        "<c t='str'><f>A1</f><v>a\tb\\n</v></c><c t='new'/><c s='1'/></row>",
        "<mergeCells><mergeCell ref='A4:B6'/></mergeCells>"));
    EXPECT_EQ(
        cells(read(saved(file))),
        (QStringList{u"回答:2:1 t 左が 3"_s, u"回答:2:2 e 7"_s, u"回答:2:3 t 右が\r _x000A_ _x12_"_s,
                     u"回答:3:0 t 同じ"_s, u"回答:3:1 n 12"_s, u"回答:3:2 b TRUE"_s, u"回答:3:3 e #N/A"_s,
                     u"回答:3:4 f a\tb\\n"_s, u"回答:3:5 e new"_s, u"回答:4-6"_s}));
}

TEST_F(TableFileTest, OpenDocumentsGiveEveryCellAndSayWhatItIs) {
    const auto file = zipped(document(
        "<t:table-row t:number-rows-repeated='1048000'><t:table-cell "
        "t:number-columns-repeated='16384'/></t:table-row>"
        "<t:table-row t:number-rows-repeated='2'><t:table-cell t:number-columns-repeated='2' "
        "o:value-type='string'>"
        "<o:annotation><x:p>否</x:p></o:annotation><x:p>左<x:s/>が<x:s "
        "x:c='2'/>3</x:p><x:p>下</x:p></t:table-cell>"
        "<t:table-cell o:value-type='float' o:value='12'><x:p>十二</x:p></t:table-cell></t:table-row>"
        "<t:table-row><t:table-cell o:value-type='string' c:value-type='error' "
        "><x:p>#N/A</x:p></t:table-cell>"
        "<t:table-cell t:formula='of:=1' o:value-type='boolean' o:boolean-value='true'/>"
        "<t:table-cell o:value-type='date' o:date-value='2026-01-03' "
        "t:number-rows-spanned='3'/></t:table-row>"));
    EXPECT_EQ(cells(read(saved(file))),
              (QStringList{u"回答:1048001:0 t 左 が  3\n下"_s, u"回答:1048001:1 t 左 が  3\n下"_s,
                           u"回答:1048001:2 n 12"_s, u"回答:1048002:0 t 左 が  3\n下"_s,
                           u"回答:1048002:1 t 左 が  3\n下"_s, u"回答:1048002:2 n 12"_s,
                           u"回答:1048003:0 e #N/A"_s, u"回答:1048003:1 f TRUE"_s,
                           u"回答:1048003:2 n 2026-01-03"_s, u"回答:1048003-1048005"_s}));
}

TEST_F(TableFileTest, TextsComeInWhateverTheirLettersSeparatorsAndLineEnds) {
    const QStringList first{u"水道"_s, u"A, \"B\"; C"_s, u"二\n行"_s};
    const QString text =
        csvRow(first) + csvRow({u"ｶﾅ"_s, {}, u"左が 3"_s}) + u"\r\n"_s + csvRow({u"終"_s, u"り"_s});
    const QStringList expected{u":1:0 t 水道"_s, u":1:1 t A, \"B\"; C"_s, u":1:2 t 二\n行"_s,
                               u":2:0 t ｶﾅ"_s,   u":2:2 t 左が 3"_s,      u":4:0 t 終"_s,
                               u":4:1 t り"_s};
    const auto marked = [&](QStringConverter::Encoding encoding) {
        return QByteArray(QStringEncoder(encoding, QStringConverter::Flag::WriteBom)(text));
    };
    QString tabs = u"水道\t\"A, \"\"B\"\"; C\"\t\"二\n行\"\nｶﾅ\t\t左が 3\n\n終\tり\n"_s;
    QString semicolons = tabs;
    for (const auto& bytes :
         {text.toUtf8(), marked(QStringConverter::Utf8), marked(QStringConverter::Utf16LE),
          marked(QStringConverter::Utf16BE), toCodePage(text), text.trimmed().toUtf8(), tabs.toUtf8(),
          semicolons.replace(u'\t', u';').toUtf8(),
          QString(text).remove(u'\n').replace(u"二行"_s, u"二\r行"_s).toUtf8()})
        EXPECT_EQ(cells(read(saved(bytes))), expected) << bytes.constData();
}

TEST_F(TableFileTest, WhatCannotBeReadIsToldAndHarmsNoOtherFile) {
    const auto unknown = u"この形式では読めません。.xlsx で保存し直してください。"_s;
    const auto broken = u"壊れているため、読み込めません。"_s;
    const auto large = u"大きすぎるため、読み込めません。正しいファイルか確かめてください。"_s;
    const auto locked =
        u"パスワードで保護されています。パスワードのない .xlsx の形式で保存し直してください。"_s;
    const auto macros = u"マクロが入っています。マクロのない .xlsx の形式で保存し直してください。"_s;
    const auto good = zipped(workbook("<row><c><v>1</v></c></row>"));
    auto binary = workbook({});
    binary[1].second.replace("workbook.xml", "workbook.bin");
    auto words = workbook({});
    words[2].second.replace("workbook", "document");
    mkfifo(path(u"fifo"_s).toUtf8().constData(), 0600);
    auto damaged = good;
    damaged[damaged.indexOf("one.xml") + 20] ^= 0x55;
    const QList<std::pair<QString, QString>> files{
        {path(u"none"_s), u"ファイルが見つかりません。"_s},
        {path(u"fifo"_s), u"普通のファイルではないため、読み込めません。"_s},
        {path({}), u"普通のファイルではないため、読み込めません。"_s},
        {saved({}), u"空のファイルです。"_s},
        {saved(zipped(binary)), unknown},
        {saved(zipped(words)), unknown},
        {saved(zipped({{"mimetype", "application/vnd.oasis.opendocument.text"}, {"content.xml", "<a/>"}})),
         unknown},
        {saved("<!DOCTYPE html><table/>"), unknown},
        {saved(QByteArray("\x1f\x8b\x08\0\0", 5)), unknown},
        {saved(zipped(document({}) + Parts{{"META-INF/manifest.xml", "<m><encryption-data/></m>"}})), locked},
        {saved(zipped(document({}) + Parts{{"Basic/Standard/Module1.xml", {}}})), macros},
        {saved(good.left(good.size() / 2)), broken},
        {saved(damaged), broken},
        {saved(zipped(workbook("<row><c><v>1</v></row>"))), broken},
        {saved(zipped(workbook("<row><c r='1'><v>1</v></c></row>"))), broken},
        {saved(zipped({{"mimetype", document({})[0].second},
                       {"content.xml", "<!DOCTYPE a [<!ENTITY b 'c'>]>" + document({})[1].second}})),
         broken},
        {saved(zipped(workbook(QByteArray("<row><c><v>1</v></c></row>").repeated(300'001)))), large},
        {saved(
             zipped(document("<t:table-row t:number-rows-repeated='999999'><t:table-cell "
                             "t:number-columns-repeated='9999'><x:p>a</x:p></t:table-cell></t:table-row>"))),
         large},
        {saved(zipped(workbook(QByteArray(65 << 20, ' ')))), large},
        {saved(zipped(workbook(QByteArray("<a>").repeated(200'000) + QByteArray("</a>").repeated(200'000)))),
         {}},
        {saved(QByteArray(5 << 20, 'x')), large},
        {saved(good), {}}};
    QStringList paths;
    for (const auto& [path, fault] : files) paths << path;
    qsizetype next = 0;
    readTableFiles(paths, [&](const TableFile& file) {
        EXPECT_EQ(file.fault, files.at(next).second) << next;
        EXPECT_EQ(file.path, paths.at(next++));
    });
    EXPECT_EQ(next, files.size());
}
