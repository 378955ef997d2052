#include "text/Dates.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>

#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

struct Era {
    QStringView name;
    QChar letter;
    QDate first;
};
// The latest first.
const std::array eras{Era{u"令和", u'R', QDate(2019, 5, 1)}, Era{u"平成", u'H', QDate(1989, 1, 8)},
                      Era{u"昭和", u'S', QDate(1926, 12, 25)}, Era{u"大正", u'T', QDate(1912, 7, 30)}};

constexpr int century = 2000; // of a year that is written with two digits

// The era whose name, first character or letter stands before the year.
const Era& eraOf(const QString& sign) {
    return *std::ranges::find_if(eras, [&](const Era& era) {
        return era.name.startsWith(sign) || sign.front().toUpper() == era.letter;
    });
}

bool isInEra(QDate date, const Era& era) {
    const auto* next = &era == eras.data() ? nullptr : &era - 1;
    return date >= era.first && (next == nullptr || date < next->first);
}

} // namespace

std::optional<QDate> parseDate(const QString& text) {
    static const QRegularExpression pattern(
        uR"(^\s*(?:(?:(令和?|平成?|昭和?|大正?|[RHSTrhst])\s*(\d{1,2}|元)\s*[/.年-]|(\d{4})\s*[/.年-]|(\d\d)\s*[/.-])\s*)?)"
        uR"((\d{1,2})\s*[/.月-]\s*(\d{1,2})\s*日?\s*$)"_s);
    // Compatibility forms: full-width characters, and an era in a single character.
    const auto match = pattern.match(plainMinus(text.normalized(QString::NormalizationForm_KC)));
    if (!match.hasMatch()) return std::nullopt;
    const auto number = [&](int group) { return match.captured(group).toInt(); };
    const Era* era = match.hasCaptured(1) ? &eraOf(match.captured(1)) : nullptr;
    const int ofEra = match.captured(2) == u"元"_s ? 1 : number(2);
    const int year = era != nullptr         ? era->first.year() - 1 + ofEra
                     : match.hasCaptured(3) ? number(3)
                     : match.hasCaptured(4) ? century + number(4)
                                            : QDate::currentDate().year();
    const QDate date(year, number(5), number(6));
    const bool isDate = date.isValid() && (era == nullptr || isInEra(date, *era));
    return isDate ? std::optional(date) : std::nullopt;
}

QString formatDate(QDate date) {
    return date.toString(u"yyyy/MM/dd"_s);
}
