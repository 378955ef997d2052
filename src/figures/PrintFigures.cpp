#include "figures/PrintFigures.h"

#include "core/Common.h"
#include "figures/FigureOutput.h"
#include "figures/Figures.h"

using namespace Qt::StringLiterals;
using namespace Common;

namespace {

void append(std::vector<FigureSheet>& sheets, const std::vector<FigureSheet>& more) {
    sheets.insert(sheets.end(), more.begin(), more.end());
}

std::optional<RoundResults> latestEarlierResults(const ProblemRound& chosen) {
    const auto rounds = earlierRounds(chosen);
    if (rounds.empty()) return std::nullopt;
    return readRoundResults({chosen.connection, chosen.problemNo, rounds.front()});
}

} // namespace

bool refuseWithoutResults(const RoundResults& results) {
    if (!results.evaluators.empty()) return false;
    refuse(u"選択された課題、評価回数の評価結果が存在しません。"_s);
    return true;
}

bool PrintFigures(PrintService& print, const RoundSelection& chosen, const Progress& progress) {
    const auto results = readRoundResults(chosen);
    if (refuseWithoutResults(results)) return false;
    const auto earlier = latestEarlierResults(chosen);
    auto sheets = drawCoefficients(results, chosen.evaluators.size() == 1
                                                ? results.positionOf(chosen.evaluators.front().number)
                                                : std::nullopt);
    append(sheets, drawAgreement(results, earlier ? &*earlier : nullptr));
    append(sheets, drawSensitivity(results));
    const auto stability =
        rankStability(readRoundComparisons(chosen.connection, results), stabilityRuns, [&](int done) {
            progress(done, stabilityRuns, u"順位の安定"_s);
            return true;
        });
    append(sheets, drawStability(results, stability));
    printFigures(print, sheets, results.problem);
    return true;
}
