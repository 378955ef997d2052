#include "judgement/AnswerCheck.h"

#include <algorithm>
#include <cmath>

#include "judgement/ComparisonScale.h"
#include "judgement/PairOrder.h"
#include "judgement/PowerMethod.h"
#include "text/RuntimeError.h"

namespace {

constexpr double equalDistance = 1e-6; // what single precision makes of equal ones

double suggestedValue(const ComparisonMatrix& comparison, int i, int j, int n) {
    double logarithms = 0;
    for (int k = 0; k < n; ++k)
        if (k != i && k != j) logarithms += std::log(comparison.value[i][k] * comparison.value[k][j]);
    return std::exp(logarithms / (n - 2));
}

} // namespace

std::optional<OddPair> mostOddPair(const ComparisonMatrix& comparison, int n) {
    std::optional<OddPair> odd;
    if (n < 3) return odd;
    const double most{scaleValue(0)};
    double furthest = 0;
    for (int i = 0; i < n - 1; ++i)
        for (int j = i + 1; j < n; ++j) {
            const double given = comparison.value[i][j];
            const double suggested = std::clamp(suggestedValue(comparison, i, j, n), 1 / most, most);
            const double distance = std::abs(std::log(given / suggested));
            if (nearestPosition(given) == nearestPosition(suggested) || distance <= furthest + equalDistance)
                continue;
            furthest = distance;
            odd = {i, j, nearestPosition(given), nearestPosition(suggested)};
        }
    return odd;
}

AnswerCheck checkAnswers(const std::vector<double>& pairs) {
    const auto n = itemCount(static_cast<int>(pairs.size()));
    if (!n || *n < 2) throw RuntimeError(ErrorCode::InvalidCall);
    ComparisonMatrix comparison;
    fillMatrix(comparison, pairs, *n);
    AnswerCheck check;
    check.oddPair = mostOddPair(comparison, *n);
    if (*n <= mostItemsWithRandomIndex &&
        power(comparison, static_cast<qint16>(*n)) == Convergence::Converged)
        check.consistency = consistencyOf(comparison.eigenvalue, *n);
    return check;
}
