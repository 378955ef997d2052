// What the answers under one goal factor say about each other. The expected figures come from an independent
// eigenvalue routine and a least squares fit of the logarithms without the pair.
#include "judgement/AnswerCheck.h"

#include <gtest/gtest.h>

#include <QStringList>

#include "judgement/ComparisonScale.h"
#include "support/Helpers.h"

using namespace Qt::StringLiterals;

namespace {

AnswerCheck checked(const QString& scales) {
    std::vector<double> pairs;
    for (const auto& text : scales.split(u' '))
        pairs.push_back(
            static_cast<double>(text.startsWith(u"1/"_s) ? 1.0F / text.mid(2).toFloat() : text.toFloat()));
    return checkAnswers(pairs);
}

QString text(const std::optional<OddPair>& odd) {
    if (!odd) return {};
    return u"%1-%2 %3 %4"_s.arg(odd->source)
        .arg(odd->target)
        .arg(scaleText(odd->given), scaleText(odd->suggested));
}

} // namespace

TEST(AnswerCheck, FindsConsistencyAndThePairMostAtOdds) {
    struct Case {
        QString scales;
        double index, ratio;
        QString odd;
    };
    for (const auto& [scales, index, ratio, odd] :
         {Case{u"2 4 2"_s, 0, 0, {}},
          {u"1/2 3 5"_s, 0.001847299, 0.002052554, u"1-2 5 6"_s},
          {u"1/5 5 1/5"_s, 1.599999976, 1.777777751, u"0-1 1/5 9"_s}, // three equally at odds: the first
          {u"3 1/5 1/3 2 7 1/4"_s, 1.013556094, 0.904960798, u"1-3 7 1/4"_s},
          {u"1/3 1/5 1/7 1/9 2 1/4 3 5 7 1/2"_s, 0.504025781, 0.406472404, u"1-3 1/4 3"_s},
          {u"2 4 1/8 2 4 2"_s, 0.911549200, 0.813883214, u"0-3 1/8 8"_s},
          {u"2 3 5 1/4 6 1/2 4 1/3 7 3 1/5 2 1/6 5 9"_s, 0.137514842, 0.104177911, u"3-5 5 1"_s},
          {u"5 1/3 2 1/7 9 4 1/2 3 6 1/8 1/4 2 5 1/6 7 3 1/9 8 1/5 1/3 2"_s, 1.274129166, 0.903637706,
           u"0-4 1/7 9"_s}}) {
        const auto check = checked(scales);
        ASSERT_TRUE(check.consistency) << scales.toStdString();
        EXPECT_NEAR(check.consistency->index, index, 1e-5) << scales.toStdString(); // power's tolerance
        EXPECT_NEAR(check.consistency->ratio, ratio, 1e-5) << scales.toStdString();
        EXPECT_EQ(text(check.oddPair).toStdString(), odd.toStdString()) << scales.toStdString();
    }
    EXPECT_FALSE(checked(u"9"_s).oddPair); // two items have no others
    EXPECT_EQ(raisedBy([] { checked(u"1 2"_s); }).number, 5);
}

TEST(ComparisonScale, WordsSayWhoIsPreferredAndHowMuch) {
    for (const auto& [position, sentence] : {std::pair{0, u"A は B に比べて 9 → A のほうがきわめて重要"_s},
                                             {5, u"A は B に比べて 4 → A のほうがやや〜かなり重要"_s},
                                             {8, u"A は B に比べて 1 → どちらも同じくらい重要"_s},
                                             {12, u"A は B に比べて 1/5 → B のほうがかなり重要"_s}})
        EXPECT_EQ(comparisonSentence(u"A"_s, u"B"_s, position), sentence);
    for (const auto& [value, nearest] :
         {std::pair{100.0, 0}, {8.49, 0}, {8.48, 1}, {1.42, 7}, {1.41, 8}, {0.3, 10}, {1e-9, 16}})
        EXPECT_EQ(nearestPosition(value), nearest) << value;
}

TEST(ComparisonScale, PositionsMirrorEachOther) {
    EXPECT_EQ(scaleText(0), u"9"_s);
    EXPECT_EQ(scaleText(8), u"1"_s);
    EXPECT_EQ(scaleText(9), u"1/2"_s);
    EXPECT_EQ(scaleText(16), u"1/9"_s);
    EXPECT_EQ(mirrorPosition(8), 8);
    EXPECT_EQ(mirrorPosition(0), 16);
    EXPECT_EQ(scaleValue(10), 1.0F / 3);
}
