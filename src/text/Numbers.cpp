#include "text/Numbers.h"

#include <unicode/decimfmt.h>
#include <unicode/unistr.h>

#include <QRegularExpression>
#include <charconv>
#include <cmath>
#include <limits>
#include <map>
#include <memory>

#include "text/RuntimeError.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

QString plainForm(const QString& text) {
    return plainMinus(toHalfWidth(text));
}

template <typename Whole>
Whole rounded(double number) {
    const double nearest = std::nearbyint(number); // the default mode rounds halves to even
    if (!(nearest >= std::numeric_limits<Whole>::min() && nearest <= std::numeric_limits<Whole>::max()))
        throw RuntimeError(ErrorCode::Overflow);
    return static_cast<Whole>(nearest);
}

std::unique_ptr<icu::DecimalFormat> makeFormat(const QString& pattern) {
    UErrorCode status = U_ZERO_ERROR;
    auto symbols = std::make_unique<icu::DecimalFormatSymbols>(icu::Locale::getRoot(), status);
    auto format = std::make_unique<icu::DecimalFormat>(
        icu::UnicodeString(reinterpret_cast<const char16_t*>(pattern.utf16())), symbols.release(), status);
    if (U_FAILURE(status)) throw RuntimeError(ErrorCode::InvalidCall);
    format->setRoundingMode(icu::DecimalFormat::kRoundHalfUp);
    return format;
}

} // namespace

bool isNumeric(const QString& text) {
    static const QRegularExpression number(uR"(^\s*[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d{1,3})?\s*$)"_s);
    return number.match(plainForm(text)).hasMatch();
}

double leadingNumber(const QString& text) {
    static const QRegularExpression leading(uR"(^\s*[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d{1,3})?)"_s);
    return leading.match(plainForm(text)).captured().trimmed().toDouble();
}

qint16 toInteger(double number) {
    return rounded<qint16>(number);
}

qint32 toLong(double number) {
    return rounded<qint32>(number);
}

QString decimalText(double number) {
    if (std::isinf(number)) throw RuntimeError(ErrorCode::Overflow); // statements would read a name
    // Within these bounds statements and screens show no exponent.
    const double size = std::abs(number);
    const auto form =
        number == 0 || (size >= 1e-15 && size < 1e15) ? std::chars_format::fixed : std::chars_format::general;
    std::array<char, 48> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, form).ptr;
    return QString::fromLatin1(buffer.data(), end - buffer.data());
}

QString formatNumber(double number, const QString& pattern) {
    static std::map<QString, std::unique_ptr<icu::DecimalFormat>> formats;
    auto& format = formats[pattern];
    if (!format) format = makeFormat(pattern);

    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString shown;
    format->format(icu::StringPiece(decimalText(number).toStdString()), shown, nullptr, status);
    if (U_FAILURE(status)) throw RuntimeError(ErrorCode::InvalidCall);
    return QString::fromUtf16(shown.getBuffer(), shown.length());
}

QString digitsAfterFirst(qint64 number, int digits) {
    return QString::number(number).mid(1, digits);
}
