#include "rounds/Comparisons.h"

#include <algorithm>

#include "database/Recordset.h"
#include "judgement/PairOrder.h"
#include "text/Overloaded.h"

using namespace Qt::StringLiterals;

namespace {

double numberIn(const Value& value) {
    return value.visit(Overloaded{[](qint64 number) { return static_cast<double>(number); },
                                  [](double number) { return number; }, [](const auto&) { return 0.0; }});
}

// Of rows with evaluator, goal factor, source, target and value. They come in the order of the maps: whose
// they are is looked up where evaluator or goal change, not a hundred thousand times.
ComparisonsByEvaluator collected(RowReader rows) {
    ComparisonsByEvaluator evaluators;
    std::pair<qint32, qint32> last;
    GoalComparisons* goal = nullptr;
    while (rows.next()) {
        if (const std::pair of{rows.toLong(0), rows.toLong(1)}; goal == nullptr || of != last) {
            goal = &evaluators[of.first][of.second];
            last = of;
        }
        goal->pairs.emplace_back(rows.toLong(2), rows.toLong(3));
        goal->values.push_back(numberIn(rows.field(4)));
    }
    return evaluators;
}

// In one order and direction, whichever they were compared in.
void normalise(std::vector<std::pair<qint32, qint32>>& pairs) {
    for (auto& [source, target] : pairs)
        if (target < source) std::swap(source, target);
    std::ranges::sort(pairs);
}

} // namespace

std::vector<qint32> GoalComparisons::items() const {
    const auto count = itemCount(static_cast<int>(pairs.size()));
    std::vector<qint32> items;
    if (!count || pairs.empty()) return items;
    items.push_back(pairs.front().first);
    for (int item = 1; item < *count; ++item)
        items.push_back(pairs[static_cast<std::size_t>(item - 1)].second);
    return items;
}

bool GoalComparisons::isOf(const std::vector<qint32>& factors) const {
    std::vector<std::pair<qint32, qint32>> expected;
    for (const auto& [i, j] : pairsOf(static_cast<int>(factors.size())))
        expected.emplace_back(factors[static_cast<std::size_t>(i)], factors[static_cast<std::size_t>(j)]);
    if (pairs.size() != expected.size()) return false;
    auto compared = pairs;
    if (compared == expected) return true; // as it is entered
    normalise(compared);
    normalise(expected);
    return compared == expected;
}

ComparisonsByEvaluator readComparisons(const ProblemRound& of) {
    return collected(
        RowReader{of.connection,
                  u"select 評価者番号,目的要因番号,比較元要因番号,比較対象要因番号,比較値 from 一対比較"
                  " where 課題番号=? and 比較回数=? order by 評価者番号,目的要因番号,比較表示順",
                  of.problemNo, of.round});
}

ComparisonsByEvaluator readComparisons(const EvaluatorRound& of) {
    return collected(
        RowReader{of.connection,
                  u"select 評価者番号,目的要因番号,比較元要因番号,比較対象要因番号,比較値 from 一対比較"
                  " where 課題番号=? and 比較回数=? and 評価者番号=? order by 目的要因番号,比較表示順",
                  of.problemNo, of.round, of.evaluatorNo});
}
