// The screens of this room.
#pragma once

#include "core/Screens.h"

namespace comparison {

void addScreens(Screens& screens);

} // namespace comparison
