// What a calculation or a report is about, as the checks of a screen leave it.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

#include "rounds/EvaluatorRound.h"

struct ChosenEvaluator {
    qint32 number;
    QString entry; // "number:name"
};

// With the entries that messages and progress name, as the screens show them.
struct RoundSelection : ProblemRound {
    QString problemEntry; // "number:name"
    QString roundEntry;
    std::vector<ChosenEvaluator> evaluators; // in list order
};

// The entries that are chosen on a screen; empty where nothing is.
struct ChosenEntries {
    QString problem;
    QStringList evaluators; // in list order
    QString round;
};

// The chosen ones with their numbers. More than 101 raise error 9.
std::vector<ChosenEvaluator> chosenEvaluators(const QStringList& entries);

// Hands the choice to the session (ProblemNo, RoundCount, EvaluatorNos and EvaluatorCount) by the shared
// checks and gives it as a value; `withEvaluators` is false for what is made of the whole round. What is
// missing is told in message boxes, and there is no value. The shared checks see the first evaluator; after
// them all chosen ones stand in EvaluatorNos.
std::optional<RoundSelection> checkedSelection(Connection& connection, const ChosenEntries& entries,
                                               bool withEvaluators);

// Whether all chosen evaluators have what the work needs. The first who has not is refused: "設定された条件、
// 課題：… 評価回数:… 評価者:…は評価結果に存在しません", with these words for the round and for the table.
bool allHave(const RoundSelection& chosen, const std::function<bool(qint32 evaluatorNo)>& has,
             const QString& roundWord, const QString& tableName);
