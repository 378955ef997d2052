// Whose results of a round there are.
#pragma once

#include <QString>

struct ProblemRound;

// Whether the evaluator has overall weights: results are complete with them, and what an error in the middle
// of a calculation leaves has none.
bool hasResults(const ProblemRound& of, qint32 evaluatorNo);

// Whose results go into what is made of the whole round: "評価結果 4 / 5 名（なし: 小林 千鶴）". Those of
// evaluators whom the problem has no longer are named, too.
QString resultsLine(const ProblemRound& of);
