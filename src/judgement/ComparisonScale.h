// The scale of pairwise comparison: 9 … 1 … 1/9 (T. L. Saaty's fundamental scale and its reciprocals).
#pragma once

#include <QString>

constexpr int scalePositions = 17;

// Position 0 is "9", 8 is "1", 16 is "1/9". Raises error 9 outside 0 to 16.
QString scaleText(int position);
// 9, 8, …, 1, 1/2, …, 1/9 in single precision.
float scaleValue(int position);
// The position of the reciprocal: that of "9" is that of "1/9", "1" is its own.
constexpr int mirrorPosition(int position) {
    return scalePositions - 1 - position;
}
