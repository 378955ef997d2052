// The answer sheet that an evaluator fills in on a computer. Its rows are the same in a spreadsheet and in a
// text file with commas; who writes it and who reads it agree here.
//
//     調査票　防災・減災事業の優先順位（2回）
//     課題番号      1  防災・減災事業の優先順位
//     比較回数      2
//     評価者番号    5  佐藤花子
//     …
//     目的番号  組  左の要因  回答    右の要因  回答の意味  左番号  右番号
//           12                「避難所の設備」にとって、…
//           12   1  水道      左が 3  電気      …                21      22
#pragma once

#include <QString>
#include <optional>

namespace AnswerLayout {

using namespace Qt::StringLiterals;

// Each with its value in the cell to the right.
inline const QString problemLabel = u"課題番号"_s;
inline const QString roundLabel = u"比較回数"_s;
inline const QString evaluatorLabel = u"評価者番号"_s;
inline const QString openLabel = u"未回答の組"_s;

inline const QString sheetName = u"回答"_s;

enum Column { GoalNo, PairNo, Left, Answer, Right, Meaning, LeftNo, RightNo, columns };
// Over the columns. The reader finds them by these, wherever a spreadsheet program has moved them.
QString heading(Column column);

// The answers by their position on the comparison scale, 0 to 16: "左が 9" … "左が 2", "同じ", "右が 2" …
// "右が 9". No program takes one of them for a number, a date or a part of a formula.
QString choice(int position);
// Blanks and full-width digits make no difference.
std::optional<int> positionOf(const QString& answer);

} // namespace AnswerLayout
