#include "evaluation/ComparisonTable.h"

#include <algorithm>

#include "database/Recordset.h"
#include "evaluation/ChildLimit.h"
#include "rounds/EvaluatorRound.h"
#include "text/Numbers.h"

using namespace Qt::StringLiterals;

namespace {

// Position of a factor, behind the others when it appears for the first time.
int itemOf(std::vector<qint32>& items, qint32 factorNo) {
    const auto found = std::find(items.begin(), items.end(), factorNo);
    const auto position = static_cast<int>(found - items.begin());
    if (found == items.end()) items.push_back(factorNo);
    return position;
}

} // namespace

std::pair<QString, QString> comparisonTexts(double value) {
    if (value == 0) throw RuntimeError(ErrorCode::DivisionByZero);
    if (value == 1) return {u"1"_s, u"1"_s};
    const auto whole = QString::number(toLong(value < 1 ? 1 / value : value));
    const auto reciprocal = u"1/"_s + whole;
    return value < 1 ? std::pair(reciprocal, whole) : std::pair(whole, reciprocal);
}

ComparisonTable readComparisonTable(const EvaluatorRound& of, qint32 goalNo) {
    ComparisonTable table{.goalNo = goalNo, .items = {}, .cells = {}};
    for (Recordset rows(of.connection,
                        u"select 比較元要因番号,比較対象要因番号,比較値 from 一対比較"
                        " where 課題番号=? and 比較回数=? and 評価者番号=? and 目的要因番号=?"
                        " order by 比較表示順",
                        of.problemNo, of.round, of.evaluatorNo, goalNo);
         !rows.eof(); rows.moveNext()) {
        const int source = itemOf(table.items, rows[u"比較元要因番号"_s].toLong());
        const int target = itemOf(table.items, rows[u"比較対象要因番号"_s].toLong());
        if (std::ssize(table.items) > ComparisonTable::size)
            throw tooManyChildren(of.connection, goalNo, ComparisonTable::size);
        std::tie(table.cells[source][target], table.cells[target][source]) =
            comparisonTexts(rows[u"比較値"_s].toDouble());
        table.cells[source][source] = table.cells[target][target] = u"－"_s;
    }
    return table;
}
