#include "evaluation/InconsistencyReport.h"

#include "core/FactorNames.h"
#include "evaluation/LocalWeights.h"
#include "printing/Report.h"
#include "rounds/RoundSelection.h"

using namespace Qt::StringLiterals;

namespace {

const QList<ReportColumn> columns{
    {u"目的要因"_s, 5, 66}, {u"比較元要因"_s, 72, 66}, {u"比較対象要因"_s, 139, 66}};

int runEnd(const InconsistencyList& findings, int begin) {
    int end = begin;
    while (end < findings.count() && findings[end].evaluatorNo == findings[begin].evaluatorNo) ++end;
    return end;
}

QStringList cells(Connection& connection, const Inconsistency& finding) {
    const QString goal = factorName(connection, finding.goalNo);
    if (finding.sourceNo < 0) return {goal, u"全体的に不整合"_s};
    return {goal, factorName(connection, finding.sourceNo), factorName(connection, finding.targetNo)};
}

} // namespace

void printInconsistencyReport(Output& output, const ProblemRound& of, const InconsistencyList& findings) {
    if (findings.count() == 0) return;
    const QString problem = factorName(of.connection, of.problemNo);
    const auto evaluatorAt = [&](int index) {
        return evaluatorName(of.connection, findings[index].evaluatorNo);
    };
    const bool single = runEnd(findings, 0) == findings.count();

    Report report(output, {u"評価計算"_s, {}, columns},
                  {u"評価計算"_s, problem, single ? evaluatorAt(0) : u"全評価者"_s, of.round});
    for (int begin = 0; begin < findings.count();) {
        const int end = runEnd(findings, begin);
        const QString evaluator = evaluatorAt(begin);
        output.fillSlots(evaluator, problem, of.round);
        report.newPart({{evaluator, u"様"_s}, problemLine(problem, of.round)});
        report.message(output.FileDir + u"\\errmsg.txt"_s);
        for (; begin < end; ++begin) report.row(cells(of.connection, findings[begin]));
    }
    report.finish();
}
