#include "figures/Ranking.h"

#include <algorithm>

#include "judgement/Ranks.h"
#include "judgement/Statistics.h"

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
    const auto order = shownRanks(coefficients);
    for (std::size_t i = 0; i < leaves.size(); ++i) leaves[i].rank = order[i];
    std::ranges::stable_sort(leaves, {}, &LeafCoefficient::rank);
    return leaves;
}
