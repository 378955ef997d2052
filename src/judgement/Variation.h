// The grade of a round: how far its evaluators agree.
#pragma once

#include <QString>
#include <vector>

// The variance of one factor's weights below which they count as equal in the grade.
constexpr double negligibleVariance = 1e-7;

// The mean, over all children of all parents, of the standard deviation of the evaluators' local weights
// relative to the divisor of the family's size.
class Variation {
  public:
    // The standard deviations of all children of one parent. Raises error 9 for more children than there are
    // divisors (20).
    void addFamily(const std::vector<double>& deviations);
    double mean() const { return children_ == 0 ? 0 : total_ / children_; } // 0 without families

  private:
    double total_ = 0;
    int children_ = 0;
};

// The letter for a mean of 0 or more: "A" (they agree) to "E".
QString gradeLetter(double variation);
// "A は 0.1 未満、B は 0.2 未満、…".
QString gradeLegend();
