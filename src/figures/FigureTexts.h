// Texts that the figures share.
#pragma once

#include "figures/RoundResults.h"
#include "figures/Sheet.h"

FigureTitle titleOf(const RoundResults& results, const QString& figure, const QString& reading);
// "0.1234".
QString fourPlaces(double value);
// "3位".
QString rankText(int rank);
