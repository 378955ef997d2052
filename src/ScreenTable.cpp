#include "ScreenTable.h"

#include "comparison/ComparisonGrid.h"
#include "comparison/ComparisonSetup.h"
#include "core/Menus.h"
#include "core/Screens.h"
#include "evaluation/EvaluationScreen.h"

using namespace Qt::StringLiterals;

void fillScreenTable(Screens& screens) {
    screens.add<メニュー>(u"メニュー"_s);
    screens.add<登録メニュー>(u"登録メニュー"_s);
    screens.add<比較者設定>(u"比較者設定"_s);
    screens.add<比較値設定>(u"比較値設定"_s);
    screens.add<評価計算>(u"評価計算"_s);
}
