#include "judgement/PowerMethod.h"

#include <algorithm>
#include <cmath>

namespace {

using Vector = BoundedArray<double, comparisonItems>;

constexpr double tolerance = 1e-6;
constexpr int iterationLimit = 200;

Vector product(const ComparisonMatrix& comparison, int n) {
    Vector y;
    for (int i = 0; i < n; ++i) {
        const auto& row = comparison.value[i];
        for (int j = 0; j < n; ++j) y[i] += row[j] * comparison.weight[j];
    }
    return y;
}

double largestComponent(const Vector& y, int n) {
    double largest = std::abs(y[0]);
    for (int i = 1; i < n; ++i) largest = std::max(largest, std::abs(y[i]));
    return largest;
}

bool isPositive(const ComparisonMatrix& comparison, int n) {
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            if (!(comparison.value[i][j] > 0)) return false;
    return true;
}

} // namespace

Convergence power(ComparisonMatrix& comparison, qint16 n) {
    if (n > mostChildren) return Convergence::TooManyItems;
    auto& w = comparison.weight;
    for (int i = 0; i < n; ++i) w[i] = i == 0 ? 1 : 0;

    for (int iteration = 1; iteration <= iterationLimit; ++iteration) {
        const Vector y = product(comparison, n);
        comparison.eigenvalue = largestComponent(y, n);
        if (comparison.eigenvalue <= tolerance) return Convergence::Converged;
        double difference = 0;
        for (int i = 0; i < n; ++i) {
            const double scaled = y[i] / comparison.eigenvalue;
            difference = std::max(difference, std::abs(w[i] - scaled));
            w[i] = scaled;
        }
        if (difference <= tolerance) return Convergence::Converged;
    }
    return Convergence::NotConverged;
}

bool isPrincipal(ComparisonMatrix& comparison, const std::vector<double>& weights) {
    const auto n = static_cast<int>(weights.size());
    if (n > mostChildren || !isPositive(comparison, n)) return false;
    for (int i = 0; i < n; ++i) comparison.weight[i] = weights[static_cast<std::size_t>(i)];
    const Vector y = product(comparison, n);
    const double eigenvalue = largestComponent(y, n);
    for (int i = 0; i < n; ++i)
        if (!(comparison.weight[i] > 0 && std::abs(comparison.weight[i] - y[i] / eigenvalue) <= tolerance))
            return false;
    return true;
}
