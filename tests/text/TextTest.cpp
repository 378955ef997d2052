// Numbers, dates, widths and statements as text.
#include <gtest/gtest.h>

#include <cmath>

#include "support/Helpers.h"
#include "support/ScreenTest.h"
#include "text/Dates.h"
#include "text/Numbers.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

TEST(Numbers, TypedNumbersAreReadAsTheyLook) {
    for (const auto& [text, number] : {std::pair{u" -3.5 "_s, -3.5},
                                       {u"１２．５"_s, 12.5},
                                       {u"－７"_s, -7},
                                       {u"−7"_s, -7},
                                       {u"1e3"_s, 1000},
                                       {u".5"_s, 0.5}}) {
        EXPECT_TRUE(isNumeric(text)) << text.toStdString();
        EXPECT_EQ(leadingNumber(text), number) << text.toStdString();
    }
    for (const auto& [text, leading] : {std::pair{u"12:名前"_s, 12},
                                        {u""_s, 0},
                                        {u"1,000"_s, 1},
                                        {u"一"_s, 0},
                                        {u"1 2"_s, 1},
                                        {u"+"_s, 0},
                                        {u"0x1F"_s, 0},
                                        {u"inf"_s, 0}}) {
        EXPECT_FALSE(isNumeric(text)) << text.toStdString();
        EXPECT_EQ(leadingNumber(text), leading) << text.toStdString();
    }
}

TEST(Numbers, ConversionsRoundHalvesToEvenAndOverflow) {
    EXPECT_EQ(toInteger(2.5), 2);
    EXPECT_EQ(toInteger(3.5), 4);
    EXPECT_EQ(toLong(-0.5), 0);
    EXPECT_EQ(raisedBy([] { toInteger(32767.5); }).number, 6);
    EXPECT_EQ(raisedBy([] { toLong(2147483648.0); }).number, 6);
    EXPECT_EQ(raisedBy([] { toLong(std::nan("")); }).number, 6);
}

TEST(Numbers, PatternsRoundTheShortestTextAwayFromZero) {
    // 1.00005 as a double lies below the half, its text on it
    EXPECT_EQ(formatNumber(1.00005, u"0.0000"_s), u"1.0001"_s);
    EXPECT_EQ(formatNumber(-0.00005, u"0.0000"_s), u"-0.0001"_s);
    EXPECT_EQ(formatNumber(0.99999, u"0.####"_s), u"1"_s);
    EXPECT_EQ(formatNumber(0.25, u"#0.####"_s), u"0.25"_s);
    EXPECT_EQ(formatNumber(1234.5, u"#0.0000"_s), u"1234.5000"_s);
    EXPECT_EQ(formatNumber(0, u"##0"_s), u"0"_s);
    EXPECT_EQ(formatNumber(12, u"0000"_s), u"0012"_s);
}

TEST(Dates, OnlyDaysOfTheCalendarAreDates) {
    for (const auto& text :
         {u"2026-04-01"_s, u"２０２６／４／１"_s, u"2026年4月1日"_s, u" 2026.4.1 "_s, u"26/4/1"_s,
          u"令和8年4月1日"_s, u"2026−4‐1"_s, u"R8.4.1"_s, u"ｒ０８／０４／０１"_s, u"㋿8年4月1日"_s})
        EXPECT_EQ(parseDate(text), QDate(2026, 4, 1)) << text.toStdString();
    EXPECT_EQ(parseDate(u"2028/2/29"_s), QDate(2028, 2, 29));
    EXPECT_EQ(parseDate(u"令和元年5月1日"_s), QDate(2019, 5, 1));
    EXPECT_EQ(parseDate(u"H31.4.30"_s), QDate(2019, 4, 30));
    for (const auto& text : {u"2026/2/29"_s, u"令和元年4月30日"_s, u"平成31年5月1日"_s, u"R0/4/1"_s,
                             u"8/4/1"_s, u""_s, u"明日"_s, u"2026/13/1"_s, u"20260401"_s})
        EXPECT_FALSE(parseDate(text)) << text.toStdString();
}

TEST(TextConversion, WidthsAndCodePage) {
    EXPECT_EQ(toFullWidth(u"ｶﾞA1 "_s), u"ガＡ１　"_s);
    EXPECT_EQ(toHalfWidth(u"ガＡ１　"_s), u"ｶﾞA1 "_s);
    EXPECT_EQ(leadingCharacters(u"𠮷野家"_s, 1), u"𠮷"_s);
    EXPECT_EQ(toCodePage(u"係数①"_s), QByteArray("\x8c\x57\x90\x94\x87\x40"));
    EXPECT_EQ(toCodePage(u"\u301C\u2212"_s),
              QByteArray("\x81\x60\x81\x7c")); // as the input method writes 〜 and −
    EXPECT_EQ(raisedBy([] { toCodePage(u"𠮷"_s); }).number, 5);
    EXPECT_EQ(fromFileBytes(toCodePage(u"前略～"_s)), u"前略～"_s);
    EXPECT_EQ(fromFileBytes(QByteArray("\xef\xbb\xbf") + u"前略"_s.toUtf8()), u"前略"_s);
}
