// The works of the calculation and report screens, in the order in which a round is worked through.
#pragma once

#include <span>

#include "screens/Work.h"

std::span<const Work> roundWorks();
// The work of a screen.
const Work& roundWork(const QString& screen);
