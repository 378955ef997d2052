#include "core/NumberedNames.h"

#include "text/Numbers.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;
using namespace Common;

std::vector<NumberedName> readNumberedNames(Recordset rows, const QString& numberColumn,
                                            const QString& nameColumn) {
    std::vector<NumberedName> names;
    for (; !rows.eof(); rows.moveNext())
        names.push_back({rows[numberColumn].toText(), NullToEmpty(rows[nameColumn])});
    return names;
}

std::vector<NumberedName> readProblems() {
    return readNumberedNames({*DbConn, configuredProblems}, u"課題番号"_s, u"要因名"_s);
}

QString problemEntry(const NumberedName& problem) {
    return formatNumber(leadingNumber(problem.number), u"0000"_s) + u' ' + joinedLines(problem.name);
}
