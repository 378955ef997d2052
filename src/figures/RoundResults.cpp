#include "figures/RoundResults.h"

#include <algorithm>
#include <map>

#include "core/FactorNames.h"
#include "database/Recordset.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int totalLevel = 2; // of the rows that hold a leaf's overall weight

// The weights of one edge, or the overall weights of one leaf, by evaluator number.
using ByEvaluator = QHash<qint32, double>;

struct StoredResults {
    std::map<std::pair<qint32, qint32>, ByEvaluator> local; // by parent and child
    QHash<qint32, ByEvaluator> totals;                      // by leaf
    std::map<qint32, QString> evaluators;
};

StoredResults readStored(const ProblemRound& chosen) {
    StoredResults stored;
    for (Recordset rows(chosen.connection,
                        u"select 親要因番号,子要因番号,評価者番号,評価値,レベル,総合評価値 from 評価結果"
                        " where 課題番号=? and 比較回数=? order by 親要因番号,子要因番号",
                        chosen.problemNo, chosen.round);
         !rows.eof(); rows.moveNext()) {
        const auto parentNo = rows[u"親要因番号"_s].toLong();
        const auto childNo = rows[u"子要因番号"_s].toLong();
        const auto evaluatorNo = rows[u"評価者番号"_s].toLong();
        if (rows[u"レベル"_s].toLong() == totalLevel) {
            stored.totals[childNo][evaluatorNo] = rows[u"総合評価値"_s].toDouble();
            stored.evaluators.try_emplace(evaluatorNo);
        } else {
            stored.local[{parentNo, childNo}][evaluatorNo] = rows[u"評価値"_s].toDouble();
        }
    }
    for (auto& [number, name] : stored.evaluators) name = evaluatorName(chosen.connection, number);
    return stored;
}

// The children that somebody has weighted, in the order of the structure; those that no longer stand in it
// come last.
ChildrenByParent weightedChildren(const StoredResults& stored, const ChildrenByParent& structure) {
    ChildrenByParent children;
    for (const auto& [edge, weights] : stored.local) children[edge.first].push_back(edge.second);
    for (auto family = children.begin(); family != children.end(); ++family) {
        const auto order = structure.value(family.key());
        std::ranges::stable_sort(
            *family, {}, [&order](qint32 child) { return std::ranges::find(order, child) - order.begin(); });
    }
    return children;
}

EvaluatorValues inOrder(const ByEvaluator& values, const std::vector<RoundResults::Evaluator>& evaluators) {
    EvaluatorValues ordered;
    for (const auto& evaluator : evaluators) ordered.push_back(values.value(evaluator.number));
    return ordered;
}

} // namespace

std::optional<std::size_t> RoundResults::positionOf(qint32 evaluatorNo) const {
    const auto found = std::ranges::find(evaluators, evaluatorNo, &Evaluator::number);
    if (found == evaluators.end()) return std::nullopt;
    return static_cast<std::size_t>(found - evaluators.begin());
}

RoundResults readRoundResults(const ProblemRound& chosen) {
    const auto& [connection, problemNo, round] = chosen;
    const StoredResults stored = readStored(chosen);
    const auto structure = readStructure(connection, problemNo);
    RoundResults results{.problemNo = problemNo,
                         .round = round,
                         .problem = factorName(connection, problemNo),
                         .evaluators = {},
                         .graph = FactorGraph(problemNo, weightedChildren(stored, structure), structure),
                         .local = {},
                         .totals = {},
                         .names = {}};
    for (const auto& [number, name] : stored.evaluators) results.evaluators.push_back({number, name});
    for (const auto& edge : results.graph.edges())
        results.local.push_back(inOrder(stored.local.at({edge.parentNo, edge.factorNo}), results.evaluators));
    for (std::size_t leaf = 0; leaf < results.graph.leaves().size(); ++leaf)
        results.totals.push_back(inOrder(stored.totals.value(results.leafNo(leaf)), results.evaluators));
    for (const qint32 factorNo : results.graph.factors())
        results.names.insert(factorNo, factorName(connection, factorNo));
    return results;
}

std::vector<qint16> earlierRounds(const ProblemRound& chosen) {
    std::vector<qint16> rounds;
    for (Recordset rows(chosen.connection,
                        u"select distinct 比較回数 from 評価結果 where 課題番号=? and 比較回数<?"
                        " order by 比較回数 desc",
                        chosen.problemNo, chosen.round);
         !rows.eof(); rows.moveNext())
        rounds.push_back(static_cast<qint16>(rows[u"比較回数"_s].toLong()));
    return rounds;
}
