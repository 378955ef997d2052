#include "analysis/Variation.h"

#include <cmath>

#include "analysis/Statistics.h"
#include "database/Recordset.h"
#include "evaluation/ChildLimit.h"
#include "judgement/Limits.h"
#include "rounds/RoundSelection.h"
#include "text/Numbers.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double negligibleVariance = 1e-7;
constexpr double negligibleWidth = 1e-8;
constexpr int middleClass = 3;
constexpr int lastClass = valueClasses - 1;

// By the number of children: weights of a large family differ less.
constexpr std::array divisors{1.0,   1.0,   0.394, 0.364, 0.333, 0.305, 0.28,  0.261, 0.246, 0.239, 0.226,
                              0.216, 0.209, 0.204, 0.196, 0.19,  0.187, 0.183, 0.176, 0.173, 0.171};
static_assert(divisors.size() == mostChildren + 1);

constexpr std::array bounds{0.1, 0.2, 0.3, 0.4, 999999.0};
constexpr std::array<QChar, 6> labels{u'A', u'B', u'C', u'D', u'E', u'F'}; // no variation is as great as F

// The standard deviation of the child whose rows come next.
double nextDeviation(Recordset& rows) {
    const auto parentNo = rows[u"親要因番号"_s].toLong();
    const auto childNo = rows[u"子要因番号"_s].toLong();
    Statistics weights;
    for (; !rows.eof() && rows[u"親要因番号"_s].toLong() == parentNo &&
           rows[u"子要因番号"_s].toLong() == childNo;
         rows.moveNext())
        weights.add(rows[u"評価値"_s].toDouble());
    return weights.deviation(negligibleVariance);
}

struct Variation {
    double total = 0;
    int children = 0;
};

void addNextFamily(Variation& round, Connection& connection, Recordset& rows) {
    const auto parentNo = rows[u"親要因番号"_s].toLong();
    std::vector<double> deviations;
    while (!rows.eof() && rows[u"親要因番号"_s].toLong() == parentNo)
        deviations.push_back(nextDeviation(rows));
    const auto children = deviations.size();
    if (children >= divisors.size()) throw tooManyChildren(connection, parentNo, mostChildren);
    for (const double deviation : deviations) round.total += deviation / divisors[children];
    round.children += static_cast<int>(children);
}

} // namespace

QString gradeLetter(double variation) {
    std::size_t position = 0;
    while (position + 1 < bounds.size() && !(bounds[position] > variation)) ++position;
    return {labels[position]};
}

QString VariationGrade(const ProblemRound& of) {
    Recordset rows(
        of.connection,
        u"select 親要因番号,子要因番号,評価値 from 評価結果 where 課題番号=? and 比較回数=? and レベル<>2"
        " order by 親要因番号,子要因番号",
        of.problemNo, of.round);
    Variation variation;
    while (!rows.eof()) addNextFamily(variation, of.connection, rows);
    return gradeLetter(variation.children == 0 ? 0 : variation.total / variation.children);
}

std::array<int, valueClasses> classCounts(const std::vector<double>& values, double minimum, double maximum) {
    double width = (maximum - minimum) / valueClasses;
    if (std::abs(width) < negligibleWidth) width = 0;
    std::array<int, valueClasses> counts{};
    for (const double value : values) {
        const double position = width == 0 ? middleClass : (value - minimum) / width;
        const int number = position > lastClass ? lastClass : position < 0 ? 0 : toLong(position);
        ++counts[static_cast<std::size_t>(number)];
    }
    return counts;
}
