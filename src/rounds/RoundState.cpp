#include "rounds/RoundState.h"

#include <QStringList>
#include <algorithm>
#include <array>

#include "core/FactorNames.h"
#include "database/Recordset.h"
#include "rounds/AnsweredGoals.h"
#include "rounds/RoundEntries.h"
#include "rounds/StoredResults.h"
#include "text/TextColumns.h"

using namespace Qt::StringLiterals;

namespace {

QString nameAlone(const EvaluatorState& evaluator, const RoundState& /*round*/) {
    return evaluator.name;
}

template <ResultState state>
bool has(const EvaluatorState& evaluator) {
    return evaluator.results == state;
}

// What is told of an evaluator, by the words it is told with.
struct Note {
    QString words;
    bool (*applies)(const EvaluatorState&);
    QString (*name)(const EvaluatorState&, const RoundState&) = nameAlone;
};

const std::array notes{
    Note{u"途中"_s, [](const auto& evaluator) { return evaluator.answers == AnswerState::Partial; },
         [](const auto& evaluator, const auto& round) {
             return u"%1 %2/%3 目的"_s.arg(evaluator.name).arg(evaluator.goals).arg(round.goals);
         }},
    Note{u"回答より古い"_s, has<ResultState::Old>},
    Note{u"計算が中断"_s, has<ResultState::Stopped>},
    Note{u"結果が一部"_s, has<ResultState::Partial>,
         [](const auto& evaluator, const auto& round) {
             return u"%1 %2/%3 要因"_s.arg(evaluator.name).arg(evaluator.leaves).arg(round.leaves);
         }},
    Note{u"今の構成にない要因がある"_s, has<ResultState::Foreign>},
    Note{u"計算前"_s,
         [](const auto& evaluator) {
             return evaluator.answers == AnswerState::Complete && evaluator.results == ResultState::None;
         }},
    Note{u"回答なし"_s,
         [](const auto& evaluator) {
             return evaluator.answers == AnswerState::None && evaluator.results == ResultState::None;
         }},
    Note{u"課題評価者以外"_s, [](const auto& evaluator) { return !evaluator.isAssigned; }},
};

enum class Tell { Names, Numbers };

QString notesOn(const std::vector<EvaluatorState>& evaluators, const RoundState& round, Tell tell) {
    QStringList texts;
    for (const auto& note : notes) {
        QStringList names;
        for (const auto& evaluator : evaluators)
            if (note.applies(evaluator)) names << note.name(evaluator, round);
        if (names.isEmpty()) continue;
        texts << (tell == Tell::Names ? note.words + u": "_s + names.join(u'・')
                                      : u"%1 %2 名"_s.arg(note.words).arg(names.size()));
    }
    return texts.join(u'、');
}

QString lineOf(const RoundState& round, Tell tell) {
    const auto assigned = std::ranges::count_if(round.evaluators, &EvaluatorState::isAssigned);
    const auto with = std::ranges::count_if(
        round.evaluators, [](const auto& evaluator) { return evaluator.isAssigned && evaluator.hasTotals; });
    const auto line = u"評価結果 %1 / %2 名"_s.arg(with).arg(assigned);
    const auto remarks = notesOn(round.evaluators, round, tell);
    return remarks.isEmpty() ? line : line + u"（%1）"_s.arg(remarks);
}

// What the states of all evaluators are told from.
struct Round {
    explicit Round(const ProblemRound& of)
        : problemNo(of.problemNo),
          comparisons(readComparisons(of)),
          stored(readStoredResults(of)),
          structure(readStructure(of.connection, of.problemNo)),
          answered(answeredGoals(readFamilies(of.connection, of.problemNo), comparisons)),
          leaves(reachableLeaves(of.problemNo, structure)) {}

