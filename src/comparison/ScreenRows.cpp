#include "comparison/ScreenRows.h"

#include "comparison/ComparisonGrid.h"
#include "comparison/ComparisonSetup.h"

using namespace Qt::StringLiterals;

void comparison::addScreens(Screens& screens) {
    screens.add(
        screenRow<比較者設定>(u"比較者設定"_s, MenuPlace{u"メニュー"_s, u"Command4"_s, u"比      較"_s}));
    screens.add(screenRow<比較値設定>(u"比較値設定"_s));
}
