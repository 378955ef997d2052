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
    int pairs() const { return static_cast<int>(pairs_.size()); }
    int setPairs() const;
    bool isPair(PairCell cell) const;

    // Position on the comparison scale, nothing while the pair is not set.
    std::optional<int> position(PairCell cell) const;
    void set(PairCell cell, std::optional<int> position);
    // All pairs at once with what was answered before, in pair order; a pair that is set or cleared later is
    // the user's own. They are unsaved unless they are what is stored.
    void takeEarlier(const std::vector<std::optional<int>>& positions, bool areStored);
    bool isEarlier(PairCell cell) const { return pair(cell).isEarlier; }
    int earlierPairs() const;
    // Takes the last change back, called again brings it back; the pair concerned, or nothing to take back.
    std::optional<PairCell> undo();

    // The first pair without a value behind the given one in pair order, else the first of all; nothing when
    // all are set.
    std::optional<PairCell> nextOpen(PairCell after = {}) const;

    bool isUnsaved() const { return unsaved_; }
    void markSaved();

    // In pair order, once all are set.
    std::vector<float> values() const;

  private:
    struct Pair {
        std::optional<int> position;
        bool isEarlier = false;
    };

    int number(PairCell cell) const;
    PairCell cell(int pair) const;
    const Pair& pair(PairCell cell) const { return pairs_.at(static_cast<std::size_t>(number(cell))); }
    void change(int number, Pair to);

    int items_;
    std::vector<Pair> pairs_;                    // in pair order
    std::optional<std::pair<int, Pair>> before_; // the last pair changed and what it was
    bool unsaved_ = false;
};
