#include "rounds/StoredResults.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "database/Recordset.h"
#include "judgement/Limits.h"
#include "judgement/PowerMethod.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int totalLevel = 2; // of the rows that hold a leaf's overall weight

// The power method stops when no weight moves by more than 1e-6, and another processor may stop a product
// earlier or later. An answer that moves by one step of the scale moves a weight by more than a thousandth.
constexpr double weightTolerance = 1e-5;
// Of a product or a sum of stored numbers, relative: what rounding leaves.
constexpr double roundingTolerance = 1e-9;

using Reached = QHash<qint32, double>; // global weights by factor

bool isRounded(double stored, double expected) {
    return std::abs(stored - expected) <= roundingTolerance * std::abs(expected);
}

// The sum of what leads to each factor, 1 for the problem.
Reached reachedFactors(const StoredResults& stored, qint32 problemNo) {
    Reached reached{{problemNo, 1}};
    for (const auto& [edge, weights] : stored.edges) reached[edge.second] += weights.global;
    return reached;
}

// Whether global weights and totals are the stored local weights multiplied down the present structure.
bool isMultipliedDown(const StoredResults& stored, const Reached& reached,
                      const ChildrenByParent& structure) {
    std::map<qint32, double> leaves;
    for (const auto& [edge, weights] : stored.edges) {
        if (!isRounded(weights.global, weights.local * reached.value(edge.first))) return false;
        if (!structure.contains(edge.second)) leaves[edge.second] = reached[edge.second];
    }
    return std::ranges::equal(leaves, stored.totals, [](const auto& expected, const auto& total) {
        return expected.first == total.first && isRounded(total.second, expected.second);
    });
}

// False where the calculation ends: at an incomplete set of pairs, one of more factors than it takes, one
// without a number, and at weights that do not converge.
bool weigh(const GoalComparisons& goal, std::size_t items, ComparisonMatrix& matrix) {
    if (items == 0 || goal.values.size() > mostCalculatedPairs ||
        std::ranges::find(goal.values, 0.0) != goal.values.end())
        return false;
    const auto n = static_cast<qint16>(items);
    fillMatrix(matrix, goal.values, n);
    return power(matrix, n) == Convergence::Converged;
}

} // namespace

std::map<qint32, StoredResults> readStoredResults(const ProblemRound& of) {
    std::map<qint32, StoredResults> evaluators;
    for (Recordset rows(of.connection,
                        u"select 評価者番号,親要因番号,子要因番号,評価値,レベル,総合評価値 from 評価結果"
                        " where 課題番号=? and 比較回数=? order by 評価者番号,親要因番号,子要因番号",
                        of.problemNo, of.round);
         !rows.eof(); rows.moveNext()) {
        auto& stored = evaluators[rows[u"評価者番号"_s].toLong()];
        const qint32 childNo = rows[u"子要因番号"_s].toLong();
        const double global = rows[u"総合評価値"_s].toDouble();
        const bool isNew = rows[u"レベル"_s].toLong() == totalLevel
                               ? stored.totals.emplace(childNo, global).second
                               : stored.edges
                                     .emplace(std::pair{rows[u"親要因番号"_s].toLong(), childNo},
                                              StoredResults::Weights{rows[u"評価値"_s].toDouble(), global})
                                     .second;
        stored.isDamaged = stored.isDamaged || !isNew;
    }
    return evaluators;
}

std::set<qint32> reachableLeaves(qint32 problemNo, const ChildrenByParent& structure) {
    std::set<qint32> met;
    std::set<qint32> leaves;
    const std::function<void(qint32)> visit = [&](qint32 factorNo) {
        if (!met.insert(factorNo).second) return;
        const auto family = structure.find(factorNo);
        if (family == structure.end())
            leaves.insert(factorNo);
        else if (family->size() > 1)
            std::ranges::for_each(*family, visit);
    };
    visit(problemNo);
    leaves.erase(problemNo);
    return leaves;
}

bool belongTo(const StoredResults& stored, const EvaluatorComparisons& answers, qint32 problemNo,
              const ChildrenByParent& structure) {
    const auto reached = reachedFactors(stored, problemNo);
    if (stored.isDamaged || !isMultipliedDown(stored, reached, structure)) return false;
    ComparisonMatrix matrix;
    std::size_t found = 0;
    for (const auto& [goalNo, goal] : answers) {
        const auto items = goal.items();
        if (!weigh(goal, items.size(), matrix)) break;
        if (!reached.contains(goalNo)) continue;
        for (std::size_t item = 0; item < items.size(); ++item, ++found) {
            const auto edge = stored.edges.find({goalNo, items[item]});
            if (edge == stored.edges.end() ||
                !(std::abs(edge->second.local - matrix.weight[static_cast<int>(item)]) <= weightTolerance))
                return false;
        }
    }
    return found == stored.edges.size();
}
