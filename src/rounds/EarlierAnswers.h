// Answers of before, to be taken up again where the same is asked once more.
#pragma once

#include <optional>
#include <vector>

#include "rounds/Comparisons.h"

// What of one goal factor's stored comparisons fits the pairs that are asked now.
struct EarlierAnswers {
    qint16 round;                              // that they were given in
    std::vector<std::optional<int>> positions; // on the comparison scale, in pair order of the present items
    int dropped = 0;                           // stored pairs of factors that are no longer compared
    int offScale = 0; // stored values that the scale does not have: their pairs stay open

    int count() const;
};

// Pairs are known by their factors, whatever place they had then; one that was compared the other way round
// is mirrored.
EarlierAnswers earlierAnswers(qint16 round, const GoalComparisons& stored, const std::vector<qint32>& items);

// One evaluator's: of each goal factor those of the round itself, when it has none those of the round before.
class EarlierRounds {
  public:
    explicit EarlierRounds(const EvaluatorRound& of);

    // Nothing when neither round has any of the goal factor.
    std::optional<EarlierAnswers> of(qint32 goalNo, const std::vector<qint32>& items) const;

  private:
    std::vector<std::pair<qint16, ComparisonsByEvaluator>> rounds_; // the first that has a goal counts
    qint32 evaluatorNo_;
};
