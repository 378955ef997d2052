// Where a factor stands in the numbered hierarchy of a problem.
#pragma once

#include <QtGlobal>
#include <map>
#include <tuple>
#include <vector>

class Connection;

struct TreePlace {
    qint32 parentNo = 0;
    qint32 factorNo = 0;
    int level = 0; // 1: the problem's own factors
    double key = 0;

    bool hasSameParent(const TreePlace& other) const {
        return parentNo == other.parentNo && level == other.level;
    }
    // Tree order: by key, then by factor, as the statements of the reports read them; what they leave open is
    // settled by the parent.
    bool operator<(const TreePlace& other) const {
        return std::tie(key, factorNo, parentNo) < std::tie(other.key, other.factorNo, other.parentNo);
    }
};

// A pair of parent and child with its key in the numbered hierarchy. Where a parent has more children than
// 最大分岐数 says, keys of different pairs, and of different levels, can be equal.
using TreePair = std::tuple<double, qint32, qint32>; // key, parent, child

// The levels on which each pair stands, ascending; more than one only where its keys are equal, too.
using TreeLevels = std::map<TreePair, std::vector<int>>;

// The level of a pair for the nth time, counted from 0.
int levelOf(const TreeLevels& levels, const TreePair& pair, std::size_t nth);

// Numbers the hierarchy of the problem for a report: `tempfac` and a copy in `workfac`. Raises what
// NumberHierarchy does, and error 94, which names it, for a factor without a display order.
TreeLevels numberForReport(Connection& connection, qint32 problemNo);

// Where the children of one parent end that begin at `begin`. A row has a `place`.
template <typename Row>
std::size_t familyEnd(const std::vector<Row>& rows, std::size_t begin) {
    auto end = begin;
    while (end < rows.size() && rows[end].place.hasSameParent(rows[begin].place)) ++end;
    return end;
}
