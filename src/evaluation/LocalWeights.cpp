#include "evaluation/LocalWeights.h"

#include "core/FactorNames.h"
#include "core/Messages.h"
#include "database/Connection.h"
#include "database/Recordset.h"
#include "evaluation/ChildLimit.h"
#include "judgement/Consistency.h"
#include "judgement/PairOrder.h"
#include "judgement/PowerMethod.h"
#include "rounds/EvaluatorRound.h"
#include "text/Numbers.h"

using namespace Qt::StringLiterals;

namespace {

// The comparisons under one goal factor, in pair order: row by row over the upper triangle.
struct GoalPairs {
    qint32 goalNo = 0;
    int count = 0;
    BoundedArray<qint32, mostCalculatedPairs> source;
    BoundedArray<qint32, mostCalculatedPairs> target;
    std::vector<double> value;
};

// Reads the rows of one goal factor and leaves the record set at the next one.
GoalPairs readGoal(Connection& connection, Recordset& rows) {
    GoalPairs pairs;
    pairs.goalNo = rows[u"目的要因番号"_s].toLong();
    for (; !rows.eof() && rows[u"目的要因番号"_s].toLong() == pairs.goalNo; rows.moveNext()) {
        if (pairs.count == mostCalculatedPairs)
            throw tooManyChildren(connection, pairs.goalNo, itemCount(mostCalculatedPairs).value());
        pairs.source[pairs.count] = rows[u"比較元要因番号"_s].toLong();
        pairs.target[pairs.count] = rows[u"比較対象要因番号"_s].toLong();
        pairs.value.push_back(rows[u"比較値"_s].toDouble());
        ++pairs.count;
    }
    return pairs;
}

// The number of items that a full set of pairs has.
qint16 itemsOf(Connection& connection, const GoalPairs& pairs) {
    if (const auto n = itemCount(pairs.count)) return static_cast<qint16>(*n);
    throw RuntimeError(ErrorCode::InvalidCall,
                       u"目的要因「%1」の一対比較が不完全です（%2 組）。比較値を登録し直してください。"_s
                           .arg(factorName(connection, pairs.goalNo))
                           .arg(pairs.count));
}

void findInconsistentPairs(const EvaluatorRound& of, const ComparisonMatrix& comparison,
                           const GoalPairs& pairs, int n, InconsistencyList& findings) {
    const auto atOdds = pairsAtOdds(comparison, n);
    for (const auto& pair : atOdds)
        findings.append({of.evaluatorNo, pairs.goalNo, pairs.source[pair.number], pairs.target[pair.number]});
    if (atOdds.empty()) findings.append({.evaluatorNo = of.evaluatorNo, .goalNo = pairs.goalNo});
}

// False when the weights do not converge; too many items are told.
bool weigh(ComparisonMatrix& comparison, qint16 n) {
    const Convergence convergence = power(comparison, n);
    if (convergence == Convergence::TooManyItems) Common::refuse(u"項目数は20までです"_s);
    return convergence == Convergence::Converged;
}

void writeWeight(const EvaluatorRound& of, qint32 goalNo, qint32 childNo, double weight) {
    of.connection.execute(
        u"insert into 評価結果 (課題番号,親要因番号,子要因番号,評価者番号,比較回数,評価値,レベル,総合評価値) "
        u"values(?,?,?,?,?,?,0,0)",
        of.problemNo, goalNo, childNo, of.evaluatorNo, of.round, weight);
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
    const auto n = itemsOf(of.connection, pairs);
    fillMatrix(comparison, pairs.value, n);
    if (!weigh(comparison, n)) {
        findings.append({.evaluatorNo = of.evaluatorNo, .goalNo = pairs.goalNo});
        return false;
    }
    if (!consistencyOf(comparison.eigenvalue, n).isAcceptable())
        findInconsistentPairs(of, comparison, pairs, n, findings);
    writeWeights(of, comparison, pairs, n);
    return true;
}

} // namespace

void InconsistencyList::append(const Inconsistency& finding) {
    if (count_ == static_cast<qint16>(decltype(entries_)::size()))
        throw RuntimeError(
            ErrorCode::SubscriptOutOfRange,
            u"インデックスが有効範囲にありません。\n"
            "一度に報告できる不整合は %1 件までです。評価者を分けて計算してください。"_s.arg(count_));
    entries_[count_] = finding;
    ++count_;
}

bool hasComparisons(const EvaluatorRound& of) {
    return !Recordset(
                of.connection,
                u"select 目的要因番号 from 一対比較 where 課題番号=? and 比較回数=? and 評価者番号=? limit 1",
                of.problemNo, of.round, of.evaluatorNo)
                .eof();
}

void calculateLocalWeights(const EvaluatorRound& of, InconsistencyList& findings) {
    Recordset rows(of.connection,
                   u"select * from 一対比較 where 課題番号=? and 比較回数=? and 評価者番号=? order by "
                   u"目的要因番号,比較表示順",
                   of.problemNo, of.round, of.evaluatorNo);
    if (rows.eof()) return;

    of.connection.execute(u"delete from 評価結果 where 課題番号=? and 評価者番号=? and 比較回数=?",
                          of.problemNo, of.evaluatorNo, of.round);
    ComparisonMatrix comparison;
    while (!rows.eof()) {
        const GoalPairs pairs = readGoal(of.connection, rows);
        if (!calculateGoal(of, pairs, comparison, findings)) break;
    }
}
