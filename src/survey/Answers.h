// What an answer sheet that came back says, apart from what the database says to it.
#pragma once

#include <QList>
#include <QStringList>
#include <functional>
#include <optional>

// Something to tell about a file. With a fault nothing of the file is stored.
struct Finding {
    enum Kind { Notice, Fault } kind;
    QString place; // "シート「回答」12 行"; empty for the file as a whole
    QString text;

    QString line() const;
};

struct AnsweredPair {
    QString place;
    qint32 goalNo;
    qint32 pairNo; // order of the pair, from 1
    qint32 leftNo;
    qint32 rightNo;
    QString left;
    QString right;
    std::optional<int> position; // on the comparison scale; none: not answered
};

struct Answers {
    QString path;
    std::optional<qint32> problemNo;
    std::optional<qint32> round;
    std::optional<qint32> evaluatorNo;
    QString evaluator; // the name in the answer sheet
    QList<AnsweredPair> pairs;
    QList<Finding> findings;
};

// Reads forms one after the other and gives each to `take`. Whatever is wrong with a file is among its
// findings.
void readAnswers(const QStringList& paths, const std::function<void(const Answers&)>& take);
