#include "evaluation/IndividualResult.h"

#include <algorithm>

#include "core/Common.h"
#include "evaluation/ComparisonTable.h"
#include "hierarchy/FamilyRows.h"
#include "hierarchy/NumberHierarchy.h"
#include "hierarchy/TreePlace.h"
#include "core/FactorNames.h"
#include "output/ReportPage.h"
#include "platform/Numbers.h"
#include "platform/Recordset.h"

using namespace Qt::StringLiterals;
using namespace Common;

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

bool hasResults(qint32 evaluatorNo) {
    return !Recordset(u"select 子要因番号 from 評価結果 where 課題番号=%1 and 比較回数=%2 and 評価者番号=%3"_s
                          .arg(ProblemNo)
                          .arg(RoundCount)
                          .arg(evaluatorNo),
                      *DbConn)
                .eof();
}

std::vector<TreeRow> readTree(const QString& sql, const QHash<double, int>& levels) {
    std::vector<TreeRow> tree;
    for (Recordset rows(sql, *DbConn); !rows.eof(); rows.moveNext()) {
        const TreePlace place{rows[u"parent"_s].toLong(), rows[u"child"_s].toLong(),
                              levels[rows[u"dno"_s].toDouble()]};
        tree.push_back({place, rows[u"val"_s].toDouble(), rows[u"cval"_s].toDouble()});
    }
    return tree;
}

std::vector<TreeRow> readEvaluatedTree(qint32 evaluatorNo, const QHash<double, int>& levels) {
    return readTree(
        u"select factor as parent,work1 as child,work2 as dno,評価値 as val,総合評価値 as cval"
        " from workfac,評価結果 where 課題番号=%1 and 比較回数=%2 and 評価者番号=%3"
        " and factor = 親要因番号 and work1 = 子要因番号 and レベル < 2 order by work2"_s.arg(ProblemNo)
            .arg(RoundCount)
            .arg(evaluatorNo),
        levels);
}

std::vector<TreeRow> readBareTree(const QHash<double, int>& levels) {
    return readTree(
        u"select t1.factor as parent,t1.work1 as child,t1.work2 as dno,0 as val,0 as cval"
        " from workfac t1 order by t1.work2"_s,
        levels);
}

std::vector<TotalRow> readTotals(qint32 evaluatorNo) {
    std::vector<TotalRow> totals;
    for (Recordset rows(
             u"select 子要因番号,総合評価値 from 評価結果 where 課題番号=%1 and 比較回数=%2 and 評価者番号=%3"
             " and レベル=2 order by 総合評価値 desc"_s.arg(ProblemNo)
                 .arg(RoundCount)
                 .arg(evaluatorNo),
             *DbConn);
         !rows.eof(); rows.moveNext())
        totals.push_back({rows[u"子要因番号"_s].toLong(), rows[u"総合評価値"_s].toDouble()});
    return totals;
}

// Once for each parent of the tree, also where the comparisons gave no weights.
std::vector<ComparisonTable> readComparisons(qint32 evaluatorNo, const std::vector<TreeRow>& tree) {
    std::vector<ComparisonTable> comparisons;
    for (const auto& row : tree) {
        const auto goalNo = row.place.parentNo;
        if (std::ranges::find(comparisons, goalNo, &ComparisonTable::goalNo) == comparisons.end())
            comparisons.push_back(readComparisonTable(*DbConn, ProblemNo, RoundCount, evaluatorNo, goalNo));
    }
    std::erase_if(comparisons, [](const auto& table) { return table.items.empty(); });
    return comparisons;
}

IndividualResult collect(qint32 evaluatorNo, bool showValues, const QHash<double, int>& levels) {
    const auto bareTree = readBareTree(levels);
    return {showValues ? readEvaluatedTree(evaluatorNo, levels) : bareTree,
            readComparisons(evaluatorNo, bareTree), readTotals(evaluatorNo)};
}

void printTree(ReportPage& page, FactorNames& names, const std::vector<TreeRow>& tree) {
    printFamilies(page, names, tree, [](const TreeRow& row) {
        return QStringList{formatNumber(row.value, u"0.####"_s), formatNumber(row.cumulative, u"0.####"_s)};
    });
}

void printComparisons(ReportPage& page, FactorNames& names, const ComparisonTable& table) {
    const auto count = static_cast<int>(table.items.size());
    QStringList items;
    QList<QStringList> cells;
    for (int row = 0; row < count; ++row) {
        items << names[table.items[static_cast<std::size_t>(row)]];
        cells << QStringList();
        for (int column = 0; column < count; ++column) cells.last() << table.cells[row][column];
    }
    page.matrix(u"一対比較：%1"_s.arg(names[table.goalNo]), items, cells);
}

void printTotals(ReportPage& page, FactorNames& names, const std::vector<TotalRow>& totals) {
    page.newTable(u"総合評価値（最終レベル）"_s, totalColumns, static_cast<int>(totals.size()));
    for (const auto& total : totals)
        page.row({names[total.factorNo], formatNumber(total.value, u"#0.####"_s)});
}

void printOne(PrintService& print, FactorNames& names, qint32 evaluatorNo, const IndividualResult& result) {
    const QString evaluator = evaluatorName(*DbConn, evaluatorNo);
    const QString problem = names[ProblemNo];
    ReportPage page(
        print, {u"個人結果"_s, {{evaluator, u"様"_s}, {problem, u"（%1）"_s.arg(RoundCount)}}, treeColumns},
        {u"個人結果"_s, problem, evaluator});
    printTree(page, names, result.tree);
    for (const auto& table : result.comparisons) printComparisons(page, names, table);
    printTotals(page, names, result.totals);
    page.finish();
}

} // namespace

bool PrintIndividualResult(PrintService& print, const ReportSelection& selection, bool showValues,
                           const Progress& progress) {
    if (!takeSelection(selection) || !allHaveResults(selection, hasResults)) return false;
    NumberHierarchy(*DbConn, ProblemNoText, 1);
    copyToWorkfac(*DbConn);
    const auto levels = levelsByKey(*DbConn);
    FactorNames names(*DbConn);
    for (int index = 0; index < EvaluatorCount; ++index) {
        progress(index, EvaluatorCount, selection.evaluatorEntries[index]);
        printOne(print, names, EvaluatorNos[index], collect(EvaluatorNos[index], showValues, levels));
    }
    progress(EvaluatorCount, EvaluatorCount, {});
    inform(u" 印刷終了"_s);
    return true;
}
