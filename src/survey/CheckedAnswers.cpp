#include "survey/CheckedAnswers.h"

#include <QFileInfo>
#include <QHash>
#include <QMap>
#include <QSet>
#include <algorithm>

#include "comparison/StoredComparisons.h"
#include "core/Common.h"
#include "core/FactorNames.h"
#include "database/Recordset.h"
#include "judgement/AnswerCheck.h"
#include "judgement/ComparisonMatrix.h"
#include "judgement/ComparisonScale.h"
#include "judgement/Consistency.h"
#include "judgement/Limits.h"
#include "judgement/PairOrder.h"
#include "judgement/PowerMethod.h"
#include "rounds/RoundEntries.h"
#include "rounds/RoundSelection.h"
#include "survey/AnswerLayout.h"
#include "text/Dates.h"
#include "text/Numbers.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype mostFindings = 50; // of one file: whoever reads them has long seen what is wrong

QString named(const Factor& factor) {
    return formatNumber(factor.number, u"0000"_s) + u"「"_s + factor.name + u"」"_s;
}

bool isAssigned(Connection& connection, qint32 problemNo, qint32 evaluatorNo) {
    return !Recordset(connection, u"select 評価者番号 from 課題評価者 where 課題番号=? and 評価者番号=?",
                      problemNo, evaluatorNo)
                .eof();
}

class Check {
  public:
    Check(const Questionnaire& questionnaire, const Answers& answers, CheckedAnswers& checked)
        : questionnaire_(questionnaire), answers_(answers), checked_(checked) {}

    void run(Connection& connection) {
        checked_.path = answers_.path;
        checked_.goals = static_cast<int>(questionnaire_.goals.size());
        checked_.findings = answers_.findings;
        if (!answers_.problemNo || !answers_.round || !answers_.evaluatorNo) return;
        checked_.evaluator = {*answers_.evaluatorNo, answers_.evaluator};
        checked_.problemAndRound = u"課題 %1（%2回）"_s.arg(*answers_.problemNo).arg(*answers_.round);
        if (!isForThisRound()) return; // every row of it would be a fault
        checkEvaluator(connection);
        sortPairs();
        for (const auto& goal : questionnaire_.goals) checkGoal(goal);
    }

  private:
    bool isForThisRound() {
        const bool sameProblem = answers_.problemNo == questionnaire_.problem.number;
        if (!sameProblem)
            fault({}, u"別の課題の調査票です（この調査票は課題 %1、選択された課題は %2）。"_s.arg(
                          QString::number(*answers_.problemNo), named(questionnaire_.problem)));
        else if (answers_.round != questionnaire_.round)
            fault({}, u"別の比較回数の調査票です（この調査票は %1 回、課題は %2 回）。"_s.arg(*answers_.round)
                          .arg(questionnaire_.round));
        return sameProblem && answers_.round == questionnaire_.round;
    }

    void checkEvaluator(Connection& connection) {
        const auto number = *answers_.evaluatorNo;
        if (!isAssigned(connection, questionnaire_.problem.number, number))
            return fault({}, u"評価者 %1「%2」は課題評価者ではありません。"_s.arg(QString::number(number),
                                                                                  answers_.evaluator));
        const auto name = evaluatorName(connection, number);
        if (name != answers_.evaluator)
            notice({}, u"評価者 %1 の氏名が登録と異なります（調査票「%2」、登録「%3」）。"_s.arg(
                           QString::number(number), answers_.evaluator, name));
        checked_.evaluator.name = name;
    }

    void sortPairs() {
        QSet<qint32> goals;
        for (const auto& goal : questionnaire_.goals) goals.insert(goal.factor.number);
        for (const auto& pair : answers_.pairs) {
            if (!goals.contains(pair.goalNo)) {
                fault(pair.place,
                      u"目的番号 %1 はこの課題の目的要因ではありません。要因構成が変わっています。"_s.arg(
                          pair.goalNo));
                continue;
            }
            const auto*& known = pairs_[pair.goalNo][pair.pairNo];
            if (known != nullptr)
                fault(pair.place, u"目的番号 %1 の組 %2 が重複しています（%3 と）。"_s.arg(pair.goalNo)
                                      .arg(pair.pairNo)
                                      .arg(known->place));
            known = &pair;
        }
    }

