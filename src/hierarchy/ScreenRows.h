// The screens of this room.
#pragma once

#include "core/Screens.h"

namespace hierarchy {

void addScreens(Screens& screens);

} // namespace hierarchy
