// The screens of this room.
#pragma once

#include "core/Screens.h"

namespace registration {

void addScreens(Screens& screens);

} // namespace registration
