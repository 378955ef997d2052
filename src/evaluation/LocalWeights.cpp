#include "evaluation/LocalWeights.h"

#include <array>
#include <cmath>

#include "evaluation/EvaluatorRound.h"
#include "evaluation/PowerMethod.h"
#include "platform/Connection.h"
#include "platform/Numbers.h"
#include "platform/Recordset.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int pairLimit = 21;
constexpr double consistencyIndexLimit = 0.15;
constexpr double consistencyRatioLimit = 0.15;
constexpr double pairDeviationLimit = 3.0;

// The random index RI, looked up with the number of items itself: three items use 0.9.
constexpr std::array randomIndex{0.0, 0.0, 0.58, 0.9, 1.12, 1.24, 1.32, 1.41, 1.45, 1.49, 1.49, 1.51, 1.53};

// The comparisons under one goal factor, in pair order: row by row over the upper triangle.
struct GoalPairs {
    qint32 goalNo = 0;
    int count = 0;
    BoundedArray<qint32, pairLimit> source;
    BoundedArray<qint32, pairLimit> target;
    BoundedArray<double, pairLimit> value;
};

// Reads the rows of one goal factor and leaves the record set at the next one.
GoalPairs readGoal(Recordset& rows) {
    GoalPairs pairs;
    pairs.goalNo = rows[u"目的要因番号"_s].toLong();
    for (; !rows.eof() && rows[u"目的要因番号"_s].toLong() == pairs.goalNo; rows.moveNext()) {
        pairs.source[pairs.count] = rows[u"比較元要因番号"_s].toLong();
        pairs.target[pairs.count] = rows[u"比較対象要因番号"_s].toLong();
        pairs.value[pairs.count] = rows[u"比較値"_s].toDouble();
        ++pairs.count;
    }
    return pairs;
}

// The number of items that a full set of pairs has.
qint16 itemCount(const GoalPairs& pairs) {
    const auto n = toInteger((std::sqrt(8.0 * pairs.count + 1) + 1) / 2);
    if (n * (n - 1) / 2 != pairs.count)
        throw RuntimeError(
            ErrorCode::InvalidCall,
            u"目的要因 %1 の一対比較が不完全です（%2 組）。比較値を登録し直してください。"_s.arg(pairs.goalNo)
                .arg(pairs.count));
    return n;
}

int pairNumber(int i, int j, int n) {
    return i * n - i * (i + 1) / 2 + j - i - 1;
}

void fillMatrix(ComparisonMatrix& comparison, const GoalPairs& pairs, int n) {
    for (int i = 0; i < n; ++i) {
        comparison.value[i][i] = 1;
        for (int j = i + 1; j < n; ++j) {
            const double value = pairs.value[pairNumber(i, j, n)];
            if (value == 0) throw RuntimeError(ErrorCode::DivisionByZero);
            comparison.value[i][j] = value;
            comparison.value[j][i] = 1 / value;
        }
    }
}

bool isConsistent(double eigenvalue, int n) {
    const double consistencyIndex = (eigenvalue - n) / (n - 1);
    const double consistencyRatio = consistencyIndex / randomIndex.at(static_cast<std::size_t>(n));
    return !(consistencyIndex > consistencyIndexLimit || consistencyRatio > consistencyRatioLimit);
}

void findInconsistentPairs(const EvaluatorRound& of, const ComparisonMatrix& comparison,
                           const GoalPairs& pairs, int n, InconsistencyList& findings) {
    const auto before = findings.count();
    const auto& w = comparison.weight;
    for (int i = 0; i < n - 1; ++i)
        for (int j = i + 1; j < n; ++j) {
            const int k = pairNumber(i, j, n);
            if (std::abs(w[i] / w[j] - pairs.value[k]) > pairDeviationLimit)
                findings.append({of.evaluatorNo, pairs.goalNo, pairs.source[k], pairs.target[k]});
        }
    if (findings.count() == before) findings.append({.evaluatorNo = of.evaluatorNo, .goalNo = pairs.goalNo});
}

void writeWeight(const EvaluatorRound& of, qint32 goalNo, qint32 childNo, double weight) {
    of.connection.execute(
        u"insert into 評価結果 (課題番号,親要因番号,子要因番号,評価者番号,比較回数,評価値,レベル,総合評価値) values(%1,%2,%3,%4,%5,%6,0,0)"_s
            .arg(of.problemNo)
            .arg(goalNo)
            .arg(childNo)
            .arg(of.evaluatorNo)
            .arg(of.round)
            .arg(decimalText(weight)));
}

// Item 0 is the source of the first pair, item j the target of pair j - 1.
void writeWeights(const EvaluatorRound& of, const ComparisonMatrix& comparison, const GoalPairs& pairs,
                  int n) {
    writeWeight(of, pairs.goalNo, pairs.source[0], comparison.weight[0]);
    for (int i = 0; i <= n - 2; ++i) writeWeight(of, pairs.goalNo, pairs.target[i], comparison.weight[i + 1]);
}

// False when the weights of the goal factor do not converge.
bool calculateGoal(const EvaluatorRound& of, const GoalPairs& pairs, ComparisonMatrix& comparison,
                   InconsistencyList& findings) {
    const auto n = itemCount(pairs);
    fillMatrix(comparison, pairs, n);
    if (!power(comparison, n)) {
        findings.append({.evaluatorNo = of.evaluatorNo, .goalNo = pairs.goalNo});
        return false;
    }
    if (!isConsistent(comparison.eigenvalue, n)) findInconsistentPairs(of, comparison, pairs, n, findings);
    writeWeights(of, comparison, pairs, n);
    return true;
}

} // namespace

void InconsistencyList::append(const Inconsistency& finding) {
    entries_[count_] = finding;
    ++count_;
}

ComparisonData calculateLocalWeights(Connection& connection, qint32 problemNo, qint32 evaluatorNo,
                                     qint16 round, InconsistencyList& findings) {
    const EvaluatorRound of{connection, problemNo, evaluatorNo, round};
    Recordset rows(
        u"select * from 一対比較 where 課題番号=%1 and 比較回数=%2 and 評価者番号=%3 order by 目的要因番号,比較表示順"_s
            .arg(problemNo)
            .arg(round)
            .arg(evaluatorNo),
        connection);
    if (rows.recordCount() == 0) return ComparisonData::Missing;

    connection.execute(
        u"delete from 評価結果 where 課題番号=%1 and 評価者番号=%2 and 比較回数=%3"_s.arg(problemNo)
            .arg(evaluatorNo)
            .arg(round));
    ComparisonMatrix comparison;
    while (!rows.eof()) {
        const GoalPairs pairs = readGoal(rows);
        if (!calculateGoal(of, pairs, comparison, findings)) break;
    }
    return ComparisonData::Present;
}
