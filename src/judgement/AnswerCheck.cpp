#include "judgement/AnswerCheck.h"

#include <algorithm>
#include <cmath>

#include "judgement/ComparisonScale.h"
#include "judgement/PairOrder.h"
#include "judgement/PowerMethod.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double equalDistance = 1e-6; // what single precision makes of equal ones

bool isCalculated(int items) {
    return pairCount(items) <= mostCalculatedPairs;
}

// The index of answers that agree wholly may be less than 0 by what the power method leaves.
QString figureText(double figure) {
    return formatNumber(std::max(figure, 0.0), u"0.0000"_s);
}

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
    AnswerCheck check{*n, {}, mostOddPair(comparison, *n)};
    if (*n <= mostItemsWithRandomIndex &&
        power(comparison, static_cast<qint16>(*n)) == Convergence::Converged)
        check.consistency = consistencyOf(comparison.eigenvalue, *n);
    return check;
}

bool AnswerCheck::isInconsistent() const {
    return isCalculated(items) && !(consistency && consistency->isAcceptable());
}

QString consistencyText(const AnswerCheck& check) {
    if (!isCalculated(check.items))
        return u"整合度を計算できません（評価計算が扱う要因は %1 つまでです）"_s.arg(
            itemCount(mostCalculatedPairs).value());
    if (!check.consistency) return u"整合度を計算できません（評価計算では「全体的に不整合」になります）"_s;
    const auto& [index, ratio] = *check.consistency;
    return u"整合度 CI %1（限度 %2）　整合比 CR %3（限度 %4）　%5"_s.arg(
        figureText(index), decimalText(consistencyIndexLimit), figureText(ratio),
        decimalText(consistencyRatioLimit),
        check.isInconsistent() ? u"限度を超えています。"_s : u"整合しています。"_s);
}
