#include "figures/ScreenRows.h"

#include "figures/FiguresScreen.h"

using namespace Qt::StringLiterals;

void figures::addScreens(Screens& screens) {
    screens.add(screenRow<図>(u"図"_s));
}
