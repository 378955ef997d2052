#include "text/Padding.h"

#include "text/RuntimeError.h"
#include "text/TextConversion.h"

namespace Common {

namespace {

void requireWidth(qint16 width) {
    if (width < 0) throw RuntimeError(ErrorCode::InvalidCall);
}

} // namespace

QString PadWidth(const QString& text, qint16& width, const qint16& fullWidth) {
    const bool isWide = fullWidth != 0;
    if (isWide) width = static_cast<qint16>(width / 2);
    requireWidth(width);
    const QString converted = isWide ? toFullWidth(text) : toHalfWidth(text);
    const auto padding = width - characterCount(converted);
    if (padding > 0) return converted + QString(padding, isWide ? QChar(0x3000) : QChar(u' '));
    return leadingCharacters(converted, width);
}

QString PadLeft(const QString& text, const qint16& width) {
    requireWidth(width);
    const auto padding = width - characterCount(text);
    return padding > 0 ? QString(padding, u' ') + text : leadingCharacters(text, width);
}

} // namespace Common
