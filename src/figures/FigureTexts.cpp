#include "figures/FigureTexts.h"

#include "text/Numbers.h"

using namespace Qt::StringLiterals;

FigureTitle titleOf(const RoundResults& results, const QString& figure, const QString& reading) {
    return {figure, u"%1（%2回）"_s.arg(results.problem).arg(results.round),
            u"評価者 %1名"_s.arg(results.evaluators.size()), reading, results.foot};
}

QString fourPlaces(double value) {
    return formatNumber(value, u"0.0000"_s);
}

QString rankText(int rank) {
    return u"%1位"_s.arg(rank);
}
