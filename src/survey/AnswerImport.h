// Reads files in and stores them in one go, without a screen to look at in between.
#pragma once

#include <QStringList>
#include <functional>

struct ProblemRound;

// Answers given before are replaced only with `replace`. `stored` is told each file that is stored now,
// `told` what there is to say of the files: faults, notices, comparisons at odds. True when every file was
// stored. Raises error 5 for a problem without anything to compare.
bool importAnswers(const ProblemRound& round, const QStringList& paths, bool replace,
                   const std::function<void(const QString& path)>& stored,
                   const std::function<void(const QString& line)>& told);
