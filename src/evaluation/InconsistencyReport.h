// The inconsistency report: the goal factors and pairs at which an evaluator's comparisons disagree with each
// other.
#pragma once

class InconsistencyList;
class Output;
struct ProblemRound;

// Prints a section for each run of findings of one evaluator, as one document: the evaluator, the request of
// errmsg.txt, a line for each finding. Prints nothing when there are no findings. Raises error 53 when
// errmsg.txt is missing, and what the printer raises.
void printInconsistencyReport(Output& output, const ProblemRound& of, const InconsistencyList& findings);
