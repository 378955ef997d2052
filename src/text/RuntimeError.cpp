#include "text/RuntimeError.h"

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array descriptions{
    std::pair{ErrorCode::InvalidCall, u"プロシージャの呼び出し、または引数が不正です。"},
    std::pair{ErrorCode::Overflow, u"オーバーフローしました。"},
    std::pair{ErrorCode::SubscriptOutOfRange, u"インデックスが有効範囲にありません。"},
    std::pair{ErrorCode::DivisionByZero, u"0 で除算しました。"},
    std::pair{ErrorCode::TypeMismatch, u"型が一致しません。"},
    std::pair{ErrorCode::FileNotFound, u"ファイルが見つかりません。"},
    std::pair{ErrorCode::FileAccess, u"ファイルにアクセスできません。"},
    std::pair{ErrorCode::PathNotFound, u"パスが見つかりません。"},
    std::pair{ErrorCode::InvalidNull, u"Null の使い方が不正です。"},
    std::pair{ErrorCode::Printer, u"プリンタ エラーです。"},
    std::pair{ErrorCode::Database, u"データベースのエラーです。"},
};

QString standingText(ErrorCode code) {
    for (const auto& [known, text] : descriptions)
        if (known == code) return QString::fromUtf16(text);
    return u"エラーです。"_s;
}

} // namespace

RuntimeError::RuntimeError(ErrorCode code) : RuntimeError(code, standingText(code)) {}

RuntimeError::RuntimeError(ErrorCode code, const QString& description)
    : std::runtime_error(description.toStdString()),
      number_(static_cast<int>(code)),
      description_(description) {}

RuntimeError::RuntimeError(const RuntimeError& cause, const QString& description)
    : std::runtime_error(description.toStdString()), number_(cause.number_), description_(description) {}
