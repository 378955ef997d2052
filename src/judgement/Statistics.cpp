#include "judgement/Statistics.h"

#include <algorithm>
#include <cmath>

#include "text/Numbers.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double negligibleWidth = 1e-8;
constexpr int middleClass = 3;
constexpr int lastClass = valueClasses - 1;

} // namespace

void Statistics::add(double value) {
    minimum_ = count_ == 0 ? value : std::min(minimum_, value);
    maximum_ = count_ == 0 ? value : std::max(maximum_, value);
    sum_ += value;
    squares_ += value * value;
    product_ *= value;
    ++count_;
}

double Statistics::geometricMean(const QString& factor) const {
    if (!(product_ > 0))
        throw RuntimeError(ErrorCode::InvalidCall,
                           u"0 以下の評価値があるため、幾何平均を計算できません。\n%1"_s.arg(factor));
    return static_cast<double>(std::exp(std::log(product_) / count_));
}

double Statistics::deviation(double negligible) const {
    const double variance = squares_ / count_ - mean() * mean();
    return variance < negligible ? 0 : std::sqrt(variance);
}

std::array<int, valueClasses> classCounts(const std::vector<double>& values, double minimum, double maximum) {
    double width = (maximum - minimum) / valueClasses;
    if (std::abs(width) < negligibleWidth) width = 0;
    std::array<int, valueClasses> counts{};
    for (const double value : values) {
        const double position = width == 0 ? middleClass : (value - minimum) / width;
        const int number = position > lastClass ? lastClass : position < 0 ? 0 : toLong(position);
        ++counts[static_cast<std::size_t>(number)];
    }
    return counts;
}
