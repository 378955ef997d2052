// The edges of a problem: which factors stand below which.
#pragma once

#include <QHash>
#include <QString>
#include <vector>

class Connection;

struct Factor {
    qint32 number = 0;
    QString name;
};

// The children of all factors of a problem that have any, in display order.
using ChildrenByParent = QHash<qint32, std::vector<qint32>>;
ChildrenByParent readStructure(Connection& connection, qint32 problemNo);

// The same with their names; a child that is no factor any more is left out.
using FamiliesByParent = QHash<qint32, std::vector<Factor>>;
FamiliesByParent readFamilies(Connection& connection, qint32 problemNo);

// The factors of a problem that have children, by number.
std::vector<Factor> readGoals(Connection& connection, qint32 problemNo);
// The children of a goal factor in their display order: items 1, 2, … of its comparisons.
std::vector<Factor> readGoalChildren(Connection& connection, qint32 problemNo, qint32 goalNo);
