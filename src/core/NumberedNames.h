// Records that a list shows by number and name, and that its screen keeps beside the entries.
#pragma once

#include <QString>
#include <vector>

#include "database/Recordset.h"

namespace Common {

// A number and a name, both as text, of one row of a list.
struct NumberedName {
    QString number;
    QString name;
};

} // namespace Common

// Number and name of each record, in their order; a name that is null reads as "".
std::vector<Common::NumberedName> readNumberedNames(Recordset rows, const QString& numberColumn,
                                                    const QString& nameColumn);

// Reads number, class, name and structure level of all configured problems by number.
inline constexpr Sql configuredProblems =
    u"SELECT T1.課題番号,T1.課題区分,T2.要因名,T1.構成レベル FROM 課題 T1,要因 T2 "
    "WHERE T1.課題番号 = T2.要因番号 order by 課題番号";

// All configured problems by number.
std::vector<Common::NumberedName> readProblems();

// Entry of a problem list: the number with at least four digits, a blank, the name.
QString problemEntry(const Common::NumberedName& problem);
