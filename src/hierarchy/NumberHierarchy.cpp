#include "hierarchy/NumberHierarchy.h"

#include <cmath>

#include "database/Connection.h"
#include "database/Recordset.h"
#include "hierarchy/Descent.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint16 groupedMode = 1;
constexpr qint16 pathMode = 0;

struct Radix {
    qint64 numberBase;
    double pathMultiplier; // numberBase to the power of the structure level, 1 for none
};

Radix readRadix(Connection& connection, const QString& problemNo) {
    const Recordset problem(u"select 構成レベル,最大分岐数 from 課題 where 課題番号 = %1"_s.arg(problemNo),
                            connection);
    if (problem[u"構成レベル"_s].isNull() || problem[u"最大分岐数"_s].isNull())
        throw RuntimeError(
            ErrorCode::InvalidNull,
            u"課題 %1 の構成レベルか最大分岐数がありません。課題構成登録で登録し直してください。"_s.arg(
                problemNo));
    const int levels = problem[u"構成レベル"_s].toLong();
    const qint64 base = qint64{problem[u"最大分岐数"_s].toLong()} + 1;
    return {base, std::pow(static_cast<double>(base), std::max(levels, 0))};
}

QString levelStatement(const QString& problemNo, int level, const Radix& radix, qint16 grouped) {
    const QString keys =
        grouped == pathMode
            ? u",子要因表示順,tempfac.dno+%1*(子要因表示順)"_s.arg(decimalText(radix.pathMultiplier))
            : u",max(子要因表示順),max(tempfac.dno) * %1+max(子要因表示順)+1"_s.arg(radix.numberBase);
    return u"insert into tempfac (parent,child,lev,seq,dno) select 親要因番号,子要因番号,%1%2"
           " from 要因構成,tempfac where 課題番号=%3 and   tempfac.lev=%4 and   tempfac.child = 親要因番号%5"_s
               .arg(level)
               .arg(keys, problemNo)
               .arg(level - 1)
               .arg(grouped == groupedMode ? u" group by 親要因番号,子要因番号"_s : QString());
}

} // namespace

void NumberHierarchy(Connection& connection, const QString& problemNo, const qint16& grouped) {
    Radix radix = readRadix(connection, problemNo);
    descend(connection, problemNo.toInt(),
            {.root = u"insert into tempfac (parent,child,seq,lev,dno) values(%1,%1,0,0,0)"_s.arg(problemNo),
             .parents = u"select count(distinct 親要因番号) as ncnt from 要因構成 where 課題番号=%1"_s.arg(
                 problemNo),
             .rows = u"select count(*) as ncnt from tempfac"_s,
             .level = [&](int level) {
                 // In path mode each level's digit counts for less, below the structure level behind the
                 // point.
                 if (grouped == pathMode && level > 1)
                     radix.pathMultiplier /= static_cast<double>(radix.numberBase);
                 return levelStatement(problemNo, level, radix, grouped);
             }});
}

void copyToWorkfac(Connection& connection) {
    connection.execute(u"delete from workfac"_s);
    connection.execute(u"insert into workfac (factor,work1,work2) select parent,child,dno from tempfac"_s);
}
