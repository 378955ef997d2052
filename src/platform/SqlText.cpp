#include "platform/SqlText.h"

using namespace Qt::StringLiterals;

namespace {

bool isAsciiDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

bool isWordCharacter(QChar c) {
    return c.isLetterOrNumber() || c == u'_' || c.isSurrogate();
}

// Position after the quoted text or name that starts at `start`.
qsizetype afterQuotes(const QString& sql, qsizetype start) {
    const auto end = sql.indexOf(sql[start], start + 1);
    return end < 0 ? sql.size() : end + 1;
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

} // namespace

QString quoted(const QString& text) {
    return u'\'' + QString(text).replace(u"'"_s, u"''"_s) + u'\'';
}

QString separateNumbers(const QString& sql) {
    QString separated;
    separated.reserve(sql.size() + 16);
    for (qsizetype at = 0; at < sql.size();) {
        const auto start = at;
        const QChar c = sql[at];
        if (c == u'\'' || c == u'"') {
            at = afterQuotes(sql, at);
        } else if (isAsciiDigit(c)) {
            at = afterNumber(sql, at);
        } else if (isWordCharacter(c)) {
            at = afterWord(sql, at);
        } else {
            ++at;
        }
        separated += QStringView(sql).mid(start, at - start);
        if (isAsciiDigit(c) && at < sql.size() && isWordCharacter(sql[at])) separated += u' ';
    }
    return separated;
}
