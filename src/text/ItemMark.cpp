#include "text/ItemMark.h"

#include "text/RuntimeError.h"

QChar itemMark(int item) {
    if (item < 1 || item > mostItemMarks) throw RuntimeError(ErrorCode::SubscriptOutOfRange);
    constexpr char16_t first = u'①';
    return QChar(first + item - 1);
}
