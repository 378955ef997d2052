#include "judgement/ItemMark.h"

#include "judgement/Limits.h"
#include "text/RuntimeError.h"

QChar itemMark(int item) {
    if (item < 1 || item > mostChildren) throw RuntimeError(ErrorCode::SubscriptOutOfRange);
    constexpr char16_t first = u'①';
    return QChar(first + item - 1);
}
