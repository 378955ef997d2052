#include "hierarchy/Structure.h"

#include "core/Common.h"
#include "database/Recordset.h"

using namespace Qt::StringLiterals;

namespace {

Factor factorOf(const Recordset& row, const QString& numberColumn) {
    return {row[numberColumn].toLong(), Common::NullToEmpty(row[u"要因名"_s])};
}

std::vector<Factor> factorsOf(Recordset rows, const QString& numberColumn) {
    std::vector<Factor> factors;
    for (; !rows.eof(); rows.moveNext()) factors.push_back(factorOf(rows, numberColumn));
    return factors;
}

} // namespace

ChildrenByParent readStructure(Connection& connection, qint32 problemNo) {
    ChildrenByParent children;
    for (Recordset rows(connection,
                        u"select 親要因番号,子要因番号 from 要因構成 where 課題番号=?"
                        " order by 親要因番号,子要因表示順",
                        problemNo);
         !rows.eof(); rows.moveNext())
        children[rows[u"親要因番号"_s].toLong()].push_back(rows[u"子要因番号"_s].toLong());
    return children;
}

FamiliesByParent readFamilies(Connection& connection, qint32 problemNo) {
    FamiliesByParent families;
    for (Recordset rows(
             connection,
             u"select t1.親要因番号,t1.子要因番号,t2.要因名 from 要因構成 t1,要因 t2"
             " where t1.課題番号=? and t1.子要因番号=t2.要因番号 and typeof(t1.子要因番号)='integer'"
             " order by t1.親要因番号,t1.子要因表示順",
             problemNo);
         !rows.eof(); rows.moveNext())
        families[rows[u"親要因番号"_s].toLong()].push_back(factorOf(rows, u"子要因番号"_s));
    return families;
}

std::vector<Factor> readGoals(Connection& connection, qint32 problemNo) {
    return factorsOf({connection,
                      u"SELECT T1.課題番号,T1.親要因番号,T3.要因名 FROM 要因構成 T1,要因 T3 "
                      "WHERE T1.課題番号 = ? AND T1.親要因番号 = T3.要因番号 "
                      "GROUP BY T1.課題番号,T1.親要因番号,T3.要因名 ORDER BY T1.親要因番号 ",
                      problemNo},
                     u"親要因番号"_s);
}

std::vector<Factor> readGoalChildren(Connection& connection, qint32 problemNo, qint32 goalNo) {
    return factorsOf({connection,
                      u"SELECT T1.課題番号,T1.子要因番号,T1.子要因表示順,T3.要因名 FROM 要因構成 T1,要因 T3 "
                      "WHERE T1.課題番号 = ? AND T1.親要因番号 = ? AND T1.子要因番号 = T3.要因番号 "
                      " ORDER BY T1.子要因表示順 ",
                      problemNo, goalNo},
                     u"子要因番号"_s);
}
