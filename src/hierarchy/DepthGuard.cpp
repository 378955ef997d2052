#include "hierarchy/DepthGuard.h"

#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

void requireDepth(const QString& problemNo, int level, int parents) {
    if (level > parents)
        throw RuntimeError(
            ErrorCode::InvalidCall,
            u"課題 %1 の要因構成が循環しています。要因構成登録で確かめてください。"_s.arg(problemNo));
}
