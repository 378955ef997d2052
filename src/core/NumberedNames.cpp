#include "core/NumberedNames.h"

#include "database/Recordset.h"
#include "text/Numbers.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;
using namespace Common;

const QString configuredProblems =
    u"SELECT T1.課題番号,T1.課題区分,T2.要因名,T1.構成レベル FROM 課題 T1,要因 T2 "
    "WHERE T1.課題番号 = T2.要因番号 order by 課題番号"_s;

std::vector<NumberedName> readNumberedNames(const QString& sql, const QString& numberColumn,
                                            const QString& nameColumn) {
    std::vector<NumberedName> names;
    for (Recordset rows(sql, *DbConn); !rows.eof(); rows.moveNext())
        names.push_back({rows[numberColumn].toText(), NullToEmpty(rows[nameColumn])});
    return names;
}

std::vector<NumberedName> readProblems() {
    return readNumberedNames(configuredProblems, u"課題番号"_s, u"要因名"_s);
}

QString problemEntry(const NumberedName& problem) {
    return formatNumber(leadingNumber(problem.number), u"0000"_s) + u' ' + joinedLines(problem.name);
}
