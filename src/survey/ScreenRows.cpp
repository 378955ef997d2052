#include "survey/ScreenRows.h"

#include "survey/SurveyScreen.h"

using namespace Qt::StringLiterals;

void survey::addScreens(Screens& screens) {
    screens.add(screenRow<調査票>(u"調査票"_s));
}
