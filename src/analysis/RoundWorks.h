// The works of the calculation and report screens, in the order in which a round is worked through: a row is
// all that a further report needs to be in the menu, on a screen and in hollin-batch.
#pragma once

#include <span>

#include "screens/Work.h"

std::span<const Work> roundWorks();
