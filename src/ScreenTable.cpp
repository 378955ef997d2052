#include "ScreenTable.h"

#include "analysis/ReportScreens.h"
#include "comparison/ComparisonGrid.h"
#include "comparison/ComparisonSetup.h"
#include "core/Menus.h"
#include "core/Screens.h"
#include "figures/FiguresScreen.h"
#include "hierarchy/StructureEditor.h"
#include "registration/EvaluatorRegistration.h"
#include "registration/FactorRegistration.h"
#include "registration/ListDialogs.h"
#include "registration/ProblemConfiguration.h"
#include "registration/ProblemEvaluators.h"
#include "survey/SurveyScreen.h"

using namespace Qt::StringLiterals;

void fillScreenTable(Screens& screens) {
    screens.add<メニュー>(u"メニュー"_s);
    screens.add<登録メニュー>(u"登録メニュー"_s);
    screens.add<要因登録>(u"要因登録"_s);
    screens.add<課題登録>(u"課題登録"_s);
    screens.add<評価者登録>(u"評価者登録"_s);
    screens.add<課題構成登録>(u"課題構成登録"_s);
    screens.add<課題評価者登録>(u"課題評価者登録"_s);
    screens.add<要因構成登録>(u"要因構成登録"_s);
    screens.add<課題選択>(u"課題選択"_s);
    screens.add<課題候補表示>(u"課題候補表示"_s);
    screens.add<課題要因表示>(u"課題要因表示"_s);
    screens.add<要因表示>(u"要因表示"_s);
    screens.add<評価者表示>(u"評価者表示"_s);
    screens.add<比較者設定>(u"比較者設定"_s);
    screens.add<比較値設定>(u"比較値設定"_s);
    screens.add<調査票>(u"調査票"_s);
    screens.add<評価計算>(u"評価計算"_s);
    screens.add<個人結果>(u"個人結果"_s);
    screens.add<報告作成>(u"報告作成"_s);
    screens.add<分析出力>(u"分析出力"_s);
    screens.add<最終結果>(u"最終結果"_s);
    screens.add<図>(u"図"_s);
}
