#include "judgement/PairOrder.h"

std::optional<int> itemCount(int pairs) {
    int n = 1;
    while (pairCount(n) < pairs) ++n;
    return pairCount(n) == pairs ? std::optional(n) : std::nullopt;
}

std::vector<std::pair<int, int>> pairsOf(int n) {
    std::vector<std::pair<int, int>> pairs;
    for (int i = 0; i < n - 1; ++i)
        for (int j = i + 1; j < n; ++j) pairs.emplace_back(i, j);
    return pairs;
}
