// Conversion of text between full-width and half-width characters, and display widths.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

QString toHalfWidth(const QString& text);
QString toFullWidth(const QString& text);
// With the plain sign for the long minus U+2212 and the hyphen U+2010, which the input method writes.
QString plainMinus(QString text);

// Length in characters and the first `count` characters; a surrogate pair is one character.
int characterCount(const QString& text);
QString leadingCharacters(const QString& text, int count);

// A line break, a tab or another character that is not for reading.
bool isControl(QChar character);
// Whether there is a line break, a tab or another character that is not for reading.
bool hasControlCharacters(const QString& text);
// The first line that is not empty, without control characters; a tab becomes a blank.
QString firstLine(const QString& text);

// All lines joined by blanks, without control characters; a tab becomes a blank.
QString joinedLines(const QString& text);

// One character in the code page windows-31j, nothing when the code page lacks it.
std::optional<QByteArray> characterInCodePage(char32_t character);

// The text in the code page windows-31j. Raises error 5 that names the first character which it lacks.
QByteArray toCodePage(const QString& text);

// A text for a cell of a text file: one that a spreadsheet program would take for a formula and run begins
// with an apostrophe there; and the text of such a cell.
QString cellOfText(const QString& text);
QString textOfCell(const QString& cell);

// Text file content: UTF-8 when the bytes are valid UTF-8 (a byte order mark is dropped), else windows-31j.
QString fromFileBytes(const QByteArray& bytes);
