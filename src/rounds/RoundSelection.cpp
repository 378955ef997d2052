#include "rounds/RoundSelection.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "rounds/RoundEntries.h"

using namespace Qt::StringLiterals;
using Common::refuse;

namespace {

constexpr qsizetype mostEvaluators = decltype(Common::EvaluatorNos)::size();

void handOver(const std::vector<ChosenEvaluator>& evaluators) {
    Common::EvaluatorCount = 0;
    for (const auto& evaluator : evaluators)
        Common::EvaluatorNos[Common::EvaluatorCount++] = evaluator.number;
}

} // namespace

std::vector<ChosenEvaluator> chosenEvaluators(const QStringList& entries) {
    if (entries.size() > mostEvaluators)
        throw RuntimeError(
            ErrorCode::SubscriptOutOfRange,
            u"インデックスが有効範囲にありません。\n評価者は一度に %1 名まで選択できます。"_s.arg(
                mostEvaluators));
    std::vector<ChosenEvaluator> evaluators;
    for (const auto& entry : entries) evaluators.push_back({Value(entryNumber(entry)).toLong(), entry});
    return evaluators;
}

std::optional<RoundSelection> checkedSelection(Connection& connection, const ChosenEntries& entries,
                                               bool withEvaluators) {
    Common::ProblemEntry = entries.problem;
    Common::RoundEntry = entries.round;
    Common::EvaluatorEntry = entries.evaluators.value(0);
    if (!Common::CheckProblemChosen() ||
        !(withEvaluators ? Common::CheckRoundAndEvaluator() : Common::CheckRoundChosen()))
        return {};

    RoundSelection chosen{
        {connection, Common::ProblemNo, Common::RoundCount}, entries.problem, entries.round, {}};
    if (withEvaluators) handOver(chosen.evaluators = chosenEvaluators(entries.evaluators));
    return chosen;
}

bool allHave(const RoundSelection& chosen, const std::function<bool(qint32)>& has, const QString& roundWord,
             const QString& tableName) {
    for (const auto& evaluator : chosen.evaluators) {
        if (has(evaluator.number)) continue;
        refuse(u"設定された条件、課題：%1 %2:%3 評価者:%4は%5に存在しません"_s.arg(
            chosen.problemEntry, roundWord, chosen.roundEntry, evaluator.entry, tableName));
        return false;
    }
    return true;
}
