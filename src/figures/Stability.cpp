#include "figures/Stability.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <random>

#include "judgement/ComparisonScale.h"
#include "judgement/PowerMethod.h"
#include "judgement/Ranks.h"
#include "judgement/Statistics.h"
#include "rounds/Comparisons.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::uint64_t seed = 1;
constexpr std::uint64_t highestBit = std::uint64_t{1} << 63;

// Of the evaluators whose results these are; empty for one who has no comparisons any more.
ComparisonsByEvaluator readComparisons(Connection& connection, const RoundResults& results) {
    auto all = readComparisons(ProblemRound{connection, results.problemNo, results.round});
    ComparisonsByEvaluator evaluators;
    for (const auto& evaluator : results.evaluators)
        evaluators[evaluator.number] = std::move(all[evaluator.number]);
    return evaluators;
}

ChildrenByParent comparedChildren(const ComparisonsByEvaluator& evaluators) {
    ChildrenByParent children;
    for (const auto& [number, goals] : evaluators)
        for (const auto& [goalNo, rows] : goals)
            for (const qint32 item : rows.items())
                if (auto& family = children[goalNo]; std::ranges::find(family, item) == family.end())
                    family.push_back(item);
    return children;
}

RoundComparisons::Goal goalOf(qint32 goalNo, const GoalComparisons& rows,
                              const std::map<std::pair<qint32, qint32>, int>& edges) {
    const auto items = rows.items();
    if (items.empty())
        throw RuntimeError(
            ErrorCode::InvalidCall,
            u"目的要因 %1 の一対比較が不完全です。比較値を登録し直してください。"_s.arg(goalNo));
    RoundComparisons::Goal goal{static_cast<int>(items.size()), rows.values, {}};
    for (const qint32 item : items) {
        const auto edge = edges.find({goalNo, item});
        goal.edges.push_back(edge == edges.end() ? -1 : edge->second);
    }
    return goal;
}

// The two values to which each comparison can move.
struct Steps {
    double towardsTarget;
    double towardsSource;
};

Steps stepsFrom(double value) {
    const int nearest = nearestPosition(value);
    return {scaleValue(std::min(nearest + 1, scalePositions - 1)), scaleValue(std::max(nearest - 1, 0))};
}

// Calculates the coefficients of all leaves, for comparisons as they are and as they may be.
class Calculation {
  public:
    explicit Calculation(const RoundComparisons& comparisons) : comparisons_(comparisons) {}

    // `valuesOf` gives the values of each goal factor, in the order of the evaluators and their goals.
    template <typename ValuesOf>
    std::vector<double> coefficients(ValuesOf valuesOf) {
        std::vector<Statistics> groups(comparisons_.graph.leaves().size());
        for (const auto& evaluator : comparisons_.evaluators) {
            weigh(evaluator, valuesOf);
            comparisons_.graph.multiplyDown(local_, global_);
            for (std::size_t leaf = 0; leaf < groups.size(); ++leaf)
                if (const double weight = globalOf(leaf); weight != 0) groups[leaf].add(weight);
        }
        std::vector<double> found;
        found.reserve(groups.size());
        for (const auto& group : groups) found.push_back(group.count() == 0 ? 0 : group.geometricMean());
        return found;
    }

  private:
    // Weights that do not converge end the calculation of the evaluator: the goal factors behind have none.
    template <typename ValuesOf>
    void weigh(const RoundComparisons::Evaluator& evaluator, ValuesOf valuesOf) {
        local_.assign(comparisons_.graph.edges().size(), 0);
        bool converges = true;
        for (const auto& goal : evaluator) {
            const std::vector<double>& values = valuesOf(goal);
            if (!converges) continue;
            fillMatrix(matrix_, values, goal.items);
            converges = power(matrix_, static_cast<qint16>(goal.items)) == Convergence::Converged;
            for (int item = 0; item < goal.items && converges; ++item)
                if (const int edge = goal.edges[static_cast<std::size_t>(item)]; edge >= 0)
                    local_[static_cast<std::size_t>(edge)] = matrix_.weight[item];
        }
    }
    double globalOf(std::size_t leaf) const {
        return global_[static_cast<std::size_t>(comparisons_.graph.leaves()[leaf])];
    }

