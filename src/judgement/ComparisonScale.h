// The scale of pairwise comparison: 9 … 1 … 1/9 (T. L. Saaty's fundamental scale and its reciprocals).
#pragma once

#include <QString>

constexpr int scalePositions = 17;

// Position 0 is "9", 8 is "1", 16 is "1/9". Raises error 9 outside 0 to 16.
QString scaleText(int position);
// 9, 8, …, 1, 1/2, …, 1/9 in single precision.
float scaleValue(int position);
// The position of the reciprocal: that of "9" is that of "1/9", "1" is its own.
constexpr int mirrorPosition(int position) {
    return scalePositions - 1 - position;
}
// The position whose value is nearest by ratio, the first of equally near ones; the ends of the scale beyond them.
int nearestPosition(double value);

// How much more important the preferred factor is: "やや重要" for 3 and for 1/3.
QString scaleWords(int position);
// "避難所 のほうがかなり重要", "どちらも同じくらい重要".
QString comparisonMeaning(const QString& source, const QString& target, int position);
// "耐震化 は 避難所 に比べて 1/5 → 避難所 のほうがかなり重要": so that nobody takes 1/5 for 5.
QString comparisonSentence(const QString& source, const QString& target, int position);
