#include "judgement/ComparisonScale.h"

#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int equalPosition = 8; // "1"

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
