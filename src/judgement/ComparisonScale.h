// The scale of pairwise comparison: 9 … 1 … 1/9 (T. L. Saaty's fundamental scale and its reciprocals).
#pragma once

#include <QString>

constexpr int scalePositions = 17;
constexpr int equalPosition = 8;              // "1"
constexpr int mostDegree = equalPosition + 1; // degrees are the whole numbers 1 to 9

// Position 0 is "9", 8 is "1", 16 is "1/9". Raises error 9 outside 0 to 16.
QString scaleText(int position);
// 9, 8, …, 1, 1/2, …, 1/9 in single precision.
float scaleValue(int position);
// The position of the reciprocal: that of "9" is that of "1/9", "1" is its own.
constexpr int mirrorPosition(int position) {
    return scalePositions - 1 - position;
}
// The position whose value is nearest by ratio, the first of equally near ones; the ends of the scale beyond
// them.
int nearestPosition(double value);

// The degree at a position: 3 for "3" and for "1/3". Raises error 9 outside 0 to 16.
int degreeAt(int position);
// The position of a degree of 1 to 9 in favour of the source.
constexpr int positionOf(int degree) {
    return mostDegree - degree;
}

// The words of a degree wherever the scale is read: 1 "同じくらい", 3 "やや", … 9 "きわめて"; an even one is
// a compromise between its neighbours and names both, "やや〜かなり". Raises error 9 outside 1 to 9.
QString degreeWords(int degree);
// What stands at a digit of a printed scale: "同じ", "やや", …; those between two words have none.
QString wordUnder(int position);

// By what the items of a goal are compared: factors by their importance to it, what the decision is about by
// how good it is in its view. In "建設費" the cheap alternative is the better one, not the more important
// one.
enum class Aspect { Importance, Quality };

// "重要", "優れている".
QString aspectWord(Aspect aspect);
// "「費用」にとって、左と右のどちらがどれだけ重要ですか。"
QString comparisonQuestion(const QString& goal, Aspect aspect);
// How much the preferred one surpasses the other: "やや重要" for 3 and for 1/3.
QString scaleWords(int position, Aspect aspect = Aspect::Importance);
// "避難所 のほうがかなり重要", "どちらも同じくらい優れている".
QString comparisonMeaning(const QString& source, const QString& target, int position,
                          Aspect aspect = Aspect::Importance);
// "耐震化 は 避難所 に比べて 1/5 → 避難所 のほうがかなり重要": so that nobody takes 1/5 for 5.
QString comparisonSentence(const QString& source, const QString& target, int position,
                           Aspect aspect = Aspect::Importance);
