#include "judgement/Consistency.h"

#include <array>
#include <cmath>

#include "judgement/PairOrder.h"
#include "text/RuntimeError.h"

namespace {

// The random index RI, looked up with the number of items itself: three items use 0.9.
constexpr std::array randomIndex{0.0, 0.0, 0.58, 0.9, 1.12, 1.24, 1.32, 1.41, 1.45, 1.49, 1.49, 1.51, 1.53};
static_assert(randomIndex.size() == mostItemsWithRandomIndex + 1);

} // namespace

Consistency consistencyOf(double eigenvalue, int n) {
    if (n < 2 || n > mostItemsWithRandomIndex) throw RuntimeError(ErrorCode::SubscriptOutOfRange);
    const double index = (eigenvalue - n) / (n - 1);
    return {index, index / randomIndex[static_cast<std::size_t>(n)]};
}

std::vector<PairAtOdds> pairsAtOdds(const ComparisonMatrix& comparison, int n) {
    std::vector<PairAtOdds> pairs;
    const auto& w = comparison.weight;
    for (int i = 0; i < n - 1; ++i)
        for (int j = i + 1; j < n; ++j)
            if (std::abs(w[i] / w[j] - comparison.value[i][j]) > pairDeviationLimit)
                pairs.push_back({i, j, pairNumber(i, j, n)});
    return pairs;
}
