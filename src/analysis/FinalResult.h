// The final result: one coefficient for each bottom-level factor, stored and written for other programs.
#pragma once

#include <QString>
#include <vector>

#include "screens/Work.h"

class Connection;
struct ProblemRound;

// Computes, stores and writes the coefficients of the chosen problem and round. False when there was nothing
// to do it with; the user has been told why.
bool SetCoefficients(Output& output, const RoundSelection& chosen, const WorkOptions& options,
                     const Progress& progress);

// Replaces the rows of the problem in 総合係数 by the geometric mean of the evaluators' overall weights of
// each bottom-level factor, to four decimals, and writes them by factor number into `folder`\〈problem〉.csv:
// a line of names, a line of figures. Every statement stands at once: without results of the round the
// earlier rows are gone all the same (a message, and false), and an error leaves the rows inserted so far and
// the earlier file.
//
// Raises error 5 for a weight of 0 or below, for a problem name that has a folder separator in it or is
// longer than a file name, and for a name that the code page lacks, 75 or 76 when the file cannot be written.
bool ComputeCoefficients(const ProblemRound& of, const QString& folder);

// A coefficient as it stands in the table and in the file. Equal ones have the same rank.
struct RankedCoefficient {
    int rank = 0;
    QString factor;
    QString coefficient;
    QString share; // of the sum of all, in %
};

// Those of a problem, the highest first.
std::vector<RankedCoefficient> storedCoefficients(Connection& connection, qint32 problemNo);

// Whether the stored coefficients are those that the results of this round give now.
bool areOfPresentResults(const ProblemRound& of);

// The text between double quotes; those inside it stay as they are.
QString Quote(const QString& text);
