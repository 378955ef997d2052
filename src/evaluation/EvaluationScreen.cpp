#include "evaluation/EvaluationScreen.h"

#include "evaluation/Evaluation.h"

using namespace Qt::StringLiterals;

評価計算::評価計算()
    : ReportForm({.name = u"評価計算"_s, .actionControl = u"Command7"_s, .actionCaption = u"評価計算"_s}) {}

void 評価計算::run(const ReportSelection& selection) {
    evaluate(print_, selection, progress());
}
