#include "hierarchy/TreePlace.h"

#include "platform/Recordset.h"

using namespace Qt::StringLiterals;

QHash<double, int> levelsByKey(Connection& connection) {
    QHash<double, int> levels;
    for (Recordset rows(u"select distinct dno,lev from tempfac"_s, connection); !rows.eof(); rows.moveNext())
        levels[rows[u"dno"_s].toDouble()] = rows[u"lev"_s].toLong();
    return levels;
}
