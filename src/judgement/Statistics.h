// What is said of the values that several evaluators give one factor.
#pragma once

#include <QString>
#include <array>
#include <vector>

// The variance of one factor's values below which they count as equal.
constexpr double negligibleSpread = 1e-8;

// Figures of a set of values, added one by one. All but the count need at least one value.
class Statistics {
  public:
    void add(double value);

    int count() const { return count_; }
    double minimum() const { return minimum_; }
    double maximum() const { return maximum_; }
    double mean() const { return sum_ / count_; }
    // exp(ln(product) ÷ n). Raises error 5 when the product is 0 or below, which names the factor.
    double geometricMean(const QString& factor = {}) const;
    // Square root of the population variance (sum of squares ÷ n − mean²); 0 when the variance is below
    // `negligible`, since the difference of two nearly equal numbers leaves only their rounding errors.
    double deviation(double negligible) const;

  private:
    int count_ = 0;
    double sum_ = 0;
    double squares_ = 0;
    // A product of weights of a hundred evaluators is smaller than any double, and the mean of a single value
    // has to be that value to the last digit.
    long double product_ = 1;
    double minimum_ = 0;
    double maximum_ = 0;
};

constexpr int valueClasses = 7;
// How many of the values stand in each seventh of their range; the largest one in the last, all in the
// middle one when they do not differ. Positions in the range are rounded to the nearest class, halves to the
// even one, so class 0 is half as wide as the others and class 6 half as wide again. `minimum` and `maximum`
// are those of the values.
std::array<int, valueClasses> classCounts(const std::vector<double>& values, double minimum, double maximum);
