#include "figures/Sensitivity.h"

#include <algorithm>
#include <cmath>

#include "figures/Ranking.h"
#include "judgement/Ranks.h"

namespace {

// Everything below is in x = ln k, in which the logarithm of a coefficient rises with a slope that rises
// itself, from 0 to at most 1.
const double limit = std::log(greatestFactorOfWeight);
constexpr int cells = 64;
constexpr double rootWidth = 1e-12;
constexpr int refinements = 20;     // halvings of a cell until two curves that touch count as touching
constexpr double sameCurve = 1e-12; // what rounding leaves of the difference of two equal curves

struct Curve {
    explicit Curve(const LeafResponse& leaf) : leaf_(&leaf) {}

    double at(double x) const {
        const double k = std::exp(x);
        double sum = 0;
        for (std::size_t i = 0; i < leaf_->fixed.size(); ++i)
            sum += std::log(leaf_->fixed[i] + k * leaf_->scaled[i]);
        return sum / static_cast<double>(leaf_->fixed.size());
    }
    double slope(double x) const {
        const double k = std::exp(x);
        double sum = 0;
        for (std::size_t i = 0; i < leaf_->fixed.size(); ++i)
            sum += k * leaf_->scaled[i] / (leaf_->fixed[i] + k * leaf_->scaled[i]);
        return sum / static_cast<double>(leaf_->fixed.size());
    }

  private:
    const LeafResponse* leaf_;
};

// Where two curves cross. Both rise, and so do their slopes: their values at the ends of an interval bound
// the difference within it, their slopes at the ends bound the slope of the difference.
class Crossings {
  public:
    Crossings(const LeafResponse& first, const LeafResponse& second) : first_(first), second_(second) {}

    void search(double low, double high, int refinement = 0) {
        if (first_.at(low) > second_.at(high) || first_.at(high) < second_.at(low)) return;
        const bool monotone = first_.slope(low) >= second_.slope(high) ||
                              first_.slope(high) <= second_.slope(low) || refinement == refinements;
        if (monotone || sameThroughout(low, high)) {
            if (isAbove(low) != isAbove(high)) found.push_back(bisect(low, high));
            return;
        }
        const double middle = (low + high) / 2;
        search(low, middle, refinement + 1);
        search(middle, high, refinement + 1);
    }
    // Whether the first curve is the upper one.
    bool isAbove(double x) const { return difference(x) > sameCurve; }

    std::vector<double> found;

  private:
    double difference(double x) const { return first_.at(x) - second_.at(x); }
    bool sameThroughout(double low, double high) const {
        for (const double part : {0.0, 0.3, 0.6, 1.0})
            if (std::abs(difference(low + part * (high - low))) > sameCurve) return false;
        return true;
    }
    double bisect(double low, double high) const {
        const bool above = isAbove(low);
        while (high - low > rootWidth) {
            const double middle = (low + high) / 2;
            (isAbove(middle) == above ? low : high) = middle;
        }
        return (low + high) / 2;
    }

