#include "text/Value.h"

#include "text/Numbers.h"
#include "text/Overloaded.h"
#include "text/RuntimeError.h"

bool Value::isEmptyText() const {
    const auto* text = std::get_if<QString>(&content_);
    return text != nullptr && text->isEmpty();
}

QString Value::toText() const {
    return visit(Overloaded{
        [](std::monostate) -> QString { throw RuntimeError(ErrorCode::InvalidNull); },
        [](qint64 number) { return QString::number(number); },
        [](double number) { return decimalText(number); },
        [](const QString& text) { return text; },
    });
}

double Value::toDouble() const {
    return visit(Overloaded{
        [](std::monostate) -> double { throw RuntimeError(ErrorCode::InvalidNull); },
        [](qint64 number) { return static_cast<double>(number); },
        [](double number) { return number; },
        [](const QString& text) {
            if (!isNumeric(text)) throw RuntimeError(ErrorCode::TypeMismatch);
            return leadingNumber(text);
        },
    });
}

qint32 Value::toLong() const {
    return ::toLong(toDouble());
}

qint16 Value::toInteger() const {
    return ::toInteger(toDouble());
}

namespace Common {

Value NullToZero(const Value& value) {
    return value.isNull() || value.isEmptyText() ? Value(0) : value;
}

QString NullToEmpty(const Value& value) {
    return value.isNull() ? QString() : value.toText();
}

} // namespace Common