    qint32 problemNo;
    ComparisonsByEvaluator comparisons;
    std::map<qint32, StoredResults> stored;
    ChildrenByParent structure;
    AnsweredGoals answered;
    std::set<qint32> leaves;
};

template <typename Map>
const typename Map::mapped_type& valueOf(const Map& values, qint32 evaluatorNo) {
    static const typename Map::mapped_type none;
    const auto found = values.find(evaluatorNo);
    return found == values.end() ? none : found->second;
}

AnswerState answerState(const Round& round, qint32 evaluatorNo) {
    if (!round.comparisons.contains(evaluatorNo)) return AnswerState::None;
    return round.answered.isComplete(evaluatorNo) ? AnswerState::Complete : AnswerState::Partial;
}

ResultState resultState(const Round& round, const EvaluatorState& evaluator) {
    const auto leaves = static_cast<std::size_t>(evaluator.leaves);
    const auto& stored = valueOf(round.stored, evaluator.number);
    if (!belongTo(stored, valueOf(round.comparisons, evaluator.number), round.problemNo, round.structure))
        return stored.edges.empty()    ? ResultState::None
               : stored.totals.empty() ? ResultState::Stopped
                                       : ResultState::Old;
    if (leaves < stored.totals.size()) return ResultState::Foreign;
    if (evaluator.answers == AnswerState::None) return ResultState::None;
    // What is not answered yet has no results either: that is no fault of theirs.
    return leaves < round.leaves.size() && evaluator.answers == AnswerState::Complete ? ResultState::Partial
                                                                                      : ResultState::Complete;
}

EvaluatorState stateOf(const Round& round, qint32 evaluatorNo, const QString& name, bool isAssigned) {
    EvaluatorState state{.number = evaluatorNo,
                         .name = name.isEmpty() ? QString::number(evaluatorNo) : name,
                         .isAssigned = isAssigned,
                         .goals = round.answered.count(evaluatorNo),
                         .answers = answerState(round, evaluatorNo)};
    const auto& totals = valueOf(round.stored, evaluatorNo).totals;
    state.hasTotals = !totals.empty();
    for (const auto& [leaf, total] : totals) state.leaves += round.leaves.contains(leaf) ? 1 : 0;
    state.results = resultState(round, state);
    return state;
}

} // namespace

bool hasResults(const ProblemRound& of, qint32 evaluatorNo) {
    return !Recordset(of.connection,
                      u"select * from 評価結果 where レベル = 2 and 課題番号=? and 比較回数=?"
                      " and 評価者番号=? order by 子要因番号",
                      of.problemNo, of.round, evaluatorNo)
                .eof();
}

bool RoundState::isComplete() const {
    return std::ranges::all_of(evaluators, &EvaluatorState::isComplete);
}

bool RoundState::hasOldResults() const {
    return std::ranges::any_of(evaluators, [](const auto& evaluator) {
        return evaluator.hasTotals && evaluator.results == ResultState::Old;
    });
}

QString RoundState::line() const {
    return lineOf(*this, Tell::Names);
}

QString RoundState::footLine(int columns) const {
    if (isComplete()) return {};
    const QString whole = line();
    return TextColumns(whole) <= columns ? whole : lineOf(*this, Tell::Numbers);
}

QString RoundState::notesOf(const std::vector<qint32>& evaluatorNos) const {
    std::vector<EvaluatorState> chosen;
    for (const auto& evaluator : evaluators)
        if (std::ranges::find(evaluatorNos, evaluator.number) != evaluatorNos.end())
            chosen.push_back(evaluator);
    return notesOn(chosen, *this, Tell::Names);
}

RoundState readRoundState(const ProblemRound& of) {
    const Round round(of);
    RoundState state{
        static_cast<int>(round.answered.goals.size()), static_cast<int>(round.leaves.size()), {}};
    std::set<qint32> assigned;
    for (const auto& entry : evaluatorEntries(of.connection, QString::number(of.problemNo))) {
        const auto number = *assigned.insert(entryNumber(entry).toInt()).first;
        state.evaluators.push_back(stateOf(round, number, entry.section(u':', 1), true));
    }
    for (const auto& [number, stored] : round.stored)
        if (!assigned.contains(number))
            state.evaluators.push_back(stateOf(round, number, evaluatorName(of.connection, number), false));
    return state;
}
