#include "judgement/ComparisonScale.h"

#include <array>
#include <cmath>

#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int equalPosition = 8; // "1"
constexpr double equalDistance =
    1e-6; // what single precision makes of equal ones: √6 is as near to 2 as to 3

// For the whole numbers 1 to 9; an even one is a compromise between its neighbours.
constexpr std::array words{u"同じくらい重要",   u"同じ〜やや重要",       u"やや重要",
                           u"やや〜かなり重要", u"かなり重要",           u"かなり〜非常に重要",
                           u"非常に重要",       u"非常に〜きわめて重要", u"きわめて重要"};

// The whole number of the position: n on the side above 1, the n of 1/n below.
int wholeNumber(int position) {
    if (position < 0 || position >= scalePositions) throw RuntimeError(ErrorCode::SubscriptOutOfRange);
    return position <= equalPosition ? equalPosition + 1 - position : position - equalPosition + 1;
}

} // namespace

QString scaleText(int position) {
    const QString number = QString::number(wholeNumber(position));
    return position <= equalPosition ? number : u"1/"_s + number;
}

float scaleValue(int position) {
    const int number = wholeNumber(position);
    return position <= equalPosition ? static_cast<float>(number) : static_cast<float>(1.0 / number);
}

int nearestPosition(double value) {
    int nearest = 0;
    const auto distance = [value](int position) {
        return std::abs(std::log(value / static_cast<double>(scaleValue(position))));
    };
    for (int position = 1; position < scalePositions; ++position)
        if (distance(position) < distance(nearest) - equalDistance) nearest = position;
    return nearest;
}

QString scaleWords(int position) {
    return QString::fromUtf16(words[static_cast<std::size_t>(wholeNumber(position) - 1)]);
}

QString comparisonMeaning(const QString& source, const QString& target, int position) {
    if (position == equalPosition) return u"どちらも"_s + scaleWords(position);
    return (position < equalPosition ? source : target) + u" のほうが"_s + scaleWords(position);
}

QString comparisonSentence(const QString& source, const QString& target, int position) {
    return u"%1 は %2 に比べて %3 → %4"_s.arg(source, target, scaleText(position),
                                              comparisonMeaning(source, target, position));
}
