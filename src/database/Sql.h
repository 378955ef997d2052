// The text of a statement.
#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>

// The hash of a statement's text (G. Fowler, L. Noll, K.-P. Vo): a constant's is made by the compiler. A
// calculation runs a hundred thousand statements of two hundred characters each.
constexpr std::size_t hashOf(const char16_t* text, qsizetype size) {
    std::uint64_t hash = 14695981039346656037U;
    for (qsizetype i = 0; i < size; ++i) hash = (hash ^ text[i]) * 1099511628211U;
    return static_cast<std::size_t>(hash);
}

// A constant of the program, so that no value can ever be part of a statement's text: another text does not
// compile. Values are bound to its "?".
//
// The engine plans a statement before it knows the values. What it must know to choose an index stands in
// the text: an index may hold for レベル = 2 alone.
class Sql {
  public:
    template <std::size_t Size>
    consteval Sql(const char16_t (&text)[Size])
        : text_(text), size_(Size - 1), hash_(hashOf(text, Size - 1)) {}

    // Shares the constant's characters.
    QString toString() const { return QString::fromRawData(reinterpret_cast<const QChar*>(text_), size_); }
    std::size_t hash() const { return hash_; }

  private:
    const char16_t* text_;
    qsizetype size_;
    std::size_t hash_;
};

// A statement that is read from the schema or put together from its names of tables and columns. None of the
// rooms that read and write rows needs one.
struct SchemaSql {
    QString text;
};

// What a compiled statement is found by.
struct StatementText {
    StatementText(Sql sql) : text(sql.toString()), hash(sql.hash()) {}
    explicit StatementText(const QString& composed)
        : text(composed),
          hash(hashOf(reinterpret_cast<const char16_t*>(composed.utf16()), composed.size())) {}

    bool operator==(const StatementText& other) const { return hash == other.hash && text == other.text; }

    struct Hash {
        std::size_t operator()(const StatementText& statement) const { return statement.hash; }
    };

    QString text;
    std::size_t hash;
};
