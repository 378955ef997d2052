#include "judgement/Variation.h"

#include <array>

#include "judgement/Limits.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

// By the number of children: weights of a large family differ less.
constexpr std::array divisors{1.0,   1.0,   0.394, 0.364, 0.333, 0.305, 0.28,  0.261, 0.246, 0.239, 0.226,
                              0.216, 0.209, 0.204, 0.196, 0.19,  0.187, 0.183, 0.176, 0.173, 0.171};
static_assert(divisors.size() == mostChildren + 1);

constexpr std::array bounds{0.1, 0.2, 0.3, 0.4, 999999.0};
constexpr std::array<QChar, 6> labels{u'A', u'B', u'C', u'D', u'E', u'F'}; // no variation is as great as F

} // namespace

void Variation::addFamily(const std::vector<double>& deviations) {
    if (deviations.size() >= divisors.size()) throw RuntimeError(ErrorCode::SubscriptOutOfRange);
    for (const double deviation : deviations) total_ += deviation / divisors.at(deviations.size());
    children_ += static_cast<int>(deviations.size());
}

QString gradeLetter(double variation) {
    std::size_t position = 0;
    while (position + 1 < bounds.size() && !(bounds.at(position) > variation)) ++position;
    return {labels.at(position)};
}

QString gradeLegend() {
    QString legend;
    for (std::size_t position = 0; position + 1 < bounds.size(); ++position)
        legend += u"%1 は %2 未満、"_s.arg(labels.at(position)).arg(decimalText(bounds.at(position)));
    return legend + labels.at(bounds.size() - 1) + u" はそれ以上"_s;
}
