// What 比較者設定 hands to 比較値設定: whose comparisons are entered, of what.
#pragma once

#include <QString>

namespace Common {

extern QString CmpProblemName;
extern qint32 CmpProblemNo;
extern qint32 CmpEvaluatorNo;
extern QString CmpEvaluatorName;
extern QString CmpDate; // "yyyy/mm/dd"
extern qint16 CmpRound;

} // namespace Common
