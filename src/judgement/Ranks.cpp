#include "judgement/Ranks.h"

#include <QString>
#include <algorithm>
#include <numeric>

#include "text/Numbers.h"

using namespace Qt::StringLiterals;

namespace {

// `isBelow` tells whether a value is less than another that is not less than it.
template <typename IsBelow>
std::vector<int> ranksBy(const std::vector<double>& values, IsBelow isBelow) {
    std::vector<std::size_t> order(values.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, std::ranges::greater{}, [&values](std::size_t i) { return values[i]; });
    std::vector<int> ranks(values.size(), 0);
    for (std::size_t place = 0, first = 0; place < order.size(); ++place) {
        if (isBelow(values[order[place]], values[order[first]])) first = place;
        ranks[order[place]] = static_cast<int>(first) + 1;
    }
    return ranks;
}

} // namespace

std::vector<int> ranks(const std::vector<double>& values) {
    auto found = ranksBy(values, [](double low, double high) { return low < high * (1 - equalValues); });
    for (std::size_t i = 0; i < values.size(); ++i)
        if (values[i] <= 0) found[i] = 0;
    return found;
}

std::vector<int> shownRanks(const std::vector<double>& values) {
    return ranksBy(values, [](double low, double high) {
        return formatNumber(low, u"0.0000"_s) != formatNumber(high, u"0.0000"_s);
    });
}
