// Pieces of statements that are composed as text.
#pragma once

#include <QString>
#include <vector>

// The text between single quotes, quotes inside it doubled.
QString quoted(const QString& text);

// A statement with its %1, %2 … replaced, all in one pass: quicker than one after the other, which counts
// where a statement is composed for each of many rows, and a "%1" in a text stays what it is.
inline QString sqlText(qint32 number) {
    return QString::number(number);
}
inline const QString& sqlText(const QString& text) {
    return text;
}
template <typename... Parts>
QString composed(const QString& statement, const Parts&... parts) {
    return statement.arg(sqlText(parts)...);
}

// Puts a blank between a number and the word that follows it directly ("12AND" → "12 AND"), outside quoted
// texts and names. An exponent ("1e-07") stays one number.
QString separateNumbers(const QString& sql);

// A number or a text that stood in a statement.
struct Literal {
    enum class Kind { Whole, Real, Text };

    Kind kind = Kind::Whole;
    qint64 whole = 0;
    QString text; // a text without its quotes; the digits of a real number
};

struct LiftedStatement {
    QString shape; // with "?" for each literal
    std::vector<Literal> literals;
};

// Takes the literals out of a statement, so that statements that differ in nothing else are compiled once.
// The result means the same to the engine, to the type of every value and the name of every field. Literals
// stay where a parameter would mean something else: positions ("order by 2", "limit"), the fields of a query,
// whose expressions are their names, aliases and patterns. 0 to 2 stay too: the engine expects an equality
// with 0 or 1 to hold for more rows, and joins in another order, and an index may hold for レベル = 2 alone.
// Statements that do not read or write rows stay whole.
LiftedStatement liftLiterals(const QString& sql);
