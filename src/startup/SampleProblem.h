// The sample problem: a decision with its hierarchy, its evaluators and all comparisons of its first round,
// written by hand as JSON so that it can be read and changed as a text.
//
// "factors" holds the problem too. A hierarchy is given parent by parent, the children in display order. A
// matrix of comparisons is given by its rows above the diagonal, texts of the comparison scale with blanks
// between them: the first row compares the first child with the second, third, … one.
#pragma once

#include <QByteArray>

class Connection;

QByteArray sampleProblem();

// Adds the problem of such a text to a database in which none of its numbers is used. Raises error 13, with
// what is wrong, for a text that is no JSON, a text off the scale, and a row that does not fit the number of
// children.
void addProblem(Connection& connection, const QByteArray& json);
