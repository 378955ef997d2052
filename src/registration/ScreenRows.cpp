#include "registration/ScreenRows.h"

#include "registration/EvaluatorRegistration.h"
#include "registration/FactorRegistration.h"
#include "registration/ListDialogs.h"
#include "registration/ProblemConfiguration.h"
#include "registration/ProblemEvaluators.h"

using namespace Qt::StringLiterals;

void registration::addScreens(Screens& screens) {
    screens.add(
        screenRow<要因登録>(u"要因登録"_s, MenuPlace{u"登録メニュー"_s, u"Command5"_s, u"要因登録"_s}));
    screens.add(
        screenRow<課題登録>(u"課題登録"_s, MenuPlace{u"登録メニュー"_s, u"Command1"_s, u"課題登録"_s}));
    screens.add(
        screenRow<評価者登録>(u"評価者登録"_s, MenuPlace{u"登録メニュー"_s, u"Command6"_s, u"評価者登録"_s}));
    screens.add(screenRow<課題構成登録>(u"課題構成登録"_s,
                                        MenuPlace{u"登録メニュー"_s, u"Command4"_s, u"課題構成登録"_s}));
    screens.add(screenRow<課題評価者登録>(u"課題評価者登録"_s,
                                          MenuPlace{u"登録メニュー"_s, u"Command8"_s, u"課題評価者登録"_s}));
    screens.add(screenRow<課題選択>(u"課題選択"_s));
    screens.add(screenRow<課題候補表示>(u"課題候補表示"_s));
    screens.add(screenRow<課題要因表示>(u"課題要因表示"_s));
    screens.add(screenRow<要因表示>(u"要因表示"_s));
    screens.add(screenRow<評価者表示>(u"評価者表示"_s));
}
