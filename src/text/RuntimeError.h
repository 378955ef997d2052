// A run-time error with the number and the Japanese description that message boxes show.
#pragma once

#include <QString>
#include <stdexcept>

enum class ErrorCode {
    InvalidCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    FileNotFound = 53,
    FileAccess = 75,
    PathNotFound = 76,
    InvalidNull = 94,
    Printer = 482,
    Database = -2147467259,
};

class RuntimeError : public std::runtime_error {
  public:
    // The description is the standing text of the code.
    explicit RuntimeError(ErrorCode code);
    RuntimeError(ErrorCode code, const QString& description);
    // The cause, told in other words.
    RuntimeError(const RuntimeError& cause, const QString& description);

    int number() const { return number_; }
    const QString& description() const { return description_; }

  private:
    int number_;
    QString description_;
};
