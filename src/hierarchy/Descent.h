// The walk down a problem's hierarchy, level by level, in the work table.
#pragma once

#include <QtGlobal>
#include <functional>

class Connection;

// Goes on in `tempfac`, where the problem stands alone as its own parent on level 0, until a level adds no
// rows; the root row is gone then. `insertLevel` inserts the children of the level before. Raises error 5,
// which names the problem, when a level is deeper than there are `parents`: the hierarchy runs in a circle.
void descend(Connection& connection, qint32 problemNo, qint32 parents,
             const std::function<void(int level)>& insertLevel);

// That error.
[[noreturn]] void raiseCircle(qint32 problemNo);
