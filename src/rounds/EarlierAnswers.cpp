#include "rounds/EarlierAnswers.h"

#include <algorithm>
#include <cmath>

#include "judgement/ComparisonScale.h"
#include "judgement/PairOrder.h"

namespace {

constexpr double sameValue = 1e-6; // by ratio: single precision, also when another program wrote the value

std::optional<int> scalePosition(double value) {
    if (!(value > 0)) return std::nullopt;
    const int position = nearestPosition(value);
    const double ratio = value / static_cast<double>(scaleValue(position));
    return std::abs(ratio - 1) < sameValue ? std::optional(position) : std::nullopt;
}

} // namespace

int EarlierAnswers::count() const {
    return static_cast<int>(std::ranges::count_if(positions, &std::optional<int>::has_value));
}

EarlierAnswers earlierAnswers(qint16 round, const GoalComparisons& stored, const std::vector<qint32>& items) {
    const int n = static_cast<int>(items.size());
    const auto place = [&](qint32 factor) {
        return static_cast<int>(std::ranges::find(items, factor) - items.begin());
    };
    EarlierAnswers earlier{round, std::vector<std::optional<int>>(static_cast<std::size_t>(pairCount(n)))};
    for (std::size_t pair = 0; pair < stored.pairs.size(); ++pair) {
        const int source = place(stored.pairs[pair].first);
        const int target = place(stored.pairs[pair].second);
        if (source == n || target == n || source == target) {
            ++earlier.dropped;
            continue;
        }
        auto position = scalePosition(stored.values[pair]);
        if (!position) ++earlier.offScale;
        if (position && target < source) position = mirrorPosition(*position);
        const auto [first, last] = std::minmax(source, target);
        earlier.positions[static_cast<std::size_t>(pairNumber(first, last, n))] = position;
    }
    return earlier;
}

EarlierRounds::EarlierRounds(const EvaluatorRound& of) : evaluatorNo_(of.evaluatorNo) {
    for (const int back : {0, 1}) {
        auto round = of;
        round.round = static_cast<qint16>(of.round - back);
        rounds_.emplace_back(round.round, readComparisons(round));
    }
}

std::optional<EarlierAnswers> EarlierRounds::of(qint32 goalNo, const std::vector<qint32>& items) const {
    for (const auto& [round, evaluators] : rounds_)
        if (const auto goals = evaluators.find(evaluatorNo_); goals != evaluators.end())
            if (const auto stored = goals->second.find(goalNo); stored != goals->second.end())
                return earlierAnswers(round, stored->second, items);
    return std::nullopt;
}
