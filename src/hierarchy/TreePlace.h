// Where a factor stands in the numbered hierarchy of a problem.
#pragma once

#include <QHash>
#include <QtGlobal>
#include <vector>

class Connection;

struct TreePlace {
    qint32 parentNo = 0;
    qint32 factorNo = 0;
    int level = 0; // 1: the problem's own factors

    bool hasSameParent(const TreePlace& other) const {
        return parentNo == other.parentNo && level == other.level;
    }
};

// The level of each key of `tempfac`, as NumberHierarchy leaves it.
QHash<double, int> levelsByKey(Connection& connection);

// Where the children of one parent end that begin at `begin`. A row has a `place`.
template <typename Row>
std::size_t familyEnd(const std::vector<Row>& rows, std::size_t begin) {
    auto end = begin;
    while (end < rows.size() && rows[end].place.hasSameParent(rows[begin].place)) ++end;
    return end;
}
