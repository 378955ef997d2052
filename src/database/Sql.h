// The text of a statement.
#pragma once

#include <QString>
#include <cstddef>

// A constant of the program, so that no value can ever be part of a statement's text: another text does not
// compile. Values are bound to its "?".
//
// The engine plans a statement before it knows the values. What it must know to choose an index stands in
// the text: an index may hold for レベル = 2 alone.
class Sql {
  public:
    template <std::size_t Size>
    consteval Sql(const char16_t (&text)[Size]) : text_(text), size_(Size - 1) {}

    // Shares the constant's characters.
    QString toString() const { return QString::fromRawData(reinterpret_cast<const QChar*>(text_), size_); }

  private:
    const char16_t* text_;
    qsizetype size_;
};

// A statement that is read from the schema or put together from its names of tables and columns. None of the
// rooms that read and write rows needs one.
struct SchemaSql {
    QString text;
};
