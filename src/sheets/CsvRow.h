// Rows of text files with commas.
#pragma once

#include <QStringList>

// With carriage return and line feed; cells with a comma, a quote or a line end stand in quotes, and no
// cell is a formula.
QString csvRow(const QStringList& cells);
