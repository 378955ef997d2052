// One field of a record: null, a whole number, a floating number or a text.
#pragma once

#include <QString>
#include <utility>
#include <variant>
#include <vector>

class Value {
  public:
    Value() = default;
    Value(int number) : content_(static_cast<qint64>(number)) {}
    Value(qint64 number) : content_(number) {}
    Value(double number) : content_(number) {}
    Value(const QString& text) : content_(text) {}

    bool isNull() const { return std::holds_alternative<std::monostate>(content_); }
    bool isEmptyText() const;

    // Each raises error 94 for null; the numeric ones 13 for a text that is no number, 6 when out of range.
    QString toText() const;
    double toDouble() const;
    qint32 toLong() const;
    qint16 toInteger() const;

    template <typename Visitor>
    decltype(auto) visit(Visitor&& visitor) const {
        return std::visit(std::forward<Visitor>(visitor), content_);
    }

    bool operator==(const Value&) const = default;

  private:
    std::variant<std::monostate, qint64, double, QString> content_;
};

// Values of a record by the names of their columns.
using NamedValues = std::vector<std::pair<QString, Value>>;

namespace Common {

// The value, or 0 for null and "".
Value NullToZero(const Value& value);
// "" for null, otherwise the value as text.
QString NullToEmpty(const Value& value);

} // namespace Common