    const RoundComparisons& comparisons_;
    ComparisonMatrix matrix_;
    std::vector<double> local_;
    std::vector<double> global_;
};

// The comparisons of one run after the other.
class MovedComparisons {
  public:
    explicit MovedComparisons(const RoundComparisons& comparisons) {
        for (const auto& evaluator : comparisons.evaluators)
            for (const auto& goal : evaluator)
                for (const double value : goal.values) steps_.push_back(stepsFrom(value));
    }

    void beginRun() { next_ = 0; }
    const std::vector<double>& valuesOf(const RoundComparisons::Goal& goal) {
        values_.resize(goal.values.size());
        for (auto& value : values_) {
            const Steps& steps = steps_[next_++];
            value = (random_() & highestBit) != 0 ? steps.towardsSource : steps.towardsTarget;
        }
        return values_;
    }

  private:
    std::vector<Steps> steps_; // of all comparisons, in the order in which they are drawn
    std::size_t next_ = 0;
    std::mt19937_64 random_{seed};
    std::vector<double> values_;
};

std::vector<LeafStability> undisturbed(const FactorGraph& graph, const std::vector<double>& coefficients) {
    const auto order = shownRanks(coefficients);
    std::vector<LeafStability> leaves;
    for (std::size_t leaf = 0; leaf < coefficients.size(); ++leaf)
        leaves.push_back({.factorNo = graph.factors()[static_cast<std::size_t>(graph.leaves()[leaf])],
                          .rank = coefficients[leaf] > 0 ? order[leaf] : 0,
                          .coefficient = coefficients[leaf]});
    return leaves;
}

void count(LeafStability& leaf, int rank) {
    if (rank == 0) return;
    if (rank <= countedRanks) ++leaf.timesOn[static_cast<std::size_t>(rank - 1)];
    leaf.bestRank = leaf.bestRank == 0 ? rank : std::min(leaf.bestRank, rank);
    leaf.worstRank = std::max(leaf.worstRank, rank);
}

} // namespace

RoundComparisons readRoundComparisons(Connection& connection, const RoundResults& results) {
    const auto evaluators = readComparisons(connection, results);
    RoundComparisons comparisons{FactorGraph(results.problemNo, comparedChildren(evaluators),
                                             readStructure(connection, results.problemNo)),
                                 {}};
    std::map<std::pair<qint32, qint32>, int> edges;
    for (const auto& edge : comparisons.graph.edges())
        edges.try_emplace({edge.parentNo, edge.factorNo}, static_cast<int>(edges.size()));
    for (const auto& [number, goals] : evaluators) {
        auto& evaluator = comparisons.evaluators.emplace_back();
        for (const auto& [goalNo, rows] : goals) evaluator.push_back(goalOf(goalNo, rows, edges));
    }
    return comparisons;
}

Stability rankStability(const RoundComparisons& comparisons, int runs,
                        const std::function<bool(int)>& proceed) {
    Calculation calculation(comparisons);
    Stability stability{0, undisturbed(comparisons.graph, calculation.coefficients([
                        ](const auto& goal) -> const auto& { return goal.values; }))};
    MovedComparisons moved(comparisons);
    bool goOn = true;
    while (stability.runs < runs && goOn) {
        moved.beginRun();
        const auto order = ranks(calculation.coefficients([&moved](const auto& goal) -> const auto& {
            return moved.valuesOf(goal);
        }));
        for (std::size_t leaf = 0; leaf < order.size(); ++leaf) count(stability.leaves[leaf], order[leaf]);
        goOn = proceed(++stability.runs);
    }
    std::erase_if(stability.leaves, [](const LeafStability& leaf) { return leaf.rank == 0; });
    std::ranges::stable_sort(stability.leaves, {}, &LeafStability::rank);
    return stability;
}
