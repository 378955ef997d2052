// Whose results of a round there are.
#pragma once

#include <QString>
#include <QStringList>

struct ProblemRound;

// Whether the evaluator has overall weights: results are complete with them, and what an error in the middle
// of a calculation leaves has none.
bool hasResults(const ProblemRound& of, qint32 evaluatorNo);

// Names of evaluators by number.
struct RoundResults {
    int assigned = 0;    // evaluators of the problem
    QStringList missing; // those of them who have no results
    QStringList others;  // who have results, but are evaluators of the problem no longer
};

RoundResults roundResults(const ProblemRound& of);

// "評価結果 4 / 5 名（なし: 小林 千鶴）".
QString resultsLine(const ProblemRound& of);
