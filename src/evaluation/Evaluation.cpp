#include "evaluation/Evaluation.h"

#include "core/Common.h"
#include "evaluation/InconsistencyReport.h"
#include "evaluation/LocalWeights.h"
#include "evaluation/Synthesis.h"

using namespace Qt::StringLiterals;
using namespace Common;

bool evaluate(PrintService& print, const ReportSelection& selection, const Progress& progress) {
    if (!takeSelection(selection)) return false;

    InconsistencyList findings;
    const int steps = 2 * EvaluatorCount;
    for (int index = 0; index < EvaluatorCount; ++index) {
        const QString& evaluator = selection.evaluatorEntries[index];
        progress(index, steps, evaluator);
        if (calculateLocalWeights(*DbConn, ProblemNo, EvaluatorNos[index], RoundCount, findings) ==
            ComparisonData::Missing) {
            refuseMissing(selection, evaluator, u"比較回数"_s, u"一対比較"_s);
            return false;
        }
    }
    for (int index = 0; index < EvaluatorCount; ++index) {
        progress(EvaluatorCount + index, steps, selection.evaluatorEntries[index]);
        synthesise(*DbConn, ProblemNo, EvaluatorNos[index], RoundCount);
    }
    progress(steps, steps, {});
    DbConn->endUnitOfWork(); // a report is handed out only of weights that are on the disk
    printInconsistencyReport(print, findings, ProblemNo, RoundCount);
    inform(u" 評価値計算終了"_s);
    return true;
}
