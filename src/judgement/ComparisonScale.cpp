#include "judgement/ComparisonScale.h"

#include <array>
#include <cmath>
#include <cstdlib>

#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double equalDistance =
    1e-6; // what single precision makes of equal ones: √6 is as near to 2 as to 3

} // namespace

int degreeAt(int position) {
    if (position < 0 || position >= scalePositions) throw RuntimeError(ErrorCode::SubscriptOutOfRange);
    return std::abs(position - equalPosition) + 1;
}

QString scaleText(int position) {
    const QString number = QString::number(degreeAt(position));
    return position <= equalPosition ? number : u"1/"_s + number;
}

float scaleValue(int position) {
    const int number = degreeAt(position);
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

QString degreeWords(int degree) {
    static const std::array odd{u"同じくらい"_s, u"やや"_s, u"かなり"_s, u"非常に"_s, u"きわめて"_s};
    if (degree < 1 || degree > mostDegree) throw RuntimeError(ErrorCode::SubscriptOutOfRange);
    const auto below = static_cast<std::size_t>((degree - 1) / 2);
    if (degree % 2 == 1) return odd.at(below);
    return (degree == 2 ? u"同じ"_s : odd.at(below)) + u"〜"_s + odd.at(below + 1);
}

QString wordUnder(int position) {
    const int degree = degreeAt(position);
    if (degree % 2 == 0) return {};
    return degree == 1 ? u"同じ"_s : degreeWords(degree);
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
    return degreeWords(degreeAt(position)) + aspectWord(aspect);
}

QString comparisonMeaning(const QString& source, const QString& target, int position, Aspect aspect) {
    if (position == equalPosition) return u"どちらも"_s + scaleWords(position, aspect);
    return (position < equalPosition ? source : target) + u" のほうが"_s + scaleWords(position, aspect);
}

QString comparisonSentence(const QString& source, const QString& target, int position, Aspect aspect) {
    return u"%1 は %2 に比べて %3 → %4"_s.arg(source, target, scaleText(position),
                                              comparisonMeaning(source, target, position, aspect));
}
