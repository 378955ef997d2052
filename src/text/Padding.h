// Texts of a fixed width in lists.
#pragma once

#include <QString>

namespace Common {

// The text in full-width (flag set; `width` is halved for the caller too) or half-width characters, padded on
// the right or cut to `width` characters. Raises error 5 for a negative width.
QString PadWidth(const QString& text, qint16& width, const qint16& fullWidth);
// The text padded with blanks on the left or cut to its first `width` characters. Raises error 5 for a
// negative width.
QString PadLeft(const QString& text, const qint16& width);

} // namespace Common
