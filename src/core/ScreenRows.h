// The screens of this room.
#pragma once

#include "core/Screens.h"

namespace core {

void addScreens(Screens& screens);

} // namespace core
