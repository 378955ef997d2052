// The marks by which the items of a comparison matrix are told apart.
#pragma once

#include <QChar>

constexpr int mostItemMarks = 20;

// ① for item 1 to ⑳ for item 20. Raises error 9 outside.
QChar itemMark(int item);
