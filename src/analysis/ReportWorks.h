// The works of the calculation and report screens, in the order in which a round is worked through.
#pragma once

#include <span>

#include "screens/ReportWork.h"

std::span<const ReportWork> reportWorks();
// The work of a screen.
const ReportWork& reportWork(const QString& screen);
