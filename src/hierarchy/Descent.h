// The walk down a problem's hierarchy, level by level, in the work table.
#pragma once

#include <QString>
#include <functional>

class Connection;

// The statements of one walk.
struct Descent {
    QString root;                            // inserts the problem into `tempfac` as its own parent, level 0
    QString parents;                         // counts the parents in the table that is walked
    QString rows;                            // counts the rows of `tempfac`
    std::function<QString(int level)> level; // inserts the children of the level before
};

// Empties `tempfac` and fills it until a level adds no rows; the root row is gone then. Raises error 5, which
// names the problem, when the hierarchy runs in a circle.
void descend(Connection& connection, qint32 problemNo, const Descent& descent);

// That error.
[[noreturn]] void raiseCircle(qint32 problemNo);
