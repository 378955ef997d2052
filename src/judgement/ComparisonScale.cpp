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
constexpr std::array words{u"同じくらい",   u"同じ〜やや",       u"やや",
                           u"やや〜かなり", u"かなり",           u"かなり〜非常に",
                           u"非常に",       u"非常に〜きわめて", u"きわめて"};

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

QString aspectWord(Aspect aspect) {
    return aspect == Aspect::Quality ? u"優れている"_s : u"重要"_s;
}

QString comparisonQuestion(const QString& goal, Aspect aspect) {
    return aspect == Aspect::Quality
               ? u"「%1」について、左と右のどちらがどれだけ優れていますか（望ましいですか）。"_s.arg(goal)
               : u"「%1」にとって、左と右のどちらがどれだけ重要ですか。"_s.arg(goal);
}

QString scaleWords(int position, Aspect aspect) {
    return QString::fromUtf16(words[static_cast<std::size_t>(wholeNumber(position) - 1)]) +
           aspectWord(aspect);
}

QString comparisonMeaning(const QString& source, const QString& target, int position, Aspect aspect) {
    if (position == equalPosition) return u"どちらも"_s + scaleWords(position, aspect);
    return (position < equalPosition ? source : target) + u" のほうが"_s + scaleWords(position, aspect);
}

QString comparisonSentence(const QString& source, const QString& target, int position, Aspect aspect) {
    return u"%1 は %2 に比べて %3 → %4"_s.arg(source, target, scaleText(position),
                                              comparisonMeaning(source, target, position, aspect));
}
