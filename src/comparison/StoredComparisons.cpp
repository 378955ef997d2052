#include "comparison/StoredComparisons.h"

#include "database/Connection.h"
#include "database/Recordset.h"
#include "judgement/PairOrder.h"

using namespace Qt::StringLiterals;

void saveComparisons(const EvaluatorRound& of, qint32 goalNo, const QString& date,
                     const std::vector<qint32>& items, const std::vector<float>& values) {
    if (static_cast<int>(values.size()) != pairCount(static_cast<int>(items.size())))
        throw RuntimeError(ErrorCode::InvalidCall);
    of.connection.execute(
        u"DELETE FROM 一対比較 WHERE 課題番号 = ? AND 目的要因番号 = ? AND 比較回数 = ? AND 評価者番号 = ?",
        of.problemNo, goalNo, of.round, of.evaluatorNo);
    int pair = 0;
    for (std::size_t source = 0; source < items.size(); ++source)
        for (std::size_t target = source + 1; target < items.size(); ++target, ++pair)
            addRecord(of.connection, u"一対比較"_s,
                      {{u"課題番号"_s, of.problemNo},
                       {u"目的要因番号"_s, goalNo},
                       {u"比較元要因番号"_s, items[source]},
                       {u"比較対象要因番号"_s, items[target]},
                       {u"評価者番号"_s, of.evaluatorNo},
                       {u"比較回数"_s, of.round},
                       {u"比較日付"_s, date},
                       {u"比較表示順"_s, pair + 1},
                       {u"比較値"_s, static_cast<double>(values[static_cast<std::size_t>(pair)])}});
}
