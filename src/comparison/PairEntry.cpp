#include "comparison/PairEntry.h"

#include <algorithm>

#include "judgement/ComparisonScale.h"
#include "judgement/PairOrder.h"

PairEntry::PairEntry(int items) : items_(items), positions_(static_cast<std::size_t>(pairCount(items))) {}

int PairEntry::setPairs() const {
    return static_cast<int>(std::ranges::count_if(positions_, &std::optional<int>::has_value));
}

bool PairEntry::isPair(PairCell cell) const {
    return cell.row >= 1 && cell.column > cell.row && cell.column <= items_;
}

int PairEntry::number(PairCell cell) const {
    return pairNumber(cell.row - 1, cell.column - 1, items_);
}

PairCell PairEntry::cell(int pair) const {
    int row = 1;
    for (; pair >= items_ - row; ++row) pair -= items_ - row;
    return {row, row + 1 + pair};
}

std::optional<int> PairEntry::position(PairCell cell) const {
    return positions_.at(static_cast<std::size_t>(number(cell)));
}

void PairEntry::set(PairCell cell, std::optional<int> position) {
    auto& current = positions_.at(static_cast<std::size_t>(number(cell)));
    before_ = {number(cell), current};
    current = position;
    unsaved_ = true;
}

std::optional<PairCell> PairEntry::undo() {
    if (!before_) return std::nullopt;
    const auto [pair, position] = *before_;
    set(cell(pair), position);
    return cell(pair);
}

std::optional<PairCell> PairEntry::nextOpen(PairCell after) const {
    const int first = isPair(after) ? number(after) + 1 : 0;
    for (int step = 0; step < pairs(); ++step)
        if (const int pair = (first + step) % pairs(); !positions_[static_cast<std::size_t>(pair)])
            return cell(pair);
    return std::nullopt;
}

std::vector<float> PairEntry::values() const {
    std::vector<float> values;
    for (const auto& position : positions_) values.push_back(scaleValue(position.value()));
    return values;
}