    void checkGoal(const QuestionGoal& goal) {
        auto pairs = pairs_.value(goal.factor.number);
        if (pairs.isEmpty())
            return fault(
                {}, u"目的要因 %1の行がありません。消されたか、用紙を作った後で加わった目的要因です。"_s.arg(
                        named(goal.factor)));
        if (const auto added = addedSince(goal, pairs); !added.isEmpty())
            return fault(
                {},
                u"目的要因 %1に、調査票にない要因があります: %2。行が消されたか、用紙を作った後で加わった要因です。"_s
                    .arg(named(goal.factor), added.join(u'、')));
        int answered = 0;
        std::vector<float> values;
        for (const auto& pair : goal.pairs()) {
            const auto* answer = pairs.take(pair.number);
            if (answer == nullptr) {
                fault({},
                      u"目的要因 %1の組 %2 の行がありません。"_s.arg(named(goal.factor)).arg(pair.number));
                continue;
            }
            checkFactors(*answer, pair);
            answered += answer->position.has_value();
            values.push_back(answer->position ? scaleValue(*answer->position) : 0);
        }
        tellSurplus({pairs.begin(), pairs.end()});
        if (answered == pairCount(goal.items())) return addComplete(goal, values);
        checked_.open << named(goal.factor);
        if (answered > 0)
            notice({}, u"目的要因 %1は途中です（%2 / %3 組）。この目的要因は登録されません。"_s
                           .arg(named(goal.factor))
                           .arg(answered)
                           .arg(pairCount(goal.items())));
    }

    // The children that no row names, when the form is whole without them.
    static QStringList addedSince(const QuestionGoal& goal, const QHash<qint32, const AnsweredPair*>& pairs) {
        QSet<qint32> met;
        for (const auto* pair : pairs) met << pair->leftNo << pair->rightNo;
        QStringList added;
        for (const auto& child : goal.children)
            if (!met.contains(child.number)) added << named(child);
        const auto then = goal.items() - static_cast<int>(added.size());
        return pairs.size() == pairCount(then) ? added : QStringList();
    }

    void tellSurplus(std::vector<const AnsweredPair*> pairs) {
        std::ranges::sort(pairs); // as their rows stand in the form
        for (const auto* pair : pairs)
            fault(pair->place,
                  u"目的番号 %1 に組 %2 はありません。要因構成が変わっています。"_s.arg(pair->goalNo)
                      .arg(pair->pairNo));
    }

    void checkFactors(const AnsweredPair& answer, const QuestionPair& pair) {
        if (answer.leftNo != pair.left.number || answer.rightNo != pair.right.number)
            return fault(answer.place,
                         u"要因が変わっています（調査票は「%1」と「%2」、いまは%3と%4）。"_s.arg(
                             answer.left, answer.right, named(pair.left), named(pair.right)));
        for (const auto& [then, now] : {std::pair{answer.left, pair.left}, {answer.right, pair.right}})
            if (then.simplified() != now.name.simplified() && !renamed_.contains(now.number)) {
                renamed_.insert(now.number);
                notice(answer.place,
                       u"要因の名前が変わっています（調査票「%1」、いまは%2）。"_s.arg(then, named(now)));
            }
    }

    void addComplete(const QuestionGoal& goal, const std::vector<float>& values) {
        CompleteGoal complete{goal.factor, goal.children, values};
        judge(complete);
        if (pairCount(goal.items()) > mostCalculatedPairs)
            notice({},
                   u"目的要因 %1は要因が 8 個以上あります。登録はできますが、評価計算はできません。"_s.arg(
                       named(goal.factor)));
        checked_.complete.append(complete);
    }

