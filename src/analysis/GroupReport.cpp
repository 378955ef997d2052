#include "analysis/GroupReport.h"

#include <algorithm>
#include <functional>

#include "analysis/FactorValues.h"
#include "core/FactorNames.h"
#include "core/Messages.h"
#include "database/Recordset.h"
#include "printing/Report.h"
#include "rounds/EvaluatorRound.h"
#include "rounds/RoundSelection.h"
#include "rounds/RoundState.h"
#include "text/Numbers.h"

using namespace Qt::StringLiterals;

namespace {

const QString own = u"あなた"_s;
const QString whole = u"全体"_s;
const QList<ReportColumn> columns{
    {u"目的要因"_s, 5, 48},
    {u"要因"_s, 55, 50},
    {u"評価値"_s, 106, 15, Alignment::Point, own},
    {u"順位"_s, 122, 10, Alignment::Right, own},
    {u"最小値"_s, 136, 15, Alignment::Point, whole},
    {u"最大値"_s, 154, 15, Alignment::Point, whole},
    {u"算術平均"_s, 172, 15, Alignment::Point, whole},
    {u"幾何平均"_s, 190, 15, Alignment::Point, whole},
};
const QString totalsLabel = u"総合評価値（最終レベル）"_s;
const QString labelBlank(14, u' ');

// Value and rank of the evaluator: the values come in descending order. Blank where there is no value.
QStringList ownCells(const FactorValues& factor, qint32 evaluatorNo) {
    const auto found = std::ranges::find(factor.values, evaluatorNo, &EvaluatorValue::evaluatorNo);
    if (found == factor.values.end()) return {QString(), QString()};
    const auto rank = std::distance(factor.values.begin(), found) + 1;
    return {formatNumber(found->value, u"0.0000"_s), formatNumber(static_cast<double>(rank), u"##0"_s)};
}

QStringList groupCells(const QString& factor, const Statistics& group) {
    QStringList cells;
    for (const double figure : {group.minimum(), group.maximum(), group.mean(), group.geometricMean(factor)})
        cells << formatNumber(figure, u"0.0000"_s);
    return cells;
}

// What the documents of all evaluators say alike of a factor.
struct GroupRow : FactorValues {
    QString parent;
    QString name;
    QStringList figures;
};

std::vector<GroupRow> groupRows(FactorNames& names, std::vector<FactorValues> factors) {
    std::vector<GroupRow> rows;
    for (auto& factor : factors) {
        const QString name = names[factor.place.factorNo];
        const QString parent = factor.isTotal ? labelBlank : names[factor.place.parentNo];
        const QStringList figures = groupCells(name, factor.statistics);
        rows.push_back({std::move(factor), parent, name, figures});
    }
    return rows;
}

void printFactors(Report& report, const std::vector<GroupRow>& rows, qint32 evaluatorNo) {
    for (std::size_t begin = 0; begin < rows.size();) {
        const auto end = familyEnd(rows, begin);
        RowGroup family;
        if (rows[begin].isTotal) family.label = totalsLabel;
        for (; begin < end; ++begin) {
            const auto& row = rows[begin];
            family.rows.append(
                {QStringList{row.parent, row.name} + ownCells(row, evaluatorNo) + row.figures});
        }
        report.group(family);
    }
}

// The document of one evaluator. `rows` are made for the first document and kept for the others.
void PrintGroupReport(Output& output, const EvaluatorRound& of, const QString& problem,
                      const RoundState& state, const std::function<const std::vector<GroupRow>&()>& rows) {
    const QString evaluator = evaluatorName(of.connection, of.evaluatorNo);
    output.fillSlots(evaluator, problem, of.round);
    Report report(output, {u"報告作成"_s, {{evaluator, u"様"_s}, problemLine(problem, of.round)}, columns},
                  {u"報告作成"_s, problem, evaluator, of.round});
    report.foot(state.footLine(report.footColumns()));
    report.coveringLetter(output.FileDir + u"\\message.txt"_s);
    printFactors(report, rows(), of.evaluatorNo);
    report.finish();
}

} // namespace

bool MakeGroupReport(Output& output, const RoundSelection& chosen, const WorkOptions& /*options*/,
                     const Progress& progress) {
    const auto evaluated = [&chosen](qint32 evaluatorNo) { return hasResults(chosen, evaluatorNo); };
    if (!allHave(chosen, evaluated, u"評価回数"_s, u"評価結果"_s)) return false;
    const auto count = static_cast<int>(chosen.evaluators.size());
    int done = 0;
    progress(done, count, {});
    const auto levels = FillGroupTable(chosen);
    FactorNames names(chosen.connection);
    auto factors = readFactorValues(
        chosen.problemNo, {chosen.connection, u"select * from tempfac order by dno,child,score desc"},
        u"long2"_s, levels);
    std::vector<GroupRow> rows;
    const auto rowsOnce = [&]() -> const std::vector<GroupRow>& {
        if (rows.empty()) rows = groupRows(names, std::move(factors));
        return rows;
    };
    const auto state = readRoundState(chosen);
    for (const auto& evaluator : chosen.evaluators) {
        progress(done++, count, evaluator.entry);
        PrintGroupReport(output, evaluatorRound(chosen, evaluator.number), names[chosen.problemNo], state,
                         rowsOnce);
    }
    progress(count, count, {});
    Common::inform(u" 印刷終了"_s);
    return true;
}

TreeLevels FillGroupTable(const ProblemRound& of) {
    auto& connection = of.connection;
    auto levels = numberForReport(connection, of.problemNo);
    connection.execute(u"delete from tempfac");
    // A leaf right below the problem has a row of level 2 with the same parent: its value counts paths.
    connection.execute(
        u"insert into tempfac(parent,child,dno,score,long2)"
        " select t1.factor,t1.work1,t1.work2,t2.評価値,t2.評価者番号"
        " from workfac t1,評価結果 t2 where t2.課題番号 = ? and t2.比較回数=?"
        " and t1.work1 = t2.子要因番号 and t1.factor = t2.親要因番号 and t2.レベル <> 2",
        of.problemNo, of.round);
    connection.execute(
        u"insert into tempfac(parent,child,dno,score,long2)"
        " select 親要因番号,子要因番号,?,総合評価値,評価者番号"
        " from 評価結果 where 課題番号 = ? and 比較回数=? and レベル=2",
        totalsKey, of.problemNo, of.round);
    return levels;
}
