#include "judgement/ComparisonMatrix.h"

#include "judgement/PairOrder.h"

void fillMatrix(ComparisonMatrix& comparison, const std::vector<double>& pairs, int n) {
    if (static_cast<int>(pairs.size()) < pairCount(n)) throw RuntimeError(ErrorCode::SubscriptOutOfRange);
    for (int i = 0; i < n; ++i) {
        comparison.value[i][i] = 1;
        for (int j = i + 1; j < n; ++j) {
            const double value = pairs[static_cast<std::size_t>(pairNumber(i, j, n))];
            if (value == 0) throw RuntimeError(ErrorCode::DivisionByZero);
            comparison.value[i][j] = value;
            comparison.value[j][i] = 1 / value;
        }
    }
}