    // As the calculation will judge, and where to ask back.
    static void judge(CompleteGoal& goal) {
        const std::vector<double> pairs(goal.values.begin(), goal.values.end());
        const auto check = checkAnswers(pairs);
        goal.isConsistent = !check.isInconsistent();
        goal.consistency = consistencyText(check);
        if (goal.isConsistent) return;
        goal.consistency += u"　要確認: "_s + atOdds(goal, pairs);
        if (check.oddPair)
            goal.consistency +=
                u"　ほかの回答ともっとも合わない組: %1（回答「%2」、ほかの回答からは「%3」）"_s.arg(
                    namedPair(goal, check.oddPair->source, check.oddPair->target),
                    AnswerLayout::choice(check.oddPair->given),
                    AnswerLayout::choice(check.oddPair->suggested));
    }

    // The pairs that the calculation's report will name.
    static QString atOdds(const CompleteGoal& goal, const std::vector<double>& pairs) {
        const auto n = static_cast<int>(goal.children.size());
        ComparisonMatrix matrix;
        fillMatrix(matrix, pairs, n);
        QStringList named;
        if (power(matrix, static_cast<qint16>(n)) == Convergence::Converged)
            for (const auto& pair : pairsAtOdds(matrix, n))
                named << namedPair(goal, pair.source, pair.target);
        return named.isEmpty() ? u"全体的に不整合"_s : named.join(u"、"_s);
    }

    static QString namedPair(const CompleteGoal& goal, int left, int right) {
        const int number = pairNumber(left, right, static_cast<int>(goal.children.size())) + 1;
        return u"組 %1「%2」と「%3」"_s.arg(QString::number(number), goal.children[left].name,
                                            goal.children[right].name);
    }

    void add(Finding::Kind kind, const QString& place, const QString& text) {
        checked_.findings.append({kind, place, text});
    }
    void fault(const QString& place, const QString& text) { add(Finding::Fault, place, text); }
    void notice(const QString& place, const QString& text) { add(Finding::Notice, place, text); }

    const Questionnaire& questionnaire_;
    const Answers& answers_;
    CheckedAnswers& checked_;
    QHash<qint32, QHash<qint32, const AnsweredPair*>> pairs_; // goal → number of the pair → answer
    QSet<qint32> renamed_;
};

// How many of the complete goals the evaluator has answered before.
int goalsAnsweredBefore(Connection& connection, const Questionnaire& questionnaire,
                        const CheckedAnswers& checked) {
    QSet<qint32> answered;
    for (Recordset rows(connection,
                        u"select 目的要因番号 from 一対比較 where 課題番号=? and 比較回数=? and 評価者番号=? "
                        "group by 目的要因番号",
                        questionnaire.problem.number, questionnaire.round, checked.evaluator.number);
         !rows.eof(); rows.moveNext())
        answered.insert(rows[u"目的要因番号"_s].toLong());
    return static_cast<int>(std::ranges::count_if(
        checked.complete, [&](const auto& goal) { return answered.contains(goal.factor.number); }));
}

} // namespace

bool CheckedAnswers::hasFault() const {
    return std::ranges::any_of(findings, [](const auto& finding) { return finding.kind == Finding::Fault; });
}

int CheckedAnswers::inconsistent() const {
    return static_cast<int>(
        std::ranges::count_if(complete, [](const auto& goal) { return !goal.isConsistent; }));
}

CheckedAnswers checkedAnswers(Connection& connection, const Questionnaire& questionnaire,
                              const Answers& answers) {
    CheckedAnswers checked;
    Check(questionnaire, answers, checked).run(connection);
    checked.replaced = goalsAnsweredBefore(connection, questionnaire, checked);
    return checked;
}

