// Pieces of statements that are composed as text.
#pragma once

#include <QString>

// The text between single quotes, quotes inside it doubled.
QString quoted(const QString& text);

// Puts a blank between a number and the word that follows it directly ("12AND" → "12 AND"), outside quoted
// texts and names. An exponent ("1e-07") stays one number.
QString separateNumbers(const QString& sql);
