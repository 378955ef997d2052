// Whose results of a round there are, and whether they belong to the answers.
#pragma once

#include <QString>
#include <vector>

#include "rounds/EvaluatorRound.h"

// Whether the evaluator has overall weights: results are complete with them, and what an error in the middle
// of a calculation leaves has none.
bool hasResults(const ProblemRound& of, qint32 evaluatorNo);

enum class AnswerState { None, Partial, Complete };

enum class ResultState {
    None,    // not calculated
    Stopped, // an error ended the calculation before the overall weights
    Old,     // the present answers and the present structure give others
    Partial, // leaves have none: weights above them did not converge
    Foreign, // factors have some that stand in the structure no longer: what was answered below them counts
             // on
    Complete,
};

struct EvaluatorState {
    qint32 number = 0;
    QString name; // the number of whoever has none
    bool isAssigned = false;
    bool hasTotals = false; // overall weights, which go into what is made of the whole round
    int goals = 0;          // answered
    int leaves = 0;         // with an overall weight
    AnswerState answers = AnswerState::None;
    ResultState results = ResultState::None;

    bool isComplete() const {
        return isAssigned && answers == AnswerState::Complete && results == ResultState::Complete;
    }
};

struct RoundState {
    int goals = 0;                          // to be answered
    int leaves = 0;                         // to get a weight
    std::vector<EvaluatorState> evaluators; // those assigned by number, then others who have results

    bool isComplete() const;
    // Whether results go in that are older than the answers: what is calculated from the answers must not
    // stand beside them.
    bool hasOldResults() const;
    // "評価結果 3 / 5 名（途中: 田中 13/14 目的、回答より古い: 鈴木、計算前: 小林）"
    QString line() const;
    // The same in at most so many half-width columns, with numbers of evaluators where names have no room;
    // empty when the round is complete. For the foot of a page.
    QString footLine(int columns) const;
    // What stands in the brackets, of these evaluators alone.
    QString notesOf(const std::vector<qint32>& evaluatorNos) const;
};

// In few statements however many evaluators there are.
RoundState readRoundState(const ProblemRound& of);
