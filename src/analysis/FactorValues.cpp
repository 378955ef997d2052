#include "analysis/FactorValues.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int totalsLevel = -1; // they stand in no level of the tree

// The factors of one pair, in the order of `factors`: one for each place where it stands.
using Places = std::vector<std::size_t>;

bool has(const FactorValues& factor, qint32 evaluatorNo) {
    return std::ranges::find(factor.values, evaluatorNo, &EvaluatorValue::evaluatorNo) != factor.values.end();
}

} // namespace

std::vector<FactorValues> readFactorValues(qint32 problemNo, Recordset rows, const QString& evaluatorField,
                                           const TreeLevels& levels) {
    std::vector<FactorValues> factors;
    std::map<TreePair, Places> known;
    for (; !rows.eof(); rows.moveNext()) {
        const TreePair pair{rows[u"dno"_s].toDouble(), rows[u"parent"_s].toLong(), rows[u"child"_s].toLong()};
        const EvaluatorValue value{rows[evaluatorField].toLong(), rows[u"score"_s].toDouble()};
        auto& places = known[pair];
        // An evaluator has one value in each place: another one is of the next.
        auto place = std::ranges::find_if(
            places, [&](std::size_t at) { return !has(factors[at], value.evaluatorNo); });
        if (place == places.end()) {
            const auto& [key, parentNo, childNo] = pair;
            FactorValues factor;
            factor.isTotal = key == totalsKey && parentNo == problemNo;
            const int level = factor.isTotal ? totalsLevel : levelOf(levels, pair, places.size());
            factor.place = {parentNo, childNo, level, key};
            place = places.insert(place, factors.size());
            factors.push_back(std::move(factor));
        }
        factors[*place].values.push_back(value);
        factors[*place].statistics.add(value.value);
    }
    std::ranges::stable_sort(factors, [](const auto& one, const auto& other) {
        return std::tie(one.isTotal, one.place) < std::tie(other.isTotal, other.place);
    });
    return factors;
}
