#include "database/SqlText.h"

#include <QVarLengthArray>
#include <algorithm>
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace {

bool isAsciiDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// To the engine all that is beyond ASCII belongs to a word.
bool isWordCharacter(QChar c) {
    const char16_t lower = c.unicode() | 0x20;
    return c >= QChar(0x80) || isAsciiDigit(c) || c == u'_' || (lower >= u'a' && lower <= u'z');
}

// Position after the quoted text or name that starts at `start`, quotes inside it doubled; -1 when it does
// not end.
qsizetype afterQuotes(const QString& sql, qsizetype start) {
    for (auto at = start + 1;; at += 2) {
        at = sql.indexOf(sql[start], at);
        if (at < 0) return -1;
        if (at + 1 == sql.size() || sql[at + 1] != sql[start]) return at + 1;
    }
}

// Position after the digits, points and exponent that start at `start`.
qsizetype afterNumber(const QString& sql, qsizetype start) {
    auto at = start;
    while (at < sql.size() && (isAsciiDigit(sql[at]) || sql[at] == u'.')) ++at;
    if (at >= sql.size() || sql[at].toLower() != u'e') return at;
    auto exponent = at + 1;
    if (exponent < sql.size() && (sql[exponent] == u'+' || sql[exponent] == u'-')) ++exponent;
    if (exponent >= sql.size() || !isAsciiDigit(sql[exponent])) return at;
    while (exponent < sql.size() && isAsciiDigit(sql[exponent])) ++exponent;
    return exponent;
}

qsizetype afterWord(const QString& sql, qsizetype start) {
    auto at = start;
    while (at < sql.size() && isWordCharacter(sql[at])) ++at;
    return at;
}

struct Piece {
    enum class Kind { Word, Number, Text, Name, Sign, Blank };

    Kind kind;
    QStringView view;
};

Piece pieceAt(const QString& sql, qsizetype start) {
    const auto piece = [&](Piece::Kind kind, qsizetype end) {
        return Piece{kind, QStringView(sql).mid(start, end < 0 ? -1 : end - start)};
    };
    const QChar c = sql[start];
    if (isAsciiDigit(c)) return piece(Piece::Kind::Number, afterNumber(sql, start));
    if (isWordCharacter(c)) return piece(Piece::Kind::Word, afterWord(sql, start));
    if (c == u'"' || c == u'`') return piece(Piece::Kind::Name, afterQuotes(sql, start));
    if (c != u'\'') return piece(c.isSpace() ? Piece::Kind::Blank : Piece::Kind::Sign, start + 1);
    const auto end = afterQuotes(sql, start);
    return piece(end < 0 ? Piece::Kind::Name : Piece::Kind::Text, end); // left to the engine to refuse
}

bool isOneOf(QStringView word, std::initializer_list<QStringView> words) {
    if (word.size() > 7) return false; // longer than any that is asked for
    return std::ranges::any_of(words, [word](QStringView known) {
        return word.size() == known.size() && word.compare(known, Qt::CaseInsensitive) == 0;
    });
}

// Reads a statement from left to right and decides for each literal whether it may be lifted.
class Lifter {
  public:
    explicit Lifter(const QString& sql) : sql_(sql) { result_.shape.reserve(sql.size() + 16); }

    LiftedStatement lifted() {
        for (qsizetype at = 0; at < sql_.size();) {
            const Piece piece = pieceAt(sql_, at);
            at += piece.view.size();
            read(piece, at);
            if (!readsOrWritesRows_) return {separateNumbers(sql_), {}};
            if (piece.kind != Piece::Kind::Blank) previous_ = piece.view;
        }
        copyUpTo(sql_.size());
        return std::move(result_);
    }

  private:
    void read(const Piece& piece, qsizetype end) {
        switch (piece.kind) {
            case Piece::Kind::Word:
                readWord(piece.view);
                break;
            case Piece::Kind::Number:
                readNumber(piece.view, end);
                break;
            case Piece::Kind::Text:
                readText(piece.view, end);
                break;
            case Piece::Kind::Sign:
                readSign(piece.view.front());
                break;
            default:
                break;
        }
    }

    void readWord(QStringView word) {
        if (word.front() >= QChar(0x80)) return; // a name
        const bool isOuter = holdsPositions_.size() == 1;
        if (previous_.isEmpty())
            readsOrWritesRows_ = isOneOf(word, {u"select", u"insert", u"update", u"delete", u"with"});
        if (isOneOf(word, {u"order", u"group", u"limit", u"offset"})) {
            holdsPositions_.back() = true;
        } else if (isOneOf(word, {u"select", u"from", u"where", u"having", u"union"})) {
            holdsPositions_.back() = false;
        }
        if (!isOuter) return;
        if (fields_ == Fields::Here && isOneOf(word, {u"from", u"union"})) fields_ = Fields::None;
        if (fields_ == Fields::Ahead && isOneOf(word, {u"select"})) fields_ = Fields::Here;
        if (fields_ == Fields::Ahead && isOneOf(word, {u"insert", u"update", u"delete"}))
            fields_ = Fields::None;
    }

    void readSign(QChar sign) {
        if (sign == u'?') readsOrWritesRows_ = false; // has parameters of its own
        if (sign == u'(') holdsPositions_.append(false);
        if (sign == u')' && holdsPositions_.size() > 1) holdsPositions_.removeLast();
    }

    void readNumber(QStringView digits, qsizetype end) {
        const bool isReal = digits.contains(u'.') || digits.contains(u'e', Qt::CaseInsensitive);
        qint64 whole = 0;
        if (!isReal)
            for (const QChar digit : digits.first(std::min<qsizetype>(digits.size(), wholeDigits)))
                whole = 10 * whole + (digit.unicode() - u'0');
        const bool isSmall = !isReal && whole <= 2;
        // What a sign negates is one number to the engine, and a number too large to be whole is a real one.
        if (stays() || isSmall || (!isReal && digits.size() > wholeDigits) || previous_ == u"-" ||
            previous_ == u".") {
            copyUpTo(end);
            if (end < sql_.size() && isWordCharacter(sql_[end])) result_.shape += u' ';
        } else if (isReal) {
            lift({Literal::Kind::Real, 0, digits.toString()}, digits, end);
        } else {
            lift({Literal::Kind::Whole, whole, {}}, digits, end);
        }
    }

    void readText(QStringView text, qsizetype end) {
        const bool isBytes = isOneOf(previous_, {u"x"}) && previous_.end() == text.begin();
        if (stays() || isBytes) return;
        auto content = text.sliced(1, text.size() - 2).toString();
        lift({Literal::Kind::Text, 0, content.replace(u"''"_s, u"'"_s)}, text, end);
    }

    bool stays() const {
        return holdsPositions_.back() || fields_ == Fields::Here ||
               isOneOf(previous_, {u"as", u"like", u"glob", u"escape", u"collate"});
    }

    void lift(Literal literal, QStringView piece, qsizetype end) {
        copyUpTo(end - piece.size());
        copied_ = end;
        result_.shape += u'?';
        result_.literals.push_back(std::move(literal));
    }

    void copyUpTo(qsizetype end) {
        result_.shape += QStringView(sql_).sliced(copied_, end - copied_);
        copied_ = end;
    }

    enum class Fields { Ahead, Here, None };
    static constexpr qsizetype wholeDigits = 18; // fit into 63 bits

    const QString& sql_;
    LiftedStatement result_;
    qsizetype copied_ = 0;
    QStringView previous_;
    bool readsOrWritesRows_ = true;
    Fields fields_ = Fields::Ahead;                   // where the fields of a query stand
    QVarLengthArray<bool, 16> holdsPositions_{false}; // for each open parenthesis
};

} // namespace

QString quoted(const QString& text) {
    return u'\'' + QString(text).replace(u"'"_s, u"''"_s) + u'\'';
}

QString separateNumbers(const QString& sql) {
    QString separated;
    separated.reserve(sql.size() + 16);
    for (qsizetype at = 0; at < sql.size();) {
        const Piece piece = pieceAt(sql, at);
        separated += piece.view;
        at += piece.view.size();
        if (piece.kind == Piece::Kind::Number && at < sql.size() && isWordCharacter(sql[at]))
            separated += u' ';
    }
    return separated;
}

LiftedStatement liftLiterals(const QString& sql) {
    return Lifter(sql).lifted();
}
