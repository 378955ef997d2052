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

// False where the calculation ends: at an incomplete set of pairs, one of more factors than it takes, and one
// without a number.
bool isTaken(const GoalComparisons& goal, const std::vector<qint32>& items) {
    return !items.empty() && goal.values.size() <= mostCalculatedPairs &&
           std::ranges::find(goal.values, 0.0) == goal.values.end();
}

// The stored local weights of the factors below a goal; fewer where one has none.
std::vector<double> localWeights(const StoredResults& stored, qint32 goalNo,
                                 const std::vector<qint32>& items) {
    std::vector<double> weights;
    for (const qint32 item : items)
        if (const auto edge = stored.edges.find({goalNo, item}); edge != stored.edges.end())
            weights.push_back(edge->second.local);
    return weights;
}

bool areWeights(const std::vector<double>& stored, const ComparisonMatrix& matrix, int n) {
    if (std::ssize(stored) != n) return false;
    for (int item = 0; item < n; ++item)
        if (!(std::abs(stored[static_cast<std::size_t>(item)] - matrix.weight[item]) <= weightTolerance))
            return false;
    return true;
}

enum class Belonging { Yes, No, NotWeighed };

// Of one goal's comparisons. Weights that the power method might have left are theirs without an iteration.
Belonging belonging(const std::vector<double>& stored, const GoalComparisons& goal, qint16 n) {
    ComparisonMatrix matrix;
    fillMatrix(matrix, goal.values, n);
    if (std::ssize(stored) == n && isPrincipal(matrix, stored)) return Belonging::Yes;
    if (power(matrix, n) != Convergence::Converged) return Belonging::NotWeighed;
    return areWeights(stored, matrix, n) ? Belonging::Yes : Belonging::No;
}

} // namespace

std::map<qint32, StoredResults> readStoredResults(const ProblemRound& of) {
    std::map<qint32, StoredResults> evaluators;
    for (RowReader rows(of.connection,
                        u"select 評価者番号,親要因番号,子要因番号,評価値,レベル,総合評価値 from 評価結果"
                        " where 課題番号=? and 比較回数=? order by 評価者番号,親要因番号,子要因番号",
                        of.problemNo, of.round);
         rows.next();) {
        auto& stored = evaluators[rows.toLong(0)];
        const qint32 childNo = rows.toLong(2);
        const double global = rows.toDouble(5);
        const auto before = stored.totals.size() + stored.edges.size();
        if (rows.toLong(4) == totalLevel)
            stored.totals.try_emplace(stored.totals.end(), childNo, global); // rows come in the maps' order
        else
            stored.edges.try_emplace(stored.edges.end(), std::pair{rows.toLong(1), childNo},
                                     StoredResults::Weights{rows.toDouble(3), global});
        stored.isDamaged = stored.isDamaged || stored.totals.size() + stored.edges.size() == before;
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
    std::size_t found = 0;
    for (const auto& [goalNo, goal] : answers) {
        const auto items = goal.items();
        if (!isTaken(goal, items)) break;
        const auto theirs =
            belonging(localWeights(stored, goalNo, items), goal, static_cast<qint16>(items.size()));
        if (theirs == Belonging::NotWeighed) break; // the calculation ends here
        if (!reached.contains(goalNo)) continue;
        if (theirs == Belonging::No) return false;
        found += items.size();
    }
    return found == stored.edges.size();
}
