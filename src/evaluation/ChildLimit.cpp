#include "evaluation/ChildLimit.h"
#include "core/FactorNames.h"

using namespace Qt::StringLiterals;

RuntimeError tooManyChildren(Connection& connection, qint32 parentNo, int most) {
    return {ErrorCode::SubscriptOutOfRange,
            u"インデックスが有効範囲にありません。\n「%1」の子要因が多すぎます（%2 までです）。\n"
            "要因構成登録で、いくつかを中間の要因にまとめてください。"_s.arg(factorName(connection, parentNo))
                .arg(most)};
}
