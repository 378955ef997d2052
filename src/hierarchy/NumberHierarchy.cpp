#include "hierarchy/NumberHierarchy.h"

#include <cmath>

#include "database/Connection.h"
#include "database/Recordset.h"
#include "hierarchy/Descent.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qint16 pathMode = 0;
constexpr double largestWholeWorth = 1e15; // what the engine adds to it still fits a whole number

struct Radix {
    qint64 numberBase;
    double pathMultiplier; // numberBase to the power of the structure level, 1 for none
};

Radix readRadix(Connection& connection, qint32 problemNo) {
    const Recordset problem(connection, u"select 構成レベル,最大分岐数 from 課題 where 課題番号 = ?",
                            problemNo);
    if (problem[u"構成レベル"_s].isNull() || problem[u"最大分岐数"_s].isNull())
        throw RuntimeError(
            ErrorCode::InvalidNull,
            u"課題 %1 の構成レベルか最大分岐数がありません。課題構成登録で登録し直してください。"_s.arg(
                problemNo));
    const int levels = problem[u"構成レベル"_s].toLong();
    const qint64 base = qint64{problem[u"最大分岐数"_s].toLong()} + 1;
    return {base, std::pow(static_cast<double>(base), std::max(levels, 0))};
}

// Problem, level, radix.
constexpr Sql groupedLevel =
    u"insert into tempfac (parent,child,lev,seq,dno)"
    " select 親要因番号,子要因番号,?2,max(子要因表示順),max(tempfac.dno) * ?3+max(子要因表示順)+1"
    " from 要因構成,tempfac where 課題番号=?1 and tempfac.lev=?2-1 and tempfac.child = 親要因番号"
    " group by 親要因番号,子要因番号";
// Problem, level, worth of the level's digit.
constexpr Sql pathLevel =
    u"insert into tempfac (parent,child,lev,seq,dno)"
    " select 親要因番号,子要因番号,?2,子要因表示順,tempfac.dno+?3*(子要因表示順)"
    " from 要因構成,tempfac where 課題番号=?1 and tempfac.lev=?2-1 and tempfac.child = 親要因番号";

// Keys are whole as long as the digits are.
Value digitWorth(double worth) {
    if (worth == std::floor(worth) && worth < largestWholeWorth) return {static_cast<qint64>(worth)};
    return {worth};
}

} // namespace

void NumberHierarchy(Connection& connection, const QString& problemNo, const qint16& grouped) {
    const qint32 problem = Value(problemNo).toLong();
    auto radix = readRadix(connection, problem); // not taken apart: not every compiler captures its parts
    connection.execute(u"delete from tempfac");
    connection.execute(u"insert into tempfac (parent,child,seq,lev,dno) values(?1,?1,0,0,0)", problem);
    const auto parents = readNumber(
        connection, u"select count(distinct 親要因番号) as ncnt from 要因構成 where 課題番号=?", problem);
    descend(connection, problem, parents, [&](int level) {
        if (grouped != pathMode) return connection.execute(groupedLevel, problem, level, radix.numberBase);
        connection.execute(pathLevel, problem, level, digitWorth(radix.pathMultiplier));
        // Each level's digit counts for less, below the structure level behind the point.
        radix.pathMultiplier /= static_cast<double>(radix.numberBase);
    });
}

void copyToWorkfac(Connection& connection) {
    connection.execute(u"delete from workfac");
    connection.execute(u"insert into workfac (factor,work1,work2) select parent,child,dno from tempfac");
}
