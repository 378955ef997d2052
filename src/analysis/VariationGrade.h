// How far the evaluators of a round agree.
#pragma once

#include <QString>

struct ProblemRound;

// The grade of the round, "A" (they agree) to "E", of the evaluators' local weights. Without results the
// round has the grade "A". Raises error 9 for more than 20 children of one parent.
QString VariationGrade(const ProblemRound& of);
