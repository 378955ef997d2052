#include "core/NumberedNames.h"

#include "core/Common.h"
#include "text/Numbers.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

std::vector<Common::NumberedName> readNumberedNames(Recordset rows, const QString& numberColumn,
                                                    const QString& nameColumn) {
    std::vector<Common::NumberedName> names;
    for (; !rows.eof(); rows.moveNext())
        names.push_back({rows[numberColumn].toText(), Common::NullToEmpty(rows[nameColumn])});
    return names;
}

std::vector<Common::NumberedName> readProblems() {
    return readNumberedNames({*Common::DbConn, configuredProblems}, u"課題番号"_s, u"要因名"_s);
}

QString problemEntry(const Common::NumberedName& problem) {
    return formatNumber(leadingNumber(problem.number), u"0000"_s) + u' ' + joinedLines(problem.name);
}