    Curve first_, second_;
};

// The coefficients of all leaves at the bounds of the cells.
std::vector<std::vector<double>> sampled(const std::vector<LeafResponse>& leaves) {
    std::vector<std::vector<double>> samples;
    for (const auto& leaf : leaves) {
        auto& row = samples.emplace_back();
        for (int bound = 0; bound <= cells; ++bound)
            row.push_back(Curve(leaf).at(limit * (2.0 * bound / cells - 1)));
    }
    return samples;
}

// Who may stand on one of the first ranks within a cell: at its end not below the last of them at its
// beginning, since curves rise.
std::vector<std::size_t> leadersIn(std::size_t cell, const std::vector<std::vector<double>>& samples,
                                   std::size_t leading) {
    std::vector<double> begins;
    begins.reserve(samples.size());
    for (const auto& row : samples) begins.push_back(row[cell]);
    std::ranges::sort(begins, std::ranges::greater{});
    const double last = begins[std::min(leading, begins.size() - 1)];
    std::vector<std::size_t> leaders;
    for (std::size_t leaf = 0; leaf < samples.size(); ++leaf)
        if (samples[leaf][cell + 1] >= last) leaders.push_back(leaf);
    return leaders;
}

RankChange changeAt(double x, const LeafResponse& first, const LeafResponse& second, bool firstAboveAfter,
                    const std::vector<LeafResponse>& leaves) {
    const double k = std::exp(x);
    const double here = first.coefficient(k) * (1 + equalValues);
    const auto above = std::ranges::count_if(leaves, [&](const LeafResponse& leaf) {
        return leaf.factorNo != first.factorNo && leaf.factorNo != second.factorNo &&
               leaf.coefficient(k) > here;
    });
    const bool firstRises = firstAboveAfter == (x >= 0);
    return {k, static_cast<int>(above) + 1, firstRises ? first.factorNo : second.factorNo,
            firstRises ? second.factorNo : first.factorNo};
}

const LeafResponse& leafOf(qint32 factorNo, const std::vector<LeafResponse>& leaves) {
    return *std::ranges::find(leaves, factorNo, &LeafResponse::factorNo);
}

bool areEqual(const LeafResponse& one, const LeafResponse& other, double k) {
    return ranks({one.coefficient(k), other.coefficient(k)}) == std::vector{1, 1};
}

// Equal leaves part at k = 1, or only just beside it: what rounding makes of it.
bool isTieAsItIs(const RankChange& change, const std::vector<LeafResponse>& leaves) {
    const auto& rising = leafOf(change.risingNo, leaves);
    const auto& falling = leafOf(change.fallingNo, leaves);
    return areEqual(rising, falling, 1) && areEqual(rising, falling, std::sqrt(change.k));
}

// The ranks of the rising and the falling leaf at k.
std::pair<int, int> ranksAt(double k, const RankChange& change, const std::vector<LeafResponse>& leaves) {
    std::vector<double> values(leaves.size());
    std::ranges::transform(leaves, values.begin(), [&](const auto& leaf) { return leaf.coefficient(k); });
    const auto order = ranks(values);
    const auto rankOf = [&](qint32 factorNo) {
        return order[static_cast<std::size_t>(&leafOf(factorNo, leaves) - leaves.data())];
    };
    return {rankOf(change.risingNo), rankOf(change.fallingNo)};
}

double awayFromOne(double k, int places) {
    const double scale = std::pow(10, places);
    const double rounded = (k > 1 ? std::ceil(k * scale) : std::floor(k * scale)) / scale;
    return rounded == 1 ? 1 + (k > 1 ? 1 : -1) / scale : rounded;
}

// Says of the change what is true at the rounded k.
void round(RankChange& change, const std::vector<LeafResponse>& leaves) {
    constexpr int leastPlaces = 2;
    constexpr int mostPlaces = 6;
    constexpr double beside = 1e-6;
    const std::pair places{change.rank, change.rank + 1};
    const auto [rising, falling] =
        ranksAt(change.k * (change.k > 1 ? 1 - beside : 1 + beside), change, leaves);
    change.changesPlaces = std::pair{falling, rising} == places &&
                           leafOf(change.risingNo, leaves).rank != leafOf(change.fallingNo, leaves).rank;
    for (int number = mostPlaces; number >= leastPlaces; --number) {
        const double k = awayFromOne(change.k, number);
        const auto behind = ranksAt(k, change, leaves);
        if (behind.first < behind.second) change.roundedK = k;
    }
    if (!change.changesPlaces) return;
    for (int number = leastPlaces; number <= mostPlaces; ++number)
        if (ranksAt(awayFromOne(change.k, number), change, leaves) == places) {
            change.roundedK = awayFromOne(change.k, number);
            return;
        }
    change.changesPlaces = false;
}

std::vector<RankChange> rankChanges(const std::vector<LeafResponse>& leaves, int leading) {
    std::vector<RankChange> changes;
    const auto samples = sampled(leaves);
    for (std::size_t cell = 0; cell < cells && leaves.size() > 1; ++cell) {
        const double low = limit * (2.0 * static_cast<double>(cell) / cells - 1);
        const double high = limit * (2.0 * static_cast<double>(cell + 1) / cells - 1);
        const auto leaders = leadersIn(cell, samples, static_cast<std::size_t>(leading));
        for (std::size_t i = 0; i < leaders.size(); ++i)
            for (std::size_t j = i + 1; j < leaders.size(); ++j) {
                const auto& first = leaves[leaders[i]];
                const auto& second = leaves[leaders[j]];
                Crossings crossings(first, second);
                crossings.search(low, high);
                bool firstAbove = crossings.isAbove(low);
                for (const double x : crossings.found) {
                    firstAbove = !firstAbove;
                    changes.push_back(changeAt(x, first, second, firstAbove, leaves));
                }
            }
    }
    std::erase_if(changes, [&](const RankChange& change) {
        return change.rank >= leading || isTieAsItIs(change, leaves);
    });
    for (auto& change : changes) round(change, leaves);
    std::ranges::stable_sort(changes, {},
                             [](const RankChange& change) { return std::abs(std::log(change.k)); });
    return changes;
}

// The overall weights of one evaluator, and how much of them comes through an edge from the problem.
struct Shares {
    std::vector<double> whole;
    std::vector<double> through;
};

Shares sharesOf(const RoundResults& results, std::size_t evaluator, qint32 factorNo) {
    const auto& edges = results.graph.edges();
    std::vector<double> local;
    for (const auto& weights : results.local) local.push_back(weights[evaluator]);
    Shares shares;
    results.graph.multiplyDown(local, shares.whole);
    for (std::size_t i = 0; i < edges.size(); ++i)
        if (edges[i].parentNo == results.problemNo && edges[i].factorNo != factorNo) local[i] = 0;
    results.graph.multiplyDown(local, shares.through);
    return shares;
}

std::vector<LeafResponse> responses(const RoundResults& results, qint32 factorNo,
                                    const std::vector<LeafCoefficient>& ranked) {
    QHash<qint32, LeafResponse> byNumber;
    for (std::size_t evaluator = 0; evaluator < results.evaluators.size(); ++evaluator) {
        const Shares shares = sharesOf(results, evaluator, factorNo);
        for (const int leaf : results.graph.leaves()) {
            const auto position = static_cast<std::size_t>(leaf);
            if (shares.whole[position] == 0) continue;
            auto& response = byNumber[results.graph.factors()[position]];
            response.fixed.push_back(std::max(0.0, shares.whole[position] - shares.through[position]));
            response.scaled.push_back(shares.through[position]);
        }
    }
    std::vector<LeafResponse> leaves;
    for (const auto& leaf : ranked) {
        if (!byNumber.contains(leaf.factorNo)) continue;
        leaves.push_back(byNumber[leaf.factorNo]);
        leaves.back().factorNo = leaf.factorNo;
        leaves.back().rank = leaf.rank;
    }
    return leaves;
}

} // namespace

double LeafResponse::coefficient(double k) const {
    return std::exp(Curve(*this).at(std::log(k)));
}

std::vector<Sensitivity> sensitivities(const RoundResults& results, int leading) {
    std::vector<Sensitivity> found;
    const auto ranked = rankedLeaves(results);
    for (const auto& edge : results.graph.edges()) {
        if (edge.parentNo != results.problemNo) continue;
        Sensitivity sensitivity{edge.factorNo, responses(results, edge.factorNo, ranked), {}};
        sensitivity.changes = rankChanges(sensitivity.leaves, leading);
        found.push_back(std::move(sensitivity));
    }
    return found;
}
