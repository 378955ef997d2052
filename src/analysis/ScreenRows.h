// The screens of this room.
#pragma once

#include "core/Screens.h"

namespace analysis {

void addScreens(Screens& screens);

} // namespace analysis
