#include "figures/Ranking.h"

#include <algorithm>
#include <numeric>

#include "analysis/Statistics.h"

std::vector<int> ranks(const std::vector<double>& values) {
    std::vector<std::size_t> order(values.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, std::ranges::greater{}, [&values](std::size_t i) { return values[i]; });
    std::vector<int> ranks(values.size(), 0);
    for (std::size_t place = 0, first = 0; place < order.size() && values[order[place]] > 0; ++place) {
        if (values[order[place]] < values[order[first]] * (1 - equalCoefficients)) first = place;
        ranks[order[place]] = static_cast<int>(first) + 1;
    }
    return ranks;
}

std::vector<LeafCoefficient> rankedLeaves(const RoundResults& results) {
    std::vector<LeafCoefficient> leaves;
    std::vector<double> coefficients;
    for (std::size_t leaf = 0; leaf < results.totals.size(); ++leaf) {
        Statistics group;
        for (const double value : results.totals[leaf])
            if (value != 0) group.add(value);
        if (group.count() == 0) continue;
        const auto factorNo = results.leafNo(leaf);
        leaves.push_back({factorNo, 0, group.geometricMean(results.names[factorNo]), group.minimum(),
                          group.maximum(), results.totals[leaf]});
        coefficients.push_back(leaves.back().coefficient);
    }
    const auto order = ranks(coefficients);
    for (std::size_t i = 0; i < leaves.size(); ++i) leaves[i].rank = order[i];
    std::ranges::stable_sort(leaves, {}, &LeafCoefficient::rank);
    return leaves;
}
