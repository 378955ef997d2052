// How far the evaluators of a round agree: the grade of the round, the classes of one factor's values.
#pragma once

#include <QString>
#include <array>
#include <vector>

struct ProblemRound;

// The grade of the round, "A" (they agree) to "E": the mean, over all children of all parents, of the
// standard deviation of the evaluators' local weights relative to the divisor of the family's size. Without
// results the round has the grade "A". Raises error 9 for more children of one parent than there are
// divisors (20).
QString VariationGrade(const ProblemRound& of);
// The letter for a mean of 0 or more.
QString gradeLetter(double variation);

constexpr int valueClasses = 7;
// How many of the values stand in each seventh of their range; the largest one in the last, all in the
// middle one when they do not differ. Positions in the range are rounded to the nearest class, halves to the
// even one, so class 0 is half as wide as the others and class 6 half as wide again. `minimum` and `maximum`
// are those of the values.
std::array<int, valueClasses> classCounts(const std::vector<double>& values, double minimum, double maximum);
