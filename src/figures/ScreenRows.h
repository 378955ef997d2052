// The screens of this room.
#pragma once

#include "core/Screens.h"

namespace figures {

void addScreens(Screens& screens);

} // namespace figures
