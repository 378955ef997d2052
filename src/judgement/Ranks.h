// Who stands on which rank: 1 for the greatest value. Equal ones share the rank, and the next is counted on
// behind all of them: 1, 2, 2, 4.
#pragma once

#include <vector>

// Values that differ by less than this part of themselves are equal: what is left of the difference is
// rounding, and two programs need not round alike.
constexpr double equalValues = 1e-9;

// Of the values as they were calculated. A value of 0 or below is none and has the rank 0.
std::vector<int> ranks(const std::vector<double>& values);
// Of the values as people read them, to four places: whoever sees two equal figures finds one rank beside
// them.
std::vector<int> shownRanks(const std::vector<double>& values);
