// The figures of a set of values, against values worked out by hand.
#include "judgement/Statistics.h"

#include <gtest/gtest.h>

#include <cmath>

#include "judgement/Ranks.h"
#include "judgement/Variation.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

Statistics of(const std::vector<double>& values) {
    Statistics statistics;
    for (const double value : values) statistics.add(value);
    return statistics;
}

std::vector<int> classes(const std::vector<double>& values) {
    const auto statistics = of(values);
    const auto counts = classCounts(values, statistics.minimum(), statistics.maximum());
    return {counts.begin(), counts.end()};
}

} // namespace

TEST(StatisticsTest, MeansAndSpread) {
    const auto group = of({0.5, 0.3, 0.2});
    EXPECT_NEAR(group.mean(), 1.0 / 3, 1e-15);
    EXPECT_EQ(formatNumber(group.geometricMean(), u"0.0000"_s), u"0.3107"_s);
    EXPECT_NEAR(group.deviation(1e-8), 0.124721913, 1e-9);
    EXPECT_EQ(of({0.2, 0.8}).geometricMean(), 0.4);
    EXPECT_EQ(of({0.1, 0.1, 0.1}).deviation(1e-8), 0); // what is left is the rounding error
}

TEST(StatisticsTest, TheGeometricMeanKeepsItsDigits) {
    for (const double value : {0.12345, 0.03125, 1.0 / 9, 1.0}) EXPECT_EQ(of({value}).geometricMean(), value);
    EXPECT_NEAR(of(std::vector(101, 1e-4)).geometricMean(), 1e-4, 1e-18); // the product is 1e-404
    for (const double value : {0.0, -0.5}) EXPECT_THROW(of({0.5, value}).geometricMean(), RuntimeError);
}

TEST(StatisticsTest, AGradeBeginsAtItsBound) {
    QString grades;
    for (const double variation : {0.0, std::nextafter(0.1, 0), 0.1, 0.2, 0.3, 0.4, 1e6})
        grades += gradeLetter(variation);
    EXPECT_EQ(grades, u"AABCDEE"_s);
}

TEST(StatisticsTest, ValuesFallIntoTheNearestOfSevenClasses) {
    // a class is 1 wide; halves go to the even one, and 6.5 to 7 stay in the last
    EXPECT_EQ(classes({0, 0.5, 1.5, 2.5, 3.5, 4.5, 5.5, 6.5, 7}), (std::vector{2, 0, 2, 0, 2, 0, 3}));
    EXPECT_EQ(classes({0.3, 0.3, 0.3}), (std::vector{0, 0, 0, 3, 0, 0, 0}));
    EXPECT_EQ(classes({0.3, 0.3 + 6e-8}), (std::vector{0, 0, 0, 2, 0, 0, 0}));
    EXPECT_EQ(classes({0.3, 0.3 + 8e-8}), (std::vector{1, 0, 0, 0, 0, 0, 1}));
}

TEST(RanksTest, EqualValuesShareARankAndTheNextIsCountedOn) {
    // equal to the last but a few digits is equal; what has no value has no rank
    EXPECT_EQ(ranks({0.5, 0.7, 0.5 + 1e-12, 0, 0.2}), (std::vector{2, 1, 2, 0, 4}));
    EXPECT_EQ(ranks({0.12344, 0.12336, 0.12334}), (std::vector{1, 2, 3}));
    EXPECT_EQ(shownRanks({0.12344, 0.12336, 0.12334, 0.2, 0.12345, 0.00004, 0}),
              (std::vector{3, 3, 5, 1, 2, 6, 6}));
}
