// A problem as large as the program allows: the measure of what calculating and reporting cost.
#pragma once

class Connection;

struct Workload {
    static constexpr int problemNo = 1;
    static constexpr int round = 1;
    static constexpr int mostEvaluators = 101;
    static constexpr int levels = 3;
    static constexpr int children = 7; // of each goal factor
    static constexpr int goals = 1 + children + children * children;
    static constexpr int leaves = children * children * children;
    static constexpr int pairs = children * (children - 1) / 2; // of each goal factor
};

// Fills a database of empty tables with problem 1: 57 goal factors with 7 children each on three levels, 343
// leaves, evaluators 1 to `evaluators` with all comparisons of the first round (1,197 rows each), without
// results. The same call makes the same rows. The judgements scatter about weights that differ from evaluator
// to evaluator, so that few of the matrices are inconsistent.
void fillWorkload(Connection& connection, int evaluators = Workload::mostEvaluators);
