// Whose comparisons and results a procedure is about.
#pragma once

#include <QtGlobal>

class Connection;

// A round of a problem.
struct ProblemRound {
    Connection& connection;
    qint32 problemNo;
    qint16 round;
};

// One evaluator's part of a round.
struct EvaluatorRound {
    Connection& connection;
    qint32 problemNo;
    qint32 evaluatorNo;
    qint16 round;
};

inline EvaluatorRound evaluatorRound(const ProblemRound& of, qint32 evaluatorNo) {
    return {of.connection, of.problemNo, evaluatorNo, of.round};
}
