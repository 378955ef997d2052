#include "comparison/ComparisonSession.h"

namespace Common {

QString CmpProblemName;
qint32 CmpProblemNo = 0;
qint32 CmpEvaluatorNo = 0;
QString CmpEvaluatorName;
QString CmpDate;
qint16 CmpRound = 0;

} // namespace Common
