// Records that a list shows by number and name, and that its screen keeps beside the entries.
#pragma once

#include <vector>

#include "core/Common.h"

// Number and name of each record of the statement, in its order; a name that is null reads as "".
std::vector<Common::NumberedName> readNumberedNames(const QString& sql, const QString& numberColumn,
                                                    const QString& nameColumn);

// Reads number, class, name and structure level of all configured problems by number.
extern const QString configuredProblems;

// All configured problems by number.
std::vector<Common::NumberedName> readProblems();

// Entry of a problem list: the number with at least four digits, a blank, the name.
QString problemEntry(const Common::NumberedName& problem);
