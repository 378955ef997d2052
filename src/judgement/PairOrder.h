// The order of pairs under one goal factor: row by row over the upper triangle, (1,2), (1,3), …, (1,n),
// (2,3), …
#pragma once

#include <optional>
#include <utility>
#include <vector>

constexpr int pairCount(int n) {
    return n * (n - 1) / 2;
}

// Number of the pair of items i < j of n, all counted from 0.
constexpr int pairNumber(int i, int j, int n) {
    return i * n - i * (i + 1) / 2 + j - i - 1;
}

// The number of items that have so many pairs, or nothing when the pairs are no full set.
std::optional<int> itemCount(int pairs);

// All pairs i < j of n items in their order, counted from 0.
std::vector<std::pair<int, int>> pairsOf(int n);
