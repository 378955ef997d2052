#include "figures/PrintFigures.h"

#include "core/Messages.h"
#include "figures/FigureOutput.h"
#include "figures/Figures.h"
#include "rounds/RoundState.h"

using namespace Qt::StringLiterals;
using Common::refuse;

namespace {

void append(std::vector<FigureSheet>& sheets, const std::vector<FigureSheet>& more) {
    sheets.insert(sheets.end(), more.begin(), more.end());
}

std::optional<RoundResults> latestEarlierResults(const ProblemRound& chosen) {
    const auto rounds = earlierRounds(chosen);
    if (rounds.empty()) return std::nullopt;
    return readRoundResults({chosen.connection, chosen.problemNo, rounds.front()});
}

bool refuseWithoutResults(const RoundResults& results) {
    if (!results.evaluators.empty()) return false;
    refuse(u"選択された課題、評価回数の評価結果が存在しません。"_s);
    return true;
}

std::vector<FigureSheet> drawnStability(const ProblemRound& chosen, const RoundResults& results,
                                        const Progress& progress) {
    const auto comparisons = readRoundComparisons(chosen.connection, results);
    return drawStability(results, rankStability(comparisons, stabilityRuns, [&progress](int done) {
                             progress(done, stabilityRuns, u"順位の安定"_s);
                             return true;
                         }));
}

} // namespace

bool refuseStabilityOfOld(const RoundState& state) {
    if (!state.hasOldResults()) return false;
    refuse(
        u"評価結果が今の回答や要因構成より古いため、順位の安定は図にできません。\n"
        "先に評価計算を行ってください。"_s);
    return true;
}

bool PrintFigures(Output& output, const RoundSelection& chosen, const Progress& progress) {
    auto results = readRoundResults(chosen);
    if (refuseWithoutResults(results)) return false;
    const auto state = readRoundState(chosen);
    results.foot = state.footLine(Sheet::columns);
    const auto earlier = latestEarlierResults(chosen);
    auto sheets = drawCoefficients(results, chosen.evaluators.size() == 1
                                                ? results.positionOf(chosen.evaluators.front().number)
                                                : std::nullopt);
    append(sheets, drawAgreement(results, earlier ? &*earlier : nullptr));
    append(sheets, drawSensitivity(results));
    const bool isWhole = !refuseStabilityOfOld(state);
    if (isWhole) append(sheets, drawnStability(chosen, results, progress));
    printFigures(output, sheets, results.problem);
    return isWhole;
}
