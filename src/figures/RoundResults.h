// The results of a round in memory: what figures are made of.
#pragma once

#include <QHash>
#include <QString>
#include <optional>
#include <vector>

#include "figures/FactorGraph.h"
#include "rounds/RoundSelection.h"

// Values stand by evaluator, in the order of `evaluators`; 0 where an evaluator has none.
using EvaluatorValues = std::vector<double>;

struct RoundResults {
    struct Evaluator {
        qint32 number;
        QString name;
    };

    qint32 problemNo;
    qint16 round;
    QString problem;
    std::vector<Evaluator> evaluators; // who have results, by number
    FactorGraph graph;
    std::vector<EvaluatorValues> local;  // local weights, for each edge of the graph
    std::vector<EvaluatorValues> totals; // overall weights, for each leaf of the graph
    QHash<qint32, QString> names;        // of all factors of the graph
    QString foot{}; // whose results are missing or older than the answers, for the foot of a figure

    std::optional<std::size_t> positionOf(qint32 evaluatorNo) const;
    qint32 leafNo(std::size_t leaf) const {
        return graph.factors()[static_cast<std::size_t>(graph.leaves()[leaf])];
    }
};

// As the calculation has stored them; without evaluators when the round has none. Raises error 5 when the
// hierarchy runs in a circle.
RoundResults readRoundResults(const ProblemRound& chosen);

// The rounds before this one that have results, the latest first.
std::vector<qint16> earlierRounds(const ProblemRound& chosen);
