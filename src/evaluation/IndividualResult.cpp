#include "evaluation/IndividualResult.h"

#include <algorithm>

#include "core/FactorNames.h"
#include "core/Messages.h"
#include "database/Recordset.h"
#include "evaluation/ComparisonTable.h"
#include "hierarchy/TreePlace.h"
#include "printing/Report.h"
#include "rounds/EvaluatorRound.h"
#include "rounds/RoundSelection.h"
#include "rounds/RoundState.h"
#include "screens/FamilyRows.h"
#include "text/Numbers.h"

using namespace Qt::StringLiterals;

namespace {

struct TreeRow {
    TreePlace place;
    double value = 0;
    double cumulative = 0;
};

struct TotalRow {
    qint32 factorNo = 0;
    double value = 0;
};

struct IndividualResult {
    std::vector<TreeRow> tree;                // level by level
    std::vector<ComparisonTable> comparisons; // by goal factor, in tree order
    std::vector<TotalRow> totals;             // highest first
};

const QList<ReportColumn> treeColumns{{u"要因名"_s, 5, 136},
                                      {u"評価値"_s, 145, 26, Alignment::Point},
                                      {u"累積評価値"_s, 175, 30, Alignment::Point}};
const QList<ReportColumn> totalColumns{{u"要因名"_s, 5, 136}, {u"総合評価値"_s, 145, 26, Alignment::Point}};

std::vector<TreeRow> readTreeRows(Recordset rows, const TreeLevels& levels) {
    std::vector<TreeRow> tree;
    std::map<TreePair, std::size_t> seen;
    for (; !rows.eof(); rows.moveNext()) {
        const TreePair pair{rows[u"dno"_s].toDouble(), rows[u"parent"_s].toLong(), rows[u"child"_s].toLong()};
        const auto& [key, parentNo, childNo] = pair;
        const TreePlace place{parentNo, childNo, levelOf(levels, pair, seen[pair]++), key};
        tree.push_back({place, rows[u"val"_s].toDouble(), rows[u"cval"_s].toDouble()});
    }
    std::ranges::stable_sort(tree,
                             [](const auto& one, const auto& other) { return one.place < other.place; });
    return tree;
}

std::vector<TreeRow> readEvaluatedTree(const EvaluatorRound& of, const TreeLevels& levels) {
    return readTreeRows(
        {of.connection,
         u"select factor as parent,work1 as child,work2 as dno,評価値 as val,総合評価値 as cval"
         " from workfac,評価結果 where 課題番号=? and 比較回数=? and 評価者番号=?"
         " and factor = 親要因番号 and work1 = 子要因番号 and レベル < 2 order by work2",
         of.problemNo, of.round, of.evaluatorNo},
        levels);
}

std::vector<TreeRow> readBareTree(Connection& connection, const TreeLevels& levels) {
    return readTreeRows({connection,
                         u"select t1.factor as parent,t1.work1 as child,t1.work2 as dno,0 as val,0 as cval"
                         " from workfac t1 order by t1.work2"},
                        levels);
}

std::vector<TotalRow> readTotals(const EvaluatorRound& of) {
    std::vector<TotalRow> totals;
    for (Recordset rows(
             of.connection,
             u"select 子要因番号,総合評価値 from 評価結果 where 課題番号=? and 比較回数=? and 評価者番号=?"
             " and レベル=2 order by 総合評価値 desc",
             of.problemNo, of.round, of.evaluatorNo);
         !rows.eof(); rows.moveNext())
        totals.push_back({rows[u"子要因番号"_s].toLong(), rows[u"総合評価値"_s].toDouble()});
    return totals;
}

// Once for each parent of the tree, also where the comparisons gave no weights.
std::vector<ComparisonTable> readComparisons(const EvaluatorRound& of, const std::vector<TreeRow>& tree) {
    std::vector<ComparisonTable> comparisons;
    for (const auto& row : tree) {
        const auto goalNo = row.place.parentNo;
        if (std::ranges::find(comparisons, goalNo, &ComparisonTable::goalNo) == comparisons.end())
            comparisons.push_back(readComparisonTable(of, goalNo));
    }
    std::erase_if(comparisons, [](const auto& table) { return table.items.empty(); });
    return comparisons;
}

void printTree(Report& report, FactorNames& names, const std::vector<TreeRow>& tree) {
    printFamilies(report, names, tree, [](const TreeRow& row) {
        return QStringList{formatNumber(row.value, u"0.####"_s), formatNumber(row.cumulative, u"0.####"_s)};
    });
}

void printComparisons(Report& report, FactorNames& names, const ComparisonTable& table) {
    const auto count = static_cast<int>(table.items.size());
    QStringList items;
    QList<QStringList> cells;
    for (int row = 0; row < count; ++row) {
        items << names[table.items[static_cast<std::size_t>(row)]];
        cells << QStringList();
        for (int column = 0; column < count; ++column) cells.last() << table.cells[row][column];
    }
    report.matrix(u"一対比較：%1"_s.arg(names[table.goalNo]), items, cells);
}

void printTotals(Report& report, FactorNames& names, const std::vector<TotalRow>& totals) {
    QList<ReportRow> rows;
    for (const auto& total : totals)
        rows.append({{names[total.factorNo], formatNumber(total.value, u"#0.####"_s)}});
    report.newTable(u"総合評価値（最終レベル）"_s, totalColumns, rows);
}

void printOne(Output& output, FactorNames& names, const EvaluatorRound& of, const IndividualResult& result) {
    const QString evaluator = evaluatorName(of.connection, of.evaluatorNo);
    const QString problem = names[of.problemNo];
    Report report(output,
                  {u"個人結果"_s, {{evaluator, u"様"_s}, {problem, u"（%1）"_s.arg(of.round)}}, treeColumns},
                  {u"個人結果"_s, problem, evaluator, of.round});
    printTree(report, names, result.tree);
    for (const auto& table : result.comparisons) printComparisons(report, names, table);
    printTotals(report, names, result.totals);
    report.finish();
}

} // namespace

bool PrintIndividualResult(Output& output, const RoundSelection& chosen, const WorkOptions& options,
                           const Progress& progress) {
    const auto evaluated = [&chosen](qint32 evaluatorNo) { return hasResults(chosen, evaluatorNo); };
    if (!allHave(chosen, evaluated, u"評価回数"_s, u"評価結果"_s)) return false;
    const auto levels = numberForReport(chosen.connection, chosen.problemNo);
    const auto bareTree = readBareTree(chosen.connection, levels);
    FactorNames names(chosen.connection);
    const auto count = static_cast<int>(chosen.evaluators.size());
    int done = 0;
    for (const auto& evaluator : chosen.evaluators) {
        progress(done++, count, evaluator.entry);
        const auto of = evaluatorRound(chosen, evaluator.number);
        printOne(output, names, of,
                 {.tree = options.showValues ? readEvaluatedTree(of, levels) : bareTree,
                  .comparisons = readComparisons(of, bareTree),
                  .totals = readTotals(of)});
    }
    progress(count, count, {});
    Common::inform(u" 印刷終了"_s);
    return true;
}
