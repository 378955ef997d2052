#include "hierarchy/ScreenRows.h"

#include "hierarchy/StructureEditor.h"

using namespace Qt::StringLiterals;

void hierarchy::addScreens(Screens& screens) {
    screens.add(screenRow<要因構成登録>(u"要因構成登録"_s,
                                        MenuPlace{u"登録メニュー"_s, u"Command3"_s, u"要因構成登録"_s}));
}
