#include "analysis/RoundWorks.h"

#include <array>

#include "analysis/AnalysisOutput.h"
#include "analysis/FinalResult.h"
#include "analysis/GroupReport.h"
#include "evaluation/Evaluation.h"
#include "evaluation/IndividualResult.h"

using namespace Qt::StringLiterals;

std::span<const Work> roundWorks() {
    static const std::array works{
        Work{u"評価計算"_s, u"評価計算"_s, u"calculate"_s, u"評価計算を行います"_s, true, RoundUse::Makes,
             true, evaluate, u"%1 名の評価値を計算し、保存しました。食い違いはありません。"_s, u"Command7"_s},
        Work{u"個人結果"_s,
             u"印刷開始"_s,
             u"print"_s,
             {},
             true,
             RoundUse::Takes,
             true,
             PrintIndividualResult,
             {},
             u"Command3"_s},
        Work{u"報告作成"_s,
             u"報告作成"_s,
             u"print"_s,
             {},
             true,
             RoundUse::Takes,
             true,
             MakeGroupReport,
             {},
             u"Command5"_s},
        Work{u"分析出力"_s,
             u"分析出力"_s,
             u"print"_s,
             {},
             false,
             RoundUse::Takes,
             true,
             PrintAnalysis,
             {},
             u"Command6"_s,
             true},
        Work{u"最終結果"_s,
             u"係数設定"_s,
             u"coefficients"_s,
             u"最終結果の係数を設定し、CSV ファイルに書き出します"_s,
             false,
             RoundUse::Takes,
             false,
             SetCoefficients,
             {},
             u"Command8"_s,
             true},
    };
    return works;
}
