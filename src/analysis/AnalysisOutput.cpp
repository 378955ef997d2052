#include "analysis/AnalysisOutput.h"

#include <set>

#include "analysis/FactorValues.h"
#include "analysis/VariationGrade.h"
#include "core/FactorNames.h"
#include "core/Messages.h"
#include "database/Recordset.h"
#include "printing/Report.h"
#include "rounds/RoundSelection.h"
#include "rounds/RoundState.h"
#include "screens/FamilyRows.h"
#include "text/Numbers.h"
#include "text/TextColumns.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int mostNameColumns = 160; // of a line of the heading in landscape

const QList<ReportColumn> figureColumns{
    {u"要因名"_s, 5, 102},
    {u"最小値"_s, 109, 19, Alignment::Point},
    {u"最大値"_s, 130, 19, Alignment::Point},
    {u"平均値"_s, 151, 19, Alignment::Point},
    {u"偏差値"_s, 172, 19, Alignment::Point},
    {u"幾平均"_s, 193, 19, Alignment::Point},
};

// The figures, then the numbers of evaluators in the seven classes.
QList<ReportColumn> allColumns() {
    constexpr double left = 218;
    constexpr double width = 10.5;
    QList<ReportColumn> columns = figureColumns;
    for (int number = 0; number < valueClasses; ++number)
        columns.append({QString::number(number), left + number * width, width, Alignment::Right,
                        u"分布（0 が最小、6 が最大）"_s});
    return columns;
}

bool anyoneHasTotals(const ProblemRound& of) {
    return !Recordset(of.connection,
                      u"select * from 評価結果 where レベル = 2 and 課題番号=? and 比較回数=?"
                      " order by 子要因番号",
                      of.problemNo, of.round)
                .eof();
}

// The weights of all edges with the keys of the tree, then the totals of the leaves: evaluator in long3.
void fillTable(const ProblemRound& of) {
    of.connection.execute(u"delete from tempfac");
    of.connection.execute(
        u"insert into tempfac (parent,child,long2,score,score2,long3,dno)"
        " select 親要因番号,子要因番号,レベル,評価値,総合評価値,評価者番号,work2 from 評価結果,workfac"
        " where 課題番号=? and 比較回数=? and 親要因番号=factor and 子要因番号=work1"
        " and レベル <> 2",
        of.problemNo, of.round);
    of.connection.execute(
        u"insert into tempfac (parent,child,long2,score,score2,long3,dno)"
        " select 親要因番号,子要因番号,レベル,総合評価値,総合評価値,評価者番号,? from 評価結果"
        " where 課題番号=? and 比較回数=? and レベル = 2",
        totalsKey, of.problemNo, of.round);
}

struct Analysis {
    QString grade;
    std::set<qint32> evaluators;
    std::vector<FactorValues> tree;
    std::vector<FactorValues> totals;
};

// Numbers of the evaluators whose values are in the table.
std::set<qint32> readEvaluators(Connection& connection) {
    std::set<qint32> numbers;
    for (Recordset rows(connection, u"select distinct long3 from tempfac"); !rows.eof(); rows.moveNext())
        numbers.insert(rows[u"long3"_s].toLong());
    return numbers;
}

Analysis analyse(const ProblemRound& of) {
    const auto levels = numberForReport(of.connection, of.problemNo);
    fillTable(of);
    Analysis analysis{VariationGrade(of), readEvaluators(of.connection), {}, {}};
    for (auto& factor : readFactorValues(
             of.problemNo, {of.connection, u"select * from tempfac order by dno,child"}, u"long3"_s, levels))
        (factor.isTotal ? analysis.totals : analysis.tree).push_back(std::move(factor));
    return analysis;
}

QStringList figures(const QString& name, const FactorValues& factor) {
    const Statistics& group = factor.statistics;
    QStringList cells;
    for (const double figure : {group.minimum(), group.maximum(), group.mean(),
                                group.deviation(negligibleSpread), group.geometricMean(name)})
        cells << formatNumber(figure, u"0.0000"_s);
    std::vector<double> values;
    for (const auto& [evaluatorNo, value] : factor.values) values.push_back(value);
    for (const int count : classCounts(values, group.minimum(), group.maximum()))
        cells << formatNumber(count, u"##0"_s);
    return cells;
}

void printTotals(Report& report, FactorNames& names, const std::vector<FactorValues>& totals) {
    QList<ReportRow> rows;
    for (const auto& factor : totals) {
        const QString name = names[factor.place.factorNo];
        rows.append({QStringList{name} + figures(name, factor)});
    }
    report.newTable(u"総合評価値（最終レベル）"_s, allColumns(), rows);
}

// With the names, by number, where they all have room.
QString evaluatorLine(Connection& connection, const std::set<qint32>& evaluators) {
    QString count = u"評価者 %1名"_s.arg(evaluators.size());
    QStringList names;
    for (const qint32 number : evaluators) names << evaluatorName(connection, number);
    names.removeAll(QString());
    if (names.isEmpty()) return count;
    const QString line = count + u"："_s + names.join(u"、"_s);
    return TextColumns(line) <= mostNameColumns ? line : count;
}

void printAnalysis(Output& output, const ProblemRound& of, const Analysis& analysis) {
    FactorNames names(of.connection);
    const QString problem = names[of.problemNo];
    const QList<HeadingLine> lines{u"変動度:"_s + analysis.grade, problemLine(problem, of.round),
                                   evaluatorLine(of.connection, analysis.evaluators)};
    Report report(output, {u"分析出力"_s, lines, allColumns()}, {u"分析出力"_s, problem, {}, of.round});
    report.foot(readRoundState(of).footLine(report.footColumns()));
    printFamilies(report, names, analysis.tree, [&names](const FactorValues& factor) {
        return figures(names[factor.place.factorNo], factor);
    });
    printTotals(report, names, analysis.totals);
    report.finish();
}

} // namespace

bool PrintAnalysis(Output& output, const RoundSelection& chosen, const WorkOptions& /*options*/,
                   const Progress& progress) {
    if (!anyoneHasTotals(chosen)) {
        Common::refuse(u"選択された課題、評価回数の評価結果が存在しません。"_s);
        return false;
    }
    progress(0, 1, chosen.problemEntry);
    printAnalysis(output, chosen, analyse(chosen));
    progress(1, 1, chosen.problemEntry);
    Common::inform(u" 評価一覧終了"_s);
    return true;
}
