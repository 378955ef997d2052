#include "comparison/PairEntry.h"

#include <algorithm>
#include <utility>

#include "judgement/ComparisonScale.h"
#include "judgement/PairOrder.h"

PairEntry::PairEntry(int items) : items_(items), pairs_(static_cast<std::size_t>(pairCount(items))) {}

int PairEntry::setPairs() const {
    return static_cast<int>(
        std::ranges::count_if(pairs_, [](const Pair& pair) { return pair.position.has_value(); }));
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

int PairEntry::earlierPairs() const {
    return static_cast<int>(std::ranges::count_if(pairs_, &Pair::isEarlier));
}

std::optional<int> PairEntry::position(PairCell cell) const {
    return pair(cell).position;
}

void PairEntry::set(PairCell cell, std::optional<int> position) {
    change(number(cell), {position});
}

void PairEntry::change(int number, Pair to) {
    before_ = {number, std::exchange(pairs_.at(static_cast<std::size_t>(number)), to)};
    unsaved_ = true;
}

void PairEntry::takeEarlier(const std::vector<std::optional<int>>& positions, bool areStored) {
    for (std::size_t pair = 0; pair < pairs_.size(); ++pair)
        pairs_[pair] = {positions.at(pair), positions[pair].has_value()};
    before_.reset();
    unsaved_ = !areStored && setPairs() > 0;
}

void PairEntry::markSaved() {
    for (auto& pair : pairs_) pair.isEarlier = false; // it is this time's answer now
    if (before_) before_->second.isEarlier = false;
    unsaved_ = false;
}

std::optional<PairCell> PairEntry::undo() {
    if (!before_) return std::nullopt;
    const auto [pair, was] = *before_;
    change(pair, was);
    return cell(pair);
}

std::optional<PairCell> PairEntry::nextOpen(PairCell after) const {
    const int first = isPair(after) ? number(after) + 1 : 0;
    for (int step = 0; step < pairs(); ++step)
        if (const int pair = (first + step) % pairs(); !pairs_[static_cast<std::size_t>(pair)].position)
            return cell(pair);
    return std::nullopt;
}

std::vector<float> PairEntry::values() const {
    std::vector<float> values;
    for (const auto& pair : pairs_) values.push_back(scaleValue(pair.position.value()));
    return values;
}
