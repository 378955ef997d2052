// How much one pairwise comparison can hold.
#pragma once

constexpr int mostChildren =
    20; // of one parent: rows of the structure editor, marks ① to ⑳, items of `power`
constexpr int mostCalculatedPairs = 21; // under one goal factor in a calculation: 7 children
