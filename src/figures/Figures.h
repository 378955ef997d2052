// The figures, drawn.
#pragma once

#include <optional>
#include <vector>

#include "figures/Agreement.h"
#include "figures/Ranking.h"
#include "figures/RoundResults.h"
#include "figures/Sensitivity.h"
#include "figures/Sheet.h"
#include "figures/Stability.h"

// Ranks whose leaves are drawn as lines of the sensitivity.
constexpr int leadingRanks = 8;

// 総合係数: a bar for each leaf, the evaluators' values as marks; a chosen evaluator, by position in
// `results`, stands out.
std::vector<FigureSheet> drawCoefficients(const RoundResults& results, std::optional<std::size_t> chosen);
// 意見の揃い方: the spread of the values of each factor, the worst agreement first; beside it that of an
// earlier round.
std::vector<FigureSheet> drawAgreement(const RoundResults& results, const RoundResults* earlier);
// 感度: the coefficients of the leading leaves over the weight of each factor below the problem.
std::vector<FigureSheet> drawSensitivity(const RoundResults& results);
// 順位の安定: how often each leaf stood first, second and third.
std::vector<FigureSheet> drawStability(const RoundResults& results, const Stability& stability);
