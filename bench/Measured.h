// What the measurements share: the large problem in an application directory of its own.
#pragma once

#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include "Workload.h"
#include "rounds/RoundSelection.h"

// One iteration with the smallest numbers, to see that all measurements run.
bool isQuickRun();

// The numbers of evaluators, children … that a measurement runs with; in a quick run only the first.
template <int... Numbers>
void numbers(benchmark::internal::Benchmark* measurement) {
    measurement->Unit(benchmark::kMillisecond);
    if (isQuickRun()) measurement->Iterations(1);
    for (const int number : std::initializer_list<int>{Numbers...}) {
        measurement->Arg(number);
        if (isQuickRun()) break;
    }
}

// An application directory with message files and a database of empty tables; Common's connection is open.
class MeasuredDirectory {
  public:
    MeasuredDirectory();
    ~MeasuredDirectory();
    MeasuredDirectory(const MeasuredDirectory&) = delete;
    MeasuredDirectory& operator=(const MeasuredDirectory&) = delete;

    QString path() const { return directory_.path(); }
    QString databasePath() const { return path() + QStringLiteral("/DB/Hollin.mdb"); }
    // What stands in the database now, and goes back to it.
    void keep() const;
    void restore() const;

  private:
    QTemporaryDir directory_;
};

// One with the large problem of `evaluators` evaluators.
struct WorkloadDirectory : MeasuredDirectory {
    explicit WorkloadDirectory(int evaluators);
    ProblemRound round() const;
    // Local weights and overall weights of all evaluators, as one unit of work.
    void calculate() const;

    int evaluators;
};
