#include "analysis/AnalysisScreen.h"

#include "analysis/AnalysisOutput.h"

using namespace Qt::StringLiterals;

分析出力::分析出力()
    : ReportForm({.name = u"分析出力"_s,
                  .actionControl = u"Command7"_s,
                  .actionCaption = u"分析出力"_s,
                  .hasEvaluators = false}) {}

void 分析出力::run(const ReportSelection& selection) {
    PrintAnalysis(print_, selection, progress());
}
