#include "rounds/AnsweredGoals.h"

#include <QStringList>
#include <cmath>
#include <limits>

#include "core/Common.h"
#include "database/Recordset.h"
#include "text/Numbers.h"

using namespace Qt::StringLiterals;

namespace {

std::vector<Factor> readFactors(const QString& sql, const QString& numberColumn, Connection& connection) {
    std::vector<Factor> factors;
    for (Recordset rows(sql, connection); !rows.eof(); rows.moveNext())
        factors.push_back({rows[numberColumn].toLong(), Common::NullToEmpty(rows[u"要因名"_s])});
    return factors;
}

// A set of pairs "a-b", as a text that is the same for the same pairs in any order and direction.
QString pairSet(QStringList pairs) {
    for (auto& pair : pairs) {
        const auto source = pair.section(u'-', 0, 0);
        const auto target = pair.section(u'-', 1);
        if (target < source) pair = target + u'-' + source;
    }
    pairs.sort();
    return pairs.join(u',');
}

QString pairSetOf(const QStringList& children) {
    QStringList pairs;
    for (qsizetype i = 0; i < children.size(); ++i)
        for (qsizetype j = i + 1; j < children.size(); ++j) pairs << children[i] + u'-' + children[j];
    return pairSet(pairs);
}

// What is to be answered, by goal factor.
std::map<qint32, QString> readExpectedPairs(Connection& connection, qint32 problemNo) {
    std::map<qint32, QString> expected;
    for (Recordset rows(
             u"SELECT T1.親要因番号,group_concat(T1.子要因番号) AS children FROM 要因構成 T1,要因 T3 "
             "WHERE T1.課題番号 = %1 AND T1.子要因番号 = T3.要因番号 GROUP BY T1.親要因番号"_s.arg(problemNo),
             connection);
         !rows.eof(); rows.moveNext())
        if (const auto children = Common::NullToEmpty(rows[u"children"_s]).split(u','); children.size() > 1)
            expected[rows[u"親要因番号"_s].toLong()] = pairSetOf(children);
    return expected;
}

AnsweredGoals readAnswered(Connection& connection, qint32 problemNo, const QString& condition) {
    const auto expected = readExpectedPairs(connection, problemNo);
    AnsweredGoals answered;
    for (const auto& [goalNo, pairs] : expected) answered.goals.insert(goalNo);
    for (Recordset rows(u"SELECT 評価者番号,目的要因番号,"
                        "group_concat(比較元要因番号 || '-' || 比較対象要因番号) AS pairs FROM 一対比較 "
                        "WHERE 課題番号 = %1 AND %2 GROUP BY 評価者番号,目的要因番号"_s.arg(problemNo)
                            .arg(condition),
                        connection);
         !rows.eof(); rows.moveNext()) {
        const auto goal = expected.find(rows[u"目的要因番号"_s].toLong());
        if (goal != expected.end() &&
            pairSet(Common::NullToEmpty(rows[u"pairs"_s]).split(u',')) == goal->second)
            answered.byEvaluator[rows[u"評価者番号"_s].toLong()].insert(goal->first);
    }
    return answered;
}

} // namespace

std::vector<Factor> readGoals(Connection& connection, qint32 problemNo) {
    return readFactors(
        u"SELECT T1.課題番号,T1.親要因番号,T3.要因名 FROM 要因構成 T1,要因 T3 "
        "WHERE T1.課題番号 = %1 AND T1.親要因番号 = T3.要因番号 "
        "GROUP BY T1.課題番号,T1.親要因番号,T3.要因名 ORDER BY T1.親要因番号 "_s.arg(problemNo),
        u"親要因番号"_s, connection);
}

std::vector<Factor> comparedChildren(Connection& connection, qint32 problemNo, qint32 goalNo) {
    return readFactors(
        u"SELECT T1.課題番号,T1.子要因番号,T1.子要因表示順,T3.要因名 FROM 要因構成 T1,要因 T3 "
        "WHERE T1.課題番号 = %1 AND T1.親要因番号 = %2 AND T1.子要因番号 = T3.要因番号 "
        " ORDER BY T1.子要因表示順 "_s.arg(problemNo)
            .arg(goalNo),
        u"子要因番号"_s, connection);
}

int AnsweredGoals::count(qint32 evaluatorNo) const {
    const auto answered = byEvaluator.find(evaluatorNo);
    return answered == byEvaluator.end() ? 0 : static_cast<int>(answered->second.size());
}

bool AnsweredGoals::isAnswered(qint32 evaluatorNo, qint32 goalNo) const {
    const auto answered = byEvaluator.find(evaluatorNo);
    return answered != byEvaluator.end() && answered->second.contains(goalNo);
}

std::optional<ProblemRound> shownRound(Connection& connection, const QString& problemNo,
                                       const QString& round) {
    const double number = leadingNumber(round);
    if (std::abs(number) > std::numeric_limits<qint16>::max()) return std::nullopt;
    return ProblemRound{connection, Value(problemNo).toLong(), toInteger(number)};
}

AnsweredGoals readAnsweredGoals(const ProblemRound& of) {
    return readAnswered(of.connection, of.problemNo, u"比較回数 = %1"_s.arg(of.round));
}

AnsweredGoals readAnsweredGoals(const EvaluatorRound& of) {
    return readAnswered(of.connection, of.problemNo,
                        u"比較回数 = %1 AND 評価者番号 = %2"_s.arg(of.round).arg(of.evaluatorNo));
}