void checkAgainstEachOther(QList<CheckedAnswers>& files) {
    QHash<std::pair<qint32, qint32>, QList<qsizetype>> answeredBy; // evaluator and goal → files
    for (qsizetype file = 0; file < files.size(); ++file)
        for (const auto& goal : files[file].hasFault() ? QList<CompleteGoal>() : files[file].complete)
            answeredBy[{files[file].evaluator.number, goal.factor.number}].append(file);
    QMap<qsizetype, qsizetype> others; // one of them is enough to name
    for (const auto& sharing : answeredBy)
        if (sharing.size() > 1)
            for (const auto file : sharing) others[file] = file == sharing[0] ? sharing[1] : sharing[0];
    for (auto [file, other] : others.asKeyValueRange())
        files[file].findings.append(
            {Finding::Fault,
             {},
             u"「%1」と同じ評価者の同じ目的要因に答えています。どちらか一つだけを読み込んでください。"_s.arg(
                 QFileInfo(files[other].path).fileName())});
}

QStringList findingLines(const CheckedAnswers& answers) {
    QStringList lines;
    for (const auto& finding : answers.findings) {
        if (lines.size() == mostFindings) {
            lines << u"ほか %1 件"_s.arg(answers.findings.size() - mostFindings);
            break;
        }
        lines << (finding.kind == Finding::Fault ? u"誤り: "_s : u"注意: "_s) + finding.line();
    }
    return lines;
}

QString completeLine(const CheckedAnswers& answers) {
    const auto line = u"%1 / %2 目的"_s.arg(answers.complete.size()).arg(answers.goals);
    return answers.open.isEmpty() ? line : line + u"（残り: "_s + answers.open.join(u'、') + u'）';
}

QStringList consistencyLines(const CheckedAnswers& answers, bool onlyInconsistent) {
    QStringList lines;
    for (const auto& goal : answers.complete)
        if (!onlyInconsistent || !goal.isConsistent)
            lines << u"目的要因 %1　%2"_s.arg(named(goal.factor), goal.consistency);
    return lines;
}

namespace {

// Raises error 5 when what the answers were checked against is no longer so: another program may have written
// since.
void requireUnchanged(const ProblemRound& round, const CheckedAnswers& answers) {
    const auto numbers = [](const QList<Factor>& factors) {
        QList<qint32> found;
        for (const auto& factor : factors) found << factor.number;
        return found;
    };
    const auto questionnaire = questionnaireOf(round);
    const auto isAsked = [&](const CompleteGoal& goal) {
        return std::ranges::any_of(questionnaire.goals, [&](const QuestionGoal& asked) {
            return asked.factor.number == goal.factor.number &&
                   numbers(asked.children) == numbers(goal.children);
        });
    };
    QString changed;
    if (currentRound(round.connection, QString::number(round.problemNo)).toInt() != round.round)
        changed = u"課題の比較回数"_s;
    else if (!isAssigned(round.connection, round.problemNo, answers.evaluator.number))
        changed = u"課題評価者"_s;
    else if (!std::ranges::all_of(answers.complete, isAsked))
        changed = u"要因構成"_s;
    else if (goalsAnsweredBefore(round.connection, questionnaire, answers) > answers.replaced)
        changed = u"以前の回答"_s;
    if (!changed.isEmpty())
        throw RuntimeError(
            ErrorCode::InvalidCall,
            u"読み込んだ後に%1が変わったため、登録していません。もう一度読み込んでください。\n%2"_s.arg(
                changed, answers.path));
}

} // namespace

void storeAnswers(const ProblemRound& round, const CheckedAnswers& answers) {
    round.connection.beginUnitOfWork();
    requireUnchanged(round, answers);
    for (const auto& goal : answers.complete) {
        std::vector<qint32> items;
        for (const auto& child : goal.children) items.push_back(child.number);
        saveComparisons(evaluatorRound(round, answers.evaluator.number), goal.factor.number,
                        formatDate(QDate::currentDate()), items, goal.values);
    }
    round.connection.endUnitOfWork();
}
