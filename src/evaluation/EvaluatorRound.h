// One evaluator's part of a round.
#pragma once

#include "output/RoundSelection.h"

struct EvaluatorRound {
    Connection& connection;
    qint32 problemNo;
    qint32 evaluatorNo;
    qint16 round;
};

inline EvaluatorRound evaluatorRound(const ProblemRound& of, qint32 evaluatorNo) {
    return {of.connection, of.problemNo, evaluatorNo, of.round};
}
