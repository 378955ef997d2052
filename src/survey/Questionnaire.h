// What evaluators are asked in a round: for every goal factor of a problem the pairs of its children.
#pragma once

#include <QHash>
#include <QList>
#include <QString>

#include "hierarchy/Structure.h"
#include "judgement/ComparisonScale.h"
#include "rounds/EvaluatorRound.h"

struct QuestionPair {
    int number; // in pair order, from 1
    Factor left;
    Factor right;
};

struct QuestionGoal {
    Factor factor;
    QList<Factor> children; // in display order
    Aspect aspect = Aspect::Importance;
    QString contents{}; // 要因内容: stands below the question

    int items() const { return static_cast<int>(children.size()); }
    QList<QuestionPair> pairs() const;
};

struct Questionnaire {
    Factor problem;
    qint16 round = 1;
    QList<QuestionGoal>
        goals; // level by level from the problem down; each once; none with less than two children
    QHash<qint32, QString> contents; // 要因内容 by factor, of those that have any

    int pairs() const;
};

// The problem as its structure stands now. Raises error 5 when there is nothing to compare in it.
Questionnaire questionnaireOf(const ProblemRound& round);
// The same to be asked, with the aspect of each goal; the folder has the choices of aspects. Raises what
// `readGoalAspects` does, too.
Questionnaire askedQuestionnaire(const ProblemRound& round, const QString& folder);

// "調査票　課題（2回）".
QString titleOf(const Questionnaire& questionnaire);

// "「…」にとって、左と右のどちらがどれだけ重要ですか。", or what fits the goal's aspect.
QString questionOf(const QuestionGoal& goal);
