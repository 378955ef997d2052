#include "judgement/PairOrder.h"

std::optional<int> itemCount(int pairs) {
    int n = 1;
    while (pairCount(n) < pairs) ++n;
    return pairCount(n) == pairs ? std::optional(n) : std::nullopt;
}
