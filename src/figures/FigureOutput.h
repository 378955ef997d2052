// Figures on paper and in files.
#pragma once

#include <vector>

#include "figures/Sheet.h"

class Output;

// Each sheet on a page, to the printer that the output target names.
void printFigures(Output& output, const std::vector<FigureSheet>& sheets, const QString& problem);

enum class PictureType { Svg, Png };
// Each sheet as a file of its own. Raises error 75 or 76 when one cannot be written.
void saveFigures(Output& output, const std::vector<FigureSheet>& sheets, const QString& problem,
                 PictureType type);
