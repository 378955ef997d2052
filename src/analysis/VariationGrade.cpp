#include "analysis/VariationGrade.h"

#include "database/Recordset.h"
#include "evaluation/ChildLimit.h"
#include "judgement/Limits.h"
#include "judgement/Statistics.h"
#include "judgement/Variation.h"
#include "rounds/RoundSelection.h"

using namespace Qt::StringLiterals;

namespace {

// The standard deviation of the child whose rows come next.
double nextDeviation(Recordset& rows) {
    const auto parentNo = rows[u"親要因番号"_s].toLong();
    const auto childNo = rows[u"子要因番号"_s].toLong();
    Statistics weights;
    for (; !rows.eof() && rows[u"親要因番号"_s].toLong() == parentNo &&
           rows[u"子要因番号"_s].toLong() == childNo;
         rows.moveNext())
        weights.add(rows[u"評価値"_s].toDouble());
    return weights.deviation(negligibleVariance);
}

void addNextFamily(Variation& round, Connection& connection, Recordset& rows) {
    const auto parentNo = rows[u"親要因番号"_s].toLong();
    std::vector<double> deviations;
    while (!rows.eof() && rows[u"親要因番号"_s].toLong() == parentNo)
        deviations.push_back(nextDeviation(rows));
    if (deviations.size() > mostChildren) throw tooManyChildren(connection, parentNo, mostChildren);
    round.addFamily(deviations);
}

} // namespace

QString VariationGrade(const ProblemRound& of) {
    Recordset rows(
        of.connection,
        u"select 親要因番号,子要因番号,評価値 from 評価結果 where 課題番号=? and 比較回数=? and レベル<>2"
        " order by 親要因番号,子要因番号",
        of.problemNo, of.round);
    Variation variation;
    while (!rows.eof()) addNextFamily(variation, of.connection, rows);
    return gradeLetter(variation.mean());
}
