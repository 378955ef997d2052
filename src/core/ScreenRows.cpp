#include "core/ScreenRows.h"

#include "core/Menus.h"

using namespace Qt::StringLiterals;

void core::addScreens(Screens& screens) {
    screens.add(screenRow<メニュー>(u"メニュー"_s));
    screens.add(screenRow<登録メニュー>(u"登録メニュー"_s,
                                        MenuPlace{u"メニュー"_s, u"Command1"_s, u"基礎データ登録"_s}));
}
