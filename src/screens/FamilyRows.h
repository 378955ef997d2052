// Prints what reports have to say of each factor, in the shape of the tree.
#pragma once

#include <vector>

#include "core/FactorNames.h"
#include "hierarchy/TreePlace.h"
#include "printing/Report.h"

// Family by family: below the name of the parent a row for each child, its name indented by its level. A row
// has a `place`; `figures` gives the texts of the columns behind the name.
template <typename Row, typename Figures>
void printFamilies(Report& report, FactorNames& names, const std::vector<Row>& rows, Figures figures) {
    for (std::size_t begin = 0; begin < rows.size();) {
        const auto end = familyEnd(rows, begin);
        const int level = rows[begin].place.level;
        RowGroup family{{}, names[rows[begin].place.parentNo], 2 * (level - 1)};
        for (; begin < end; ++begin)
            family.rows.append(
                {QStringList{names[rows[begin].place.factorNo]} + figures(rows[begin]), 2 * level});
        report.group(family);
    }
}
