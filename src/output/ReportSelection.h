// What a calculation or a report is made of: a problem, evaluators, a round.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class Connection;

// The entries as the screens show them, "number:name"; empty where nothing is chosen.
struct ReportSelection {
    QString problemEntry;
    QStringList evaluatorEntries; // in list order
    QString roundEntry;
};

// All problems, the evaluators assigned to a problem by number, and its current round ("1" when it has none).
QStringList problemEntries(Connection& connection);
QStringList evaluatorEntries(Connection& connection, const QString& problemNo);
QString currentRound(Connection& connection, const QString& problemNo);

// The number before the ":" of an entry, as text.
QString entryNumber(const QString& entry);

// Hands the choice to the session: ProblemNo, RoundCount, EvaluatorNos and EvaluatorCount. What is missing is
// told in message boxes, and the result is false. The shared checks see the first evaluator; after them all
// chosen ones stand in EvaluatorNos. More than 101 evaluators raise error 9.
bool takeSelection(const ReportSelection& selection);
// The same for what is made of all evaluators of the round.
bool takeProblemAndRound(const ReportSelection& selection);

// Whether all chosen evaluators (EvaluatorNos) have what the report needs. The first who has not is refused.
bool allHaveResults(const ReportSelection& selection,
                    const std::function<bool(qint32 evaluatorNo)>& hasResults);

// The refusal of a report: "設定された条件、課題：… 評価回数:… 評価者:…は評価結果に存在しません", with the
// words that stand for the round and for the table.
void refuseMissing(const ReportSelection& selection, const QString& evaluatorEntry, const QString& roundWord,
                   const QString& tableName);
