#include "hierarchy/Descent.h"

#include "database/Connection.h"
#include "database/Recordset.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

void raiseCircle(qint32 problemNo) {
    throw RuntimeError(
        ErrorCode::InvalidCall,
        u"課題 %1 の要因構成が循環しています。要因構成登録で確かめてください。"_s.arg(problemNo));
}

void descend(Connection& connection, qint32 problemNo, qint32 parents,
             const std::function<void(int level)>& insertLevel) {
    for (int level = 1, previous = 1;; ++level) {
        insertLevel(level);
        const int count = readNumber(connection, u"select count(*) as ncnt from tempfac");
        if (count == previous) break;
        // A path that visits no factor twice has at most as many edges as there are parents, so a level that
        // is deeper and still added rows means a circle.
        if (level > parents) raiseCircle(problemNo);
        previous = count;
    }
    connection.execute(u"delete from tempfac where child = ?", problemNo);
}
