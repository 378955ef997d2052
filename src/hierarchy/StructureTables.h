// A problem's factor tree in the database: saving the children of a parent, the levelled copy that screens
// show, and reading it back.
#pragma once

#include <QString>
#include <array>
#include <optional>
#include <span>
#include <tuple>
#include <vector>

#include "judgement/Limits.h"

class Connection;

// A row of the child list; without a name the row is free.
struct ChildEntry {
    int displayOrder = 0; // 1 to 20
    qint32 factorNo = 0;
    QString name;

    // A row that is free is not saved, nor are those behind it.
    bool isFree() const { return name.isEmpty(); }
    // A factor may have the number 0, or no name.
    bool isEmpty() const { return factorNo == 0 && name.isEmpty(); }
};
// As many rows as a parent may have children; each node keeps as many sequence numbers for its own on the
// next level.
using ChildList = std::array<ChildEntry, mostChildren>;

// The rows of a parent without children: their display orders are 1 to 20.
ChildList freeRows();

// Where a node stands. The factor alone does not tell, since it may stand under several parents; (0, 0) is
// the place of the problem.
struct NodePlace {
    qint32 factorNo = 0;
    int level = 0;
    qint64 sequence = 0;

    bool operator==(const NodePlace&) const = default;
    bool operator<(const NodePlace& other) const {
        return std::tie(factorNo, level, sequence) < std::tie(other.factorNo, other.level, other.sequence);
    }
};

struct TreeNode {
    NodePlace place;
    std::optional<NodePlace> parent; // none for the problem
    QString name;

    // "R" with factor, level and sequence directly behind one another. Different nodes may have the same key.
    QString key() const;
};

// The parents that may receive children: the problem, then nodes above the problem's structure level in
// display order, as far as the first one whose children have never been saved.
struct ParentList {
    std::vector<TreeNode> parents;
    // The parent to go on with, while a node of the tree lacks children or is not on offer yet: the first
    // that lacks them, or the last on offer when that one is not on offer itself.
    std::optional<NodePlace> next;
    // It has children already, and nodes behind it are closed until it has been saved again.
    bool isNextFilled = false;
};

// The number in four digits and the name, with `separator` between them.
QString factorText(qint32 factorNo, const QString& name, const QString& separator = {});

// The entries before the first free one: those that are saved.
std::span<const ChildEntry> savedChildren(const ChildList& children);

struct RefusedChild {
    int row = 0; // 1 to 20
    QString reason;
};
// The first child that would stand twice under the parent or make the hierarchy run in a circle: the problem,
// the parent itself or a factor above it.
std::optional<RefusedChild> refusedChild(Connection& connection, qint32 problemNo, qint32 parentNo,
                                         std::span<const ChildEntry> children);

// Replaces the parent's edges and marks every edge that leads to the parent, in all problems, as one whose
// children have been created.
void saveChildren(Connection& connection, qint32 problemNo, qint32 parentNo,
                  std::span<const ChildEntry> children);

// How many stored children of the parent stand behind the first free row only: saving removes them, and what
// stands below them.
int childrenLostAtGap(Connection& connection, qint32 problemNo, qint32 parentNo, const ChildList& children);

// Removes the edges of parents that no edge leads to any more, in one pass by parent number: what a removal
// orphans under a smaller number goes at the next call.
void removeOrphans(Connection& connection, qint32 problemNo);

// Empties 構成表示 and fills it with the problem's nodes down to level `levels` + 1. Raises error 6 when a
// sequence number has more than 53 bits.
void rebuildStructureDisplay(Connection& connection, qint32 problemNo, int levels);

// The tree in display order, the problem first; empty when the problem has no factors yet.
std::vector<TreeNode> readTree(Connection& connection, qint32 problemNo);

ParentList readParents(Connection& connection, qint32 problemNo, const QString& problemName, int levels);

// The children of a parent in display order, from the first row on. Raises error 9 when there are more than
// rows.
ChildList readChildren(Connection& connection, qint32 problemNo, qint32 parentNo);
