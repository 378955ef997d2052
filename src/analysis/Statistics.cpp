#include "analysis/Statistics.h"

#include <algorithm>
#include <cmath>

#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

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
