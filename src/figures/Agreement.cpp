#include "figures/Agreement.h"

#include <algorithm>
#include <map>

#include "judgement/Variation.h"

namespace {

FactorSpread spreadOf(qint32 parentNo, qint32 factorNo, const EvaluatorValues& values) {
    FactorSpread spread;
    spread.parentNo = parentNo;
    spread.factorNo = factorNo;
    spread.values = values;
    Statistics group;
    std::vector<double> present;
    for (const double value : values) {
        if (value == 0) continue;
        group.add(value);
        present.push_back(value);
    }
    if (present.empty()) return spread;
    spread.minimum = group.minimum();
    spread.maximum = group.maximum();
    spread.mean = group.mean();
    spread.deviation = group.deviation(negligibleSpread);
    spread.classes = classCounts(present, group.minimum(), group.maximum());
    return spread;
}

bool hasValues(const FactorSpread& spread) {
    return spread.maximum > 0;
}

double variationOf(const RoundResults& results) {
    std::map<qint32, std::vector<double>> families; // by parent
    for (std::size_t i = 0; i < results.local.size(); ++i) {
        Statistics group;
        for (const double value : results.local[i])
            if (value != 0) group.add(value);
        if (group.count() > 0)
            families[results.graph.edges()[i].parentNo].push_back(group.deviation(negligibleVariance));
    }
    Variation variation;
    for (const auto& [parentNo, deviations] : families) variation.addFamily(deviations);
    return variation.mean();
}

Agreement spreadsOf(const RoundResults& results) {
    Agreement found;
    found.variation = variationOf(results);
    for (std::size_t i = 0; i < results.local.size(); ++i) {
        const auto& edge = results.graph.edges()[i];
        found.weights.push_back(spreadOf(edge.parentNo, edge.factorNo, results.local[i]));
    }
    for (std::size_t leaf = 0; leaf < results.totals.size(); ++leaf)
        found.totals.push_back(spreadOf(results.problemNo, results.leafNo(leaf), results.totals[leaf]));
    return found;
}

void compare(std::vector<FactorSpread>& spreads, const std::vector<FactorSpread>& earlier) {
    std::map<std::pair<qint32, qint32>, double> deviations;
    for (const auto& spread : earlier)
        if (hasValues(spread)) deviations[{spread.parentNo, spread.factorNo}] = spread.deviation;
    for (auto& spread : spreads)
        if (const auto found = deviations.find({spread.parentNo, spread.factorNo}); found != deviations.end())
            spread.earlierDeviation = found->second;
}

void worstFirst(std::vector<FactorSpread>& spreads) {
    std::erase_if(spreads, [](const auto& spread) { return !hasValues(spread); });
    std::ranges::stable_sort(spreads, std::ranges::greater{}, &FactorSpread::deviation);
}

} // namespace

Agreement agreement(const RoundResults& results, const RoundResults* earlier) {
    Agreement found = spreadsOf(results);
    if (earlier != nullptr) {
        const Agreement before = spreadsOf(*earlier);
        compare(found.weights, before.weights);
        compare(found.totals, before.totals);
        found.earlierVariation = before.variation;
    }
    worstFirst(found.weights);
    worstFirst(found.totals);
    return found;
}
