#include "analysis/FactorValues.h"

#include <algorithm>

#include "platform/Recordset.h"

using namespace Qt::StringLiterals;

std::vector<FactorValues> readFactorValues(Connection& connection, const QString& sql,
                                           const QString& evaluatorField, const QHash<double, int>& levels) {
    std::vector<FactorValues> factors;
    Recordset rows(sql, connection);
    while (!rows.eof()) {
        const Value key = rows[u"dno"_s];
        const Value child = rows[u"child"_s];
        FactorValues factor;
        factor.isTotal = key.toDouble() == totalsKey;
        factor.place = {rows[u"parent"_s].toLong(), child.toLong(),
                        factor.isTotal ? totalsLevel : levels.value(key.toDouble())};
        for (; !rows.eof() && rows[u"dno"_s] == key && rows[u"child"_s] == child; rows.moveNext()) {
            factor.values.push_back({rows[evaluatorField].toLong(), rows[u"score"_s].toDouble()});
            factor.statistics.add(factor.values.back().value);
        }
        factors.push_back(std::move(factor));
    }
    std::stable_partition(factors.begin(), factors.end(), [](const auto& factor) { return !factor.isTotal; });
    return factors;
}
