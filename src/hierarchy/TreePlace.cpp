#include "hierarchy/TreePlace.h"

#include <algorithm>

#include "core/FactorNames.h"
#include "database/Recordset.h"
#include "hierarchy/NumberHierarchy.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

void requireDisplayOrder(Connection& connection, const Recordset& row) {
    if (!row[u"seq"_s].isNull()) return;
    throw RuntimeError(ErrorCode::InvalidNull,
                       u"要因「%1」の子要因「%2」に表示順がありません。\n"
                       "要因構成登録で「%1」の子要因を登録し直してください。"_s.arg(
                           factorName(connection, row[u"parent"_s].toLong()),
                           factorName(connection, row[u"child"_s].toLong())));
}

TreeLevels readLevels(Connection& connection) {
    TreeLevels levels;
    for (Recordset rows(connection, u"select parent,child,dno,lev,seq from tempfac order by lev");
         !rows.eof(); rows.moveNext()) {
        requireDisplayOrder(connection, rows);
        levels[{rows[u"dno"_s].toDouble(), rows[u"parent"_s].toLong(), rows[u"child"_s].toLong()}].push_back(
            rows[u"lev"_s].toLong());
    }
    return levels;
}

} // namespace

int levelOf(const TreeLevels& levels, const TreePair& pair, std::size_t nth) {
    const auto found = levels.find(pair);
    if (found == levels.end()) return 0;
    return found->second[std::min(nth, found->second.size() - 1)];
}

TreeLevels numberForReport(Connection& connection, qint32 problemNo) {
    NumberHierarchy(connection, QString::number(problemNo), 1);
    auto levels = readLevels(connection);
    copyToWorkfac(connection);
    return levels;
}
