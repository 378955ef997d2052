#include "platform/Dates.h"

#include <QRegularExpression>

#include "platform/TextConversion.h"

using namespace Qt::StringLiterals;

std::optional<QDate> parseDate(const QString& text) {
    static const QRegularExpression pattern(
        uR"(^\s*(?:(\d{4})\s*[/.年-]\s*)?(\d{1,2})\s*[/.月-]\s*(\d{1,2})\s*日?\s*$)"_s);
    const auto match = pattern.match(toHalfWidth(text));
    if (!match.hasMatch()) return std::nullopt;
    const int year = match.hasCaptured(1) ? match.captured(1).toInt() : QDate::currentDate().year();
    const QDate date(year, match.captured(2).toInt(), match.captured(3).toInt());
    return date.isValid() ? std::optional(date) : std::nullopt;
}

QString formatDate(QDate date) {
    return date.toString(u"yyyy/MM/dd"_s);
}
