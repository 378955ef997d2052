#include "analysis/ReportWorks.h"

#include <algorithm>
#include <array>

#include "analysis/AnalysisOutput.h"
#include "analysis/FinalResult.h"
#include "analysis/GroupReport.h"
#include "evaluation/Evaluation.h"
#include "evaluation/IndividualResult.h"

using namespace Qt::StringLiterals;

std::span<const ReportWork> reportWorks() {
    static const std::array works{
        ReportWork{u"評価計算"_s, u"評価計算"_s, u"calculate"_s, true, RoundUse::Makes, true, evaluate,
                   u"%1 名の評価値を計算し、保存しました。食い違いはありません。"_s},
        ReportWork{u"個人結果"_s, u"印刷開始"_s, u"print"_s, true, RoundUse::Takes, true,
                   PrintIndividualResult},
        ReportWork{u"報告作成"_s, u"報告作成"_s, u"print"_s, true, RoundUse::Takes, true, MakeGroupReport},
        ReportWork{u"分析出力"_s, u"分析出力"_s, u"print"_s, false, RoundUse::Takes, true, PrintAnalysis},
        ReportWork{u"最終結果"_s, u"係数設定"_s, u"coefficients"_s, false, RoundUse::Takes, false,
                   SetCoefficients},
    };
    return works;
}

const ReportWork& reportWork(const QString& screen) {
    return *std::ranges::find(reportWorks(), screen, &ReportWork::screen);
}
