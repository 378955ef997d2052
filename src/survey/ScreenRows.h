// The screens of this room.
#pragma once

#include "core/Screens.h"

namespace survey {

void addScreens(Screens& screens);

} // namespace survey
