// The width of texts on paper, in half-width columns.
#pragma once

#include <QString>

// Columns of one character: 1 when its code in windows-31j is 0 to 254, 2 for all others, those that the code
// page lacks included.
qint16 CharWidth(char32_t character);
// Columns of a text.
int TextColumns(const QString& text);
// How many leading characters fit into `limit` columns. A surrogate pair is one character.
qint16 FitChars(const QString& text, qint16 limit);
// The text, or as much of it as leaves room for "…" where it is longer.
QString cutToColumns(const QString& text, int columns);
