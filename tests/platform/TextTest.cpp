// Numbers, dates, widths and statements as text.
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "platform/Dates.h"
#include "platform/Numbers.h"
#include "platform/RuntimeError.h"
#include "platform/SqlText.h"
#include "platform/TextConversion.h"
#include "platform/TextFile.h"
#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;

namespace {

int errorNumber(const std::function<void()>& body) {
    try {
        body();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace

TEST(Numbers, TypedNumbersAreReadAsTheyLook) {
    struct Case {
        QString text;
        bool numeric;
        double leading;
    };
    for (const auto& [text, numeric, leading] : {
             Case{u"12"_s, true, 12},
             Case{u" -3.5 "_s, true, -3.5},
             Case{u"１２．５"_s, true, 12.5},
             Case{u"－７"_s, true, -7},
             Case{u"−7"_s, true, -7},
             Case{u"1e3"_s, true, 1000},
             Case{u".5"_s, true, 0.5},
             Case{u"12:名前"_s, false, 12},
             Case{u""_s, false, 0},
             Case{u"1,000"_s, false, 1},
             Case{u"一"_s, false, 0},
             Case{u"1 2"_s, false, 1},
             Case{u"+"_s, false, 0},
             Case{u"0x1F"_s, false, 0},
             Case{u"inf"_s, false, 0},
         }) {
        EXPECT_EQ(isNumeric(text), numeric) << text.toStdString();
        EXPECT_EQ(leadingNumber(text), leading) << text.toStdString();
    }
}

TEST(Numbers, ConversionsRoundHalvesToEvenAndOverflow) {
    EXPECT_EQ(toInteger(2.5), 2);
    EXPECT_EQ(toInteger(3.5), 4);
    EXPECT_EQ(toLong(-0.5), 0);
    EXPECT_EQ(toInteger(32767.4), 32767);
    EXPECT_EQ(errorNumber([] { toInteger(32767.5); }), 6);
    EXPECT_EQ(errorNumber([] { toLong(2147483648.0); }), 6);
    EXPECT_EQ(errorNumber([] { toLong(std::nan("")); }), 6);
}

TEST(Numbers, PatternsRoundTheShortestTextAwayFromZero) {
    struct Case {
        double number;
        QString pattern;
        QString shown;
    };
    for (const auto& [number, pattern, shown] : {
             Case{1.00005, u"0.0000"_s, u"1.0001"_s}, // the double lies below the half, its text on it
             Case{0.00005, u"0.0000"_s, u"0.0001"_s},
             Case{-0.00005, u"0.0000"_s, u"-0.0001"_s},
             Case{0.125, u"0.####"_s, u"0.125"_s},
             Case{1, u"0.####"_s, u"1"_s},
             Case{0.99999, u"0.####"_s, u"1"_s},
             Case{0.25, u"#0.####"_s, u"0.25"_s},
             Case{1234.5, u"#0.0000"_s, u"1234.5000"_s},
             Case{0, u"##0"_s, u"0"_s},
             Case{12, u"0000"_s, u"0012"_s},
             Case{12345, u"0000"_s, u"12345"_s},
         })
        EXPECT_EQ(formatNumber(number, pattern), shown);
    EXPECT_EQ(decimalText(0.1), u"0.1"_s);
    EXPECT_EQ(decimalText(100000), u"100000"_s);
    EXPECT_EQ(decimalText(-1.5e-7), u"-0.00000015"_s);
    EXPECT_EQ(decimalText(1e300), u"1e+300"_s);
}

TEST(Dates, OnlyDaysOfTheCalendarAreDates) {
    for (const auto& text :
         {u"2026/4/1"_s, u"2026-04-01"_s, u"２０２６／４／１"_s, u"2026年4月1日"_s, u" 2026.4.1 "_s})
        EXPECT_EQ(parseDate(text), QDate(2026, 4, 1)) << text.toStdString();
    EXPECT_EQ(parseDate(u"2028/2/29"_s), QDate(2028, 2, 29));
    for (const auto& text : {u"2026/2/30"_s, u"2026/2/29"_s, u""_s, u"明日"_s, u"2026/13/1"_s, u"20260401"_s})
        EXPECT_FALSE(parseDate(text)) << text.toStdString();
    EXPECT_EQ(formatDate(QDate(2026, 4, 1)), u"2026/04/01"_s);
}

TEST(SqlText, NumbersAreSeparatedFromWordsOutsideQuotesOnly) {
    struct Case {
        QString sql;
        QString separated;
    };
    for (const auto& [sql, separated] : {
             Case{u"= 12AND T1.課題番号 = 3"_s, u"= 12 AND T1.課題番号 = 3"_s},
             Case{u"= '12AND''3OR' AND x = 1OR 2"_s, u"= '12AND''3OR' AND x = 1 OR 2"_s},
             Case{u"values(1e-07,2.5E+10,3)"_s, u"values(1e-07,2.5E+10,3)"_s},
             Case{u"MAX_1要因"_s, u"MAX_1要因"_s},
             Case{u"5要因"_s, u"5 要因"_s},
             Case{u"1e"_s, u"1 e"_s},
             Case{u"'unclosed 1AND"_s, u"'unclosed 1AND"_s},
         })
        EXPECT_EQ(separateNumbers(sql), separated);
    EXPECT_EQ(quoted(u"O'Neill''"_s), u"'O''Neill'''''"_s);
}

TEST(TextConversion, WidthsAndCodePage) {
    EXPECT_EQ(toFullWidth(u"ｶﾞA1 "_s), u"ガＡ１　"_s);
    EXPECT_EQ(toHalfWidth(u"ガＡ１　"_s), u"ｶﾞA1 "_s);
    EXPECT_EQ(characterCount(u"𠮷野家"_s), 3);
    EXPECT_EQ(leadingCharacters(u"𠮷野家"_s, 1), u"𠮷"_s);
    EXPECT_EQ(toCodePage(u"係数①"_s), QByteArray("\x8c\x57\x90\x94\x87\x40"));
    EXPECT_EQ(errorNumber([] { toCodePage(u"𠮷"_s); }), 5);
    EXPECT_EQ(fromFileBytes(toCodePage(u"前略～"_s)), u"前略～"_s);
    EXPECT_EQ(fromFileBytes(QByteArray("\xef\xbb\xbf") + u"前略"_s.toUtf8()), u"前略"_s);
}

TEST(TextFile, LinesAreWrittenWholeOrNotAtAll) {
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"a.csv"_s);
    writeCodePageLines(directory.path() + u"\\a.csv"_s, {u"\"係数\""_s, u"1.0000"_s});
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("\"\x8c\x57\x90\x94\"\r\n1.0000\r\n"));
    EXPECT_EQ(errorNumber([&] { writeCodePageLines(path, {u"𠮷"_s}); }), 5);
    EXPECT_EQ(readLines(path), (QStringList{u"\"係数\""_s, u"1.0000"_s}));
    EXPECT_EQ(errorNumber([&] { readLines(directory.filePath(u"b.txt"_s)); }), 53);
    EXPECT_EQ(errorNumber([&] { readLines(directory.filePath(u"none/b.txt"_s)); }), 76);
    EXPECT_EQ(errorNumber([&] { writeCodePageLines(directory.filePath(u"none/b.csv"_s), {}); }), 76);
}
