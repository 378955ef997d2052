#include "analysis/FinalResultScreen.h"

#include "analysis/FinalResult.h"

using namespace Qt::StringLiterals;

最終結果::最終結果()
    : ReportForm({.name = u"最終結果"_s,
                  .actionControl = u"Command7"_s,
                  .actionCaption = u"係数設定"_s,
                  .hasEvaluators = false,
                  .printsReport = false}) {}

void 最終結果::run(const ReportSelection& selection) {
    SetCoefficients(print_, selection, progress());
}
