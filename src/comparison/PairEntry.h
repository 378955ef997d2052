// The comparisons of one goal factor while they are entered.
#pragma once

#include <optional>
#include <utility>
#include <vector>

// A cell above the diagonal: items counted from 1, row < column.
struct PairCell {
    int row = 0;
    int column = 0;

    bool operator==(const PairCell&) const = default;
};

class PairEntry {
  public:
    explicit PairEntry(int items = 0);

    int items() const { return items_; }
    int pairs() const { return static_cast<int>(positions_.size()); }
    int setPairs() const;
    bool isPair(PairCell cell) const;

    // Position on the comparison scale, nothing while the pair is not set.
    std::optional<int> position(PairCell cell) const;
    void set(PairCell cell, std::optional<int> position);
    // Takes the last change back, called again brings it back; the pair concerned, or nothing to take back.
    std::optional<PairCell> undo();

    // The first pair without a value behind the given one in pair order, else the first of all; nothing when
    // all are set.
    std::optional<PairCell> nextOpen(PairCell after = {}) const;

    bool isUnsaved() const { return unsaved_; }
    void markSaved() { unsaved_ = false; }

    // In pair order, once all are set.
    std::vector<float> values() const;

  private:
    int number(PairCell cell) const;
    PairCell cell(int pair) const;

    int items_;
    std::vector<std::optional<int>> positions_;                // in pair order
    std::optional<std::pair<int, std::optional<int>>> before_; // the last pair changed and what it had
    bool unsaved_ = false;
};
