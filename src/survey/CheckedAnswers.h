// Sets an answer sheet that came back against the database: whether it may be stored, and what is to be said
// of it.
#pragma once

#include <QStringList>
#include <vector>

#include "survey/Answers.h"
#include "survey/Questionnaire.h"

class Connection;

// A goal factor all of whose pairs are answered.
struct CompleteGoal {
    Factor factor;
    QList<Factor> children;
    std::vector<float> values; // in pair order
    bool isConsistent = true;
    QString consistency{}; // in words: CI and CR, then what is at odds
};

struct CheckedAnswers {
    QString path;
    Factor evaluator;
    QString problemAndRound; // as the answer sheet says
    int goals = 0;           // of the questionnaire
    QList<CompleteGoal> complete;
    QStringList open; // the other goals, when the answer sheet could be set against them
    QList<Finding> findings;
    int replaced = 0; // complete goals for which there are answers already

    bool hasFault() const;
    int inconsistent() const; // complete goals
    bool canBeStored() const { return !hasFault() && !complete.isEmpty(); }
};

// Whether the answers belong to the questionnaire as it stands and to one of its evaluators, which goals are
// complete, and how consistent they are. A goal that was not begun is no fault, one that was begun and not
// ended is a notice; it is not stored.
CheckedAnswers checkedAnswers(Connection& connection, const Questionnaire& questionnaire,
                              const Answers& answers);
// Two files must not answer the same goal for the same evaluator: adds the faults to both.
void checkAgainstEachOther(QList<CheckedAnswers>& files);

// Stores the complete goals in place of earlier answers, with the date of today; one unit of work. The caller
// has seen to it that the file can be stored; raises error 5 when another program has changed since what that
// was decided by.
void storeAnswers(const ProblemRound& round, const CheckedAnswers& answers);

// "12 / 14 目的（残り: …）".
QString completeLine(const CheckedAnswers& answers);
// What is to be told of a file, one text for each finding and for each complete goal.
QStringList findingLines(const CheckedAnswers& answers);
QStringList consistencyLines(const CheckedAnswers& answers, bool onlyInconsistent);
