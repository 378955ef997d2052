// Ends a walk down a hierarchy that runs in a circle.
#pragma once

#include <QString>

// Call when level `level` (1: the problem's own factors) has added rows. A path that visits no factor twice
// has at most as many edges as there are parents, so a deeper level means a circle: raises error 5, which
// names the problem.
void requireDepth(const QString& problemNo, int level, int parents);
