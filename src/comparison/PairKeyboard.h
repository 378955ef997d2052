// The keyboard's rules of the comparison grid, without a window: what a key does to the current pair, and
// where it goes on.
#pragma once

#include <QString>
#include <optional>
#include <utility>

#include "comparison/PairEntry.h"

class PairKeyboard {
  public:
    // What became of a key.
    enum class Press {
        Ignored,   // it is for whoever comes next
        Swallowed, // it means nothing here, and nothing elsewhere either
        Done,
        OpensList, // of the values for the current cell
    };

    explicit PairKeyboard(int items = 0) : entry_(items) {}

    const PairEntry& entry() const { return entry_; }
    void markSaved() { entry_.markSaved(); }
    void takeEarlier(const std::vector<std::optional<int>>& positions, bool areStored) {
        dropHalfTyped();
        entry_.takeEarlier(positions, areStored);
    }

    // The cell that keys are about; it need not be a pair's.
    PairCell current() const { return current_; }
    // Another cell: what was typed of a value stays behind.
    void goTo(PairCell cell);

    // The whole grid can be filled without the mouse: arrows move, Enter, Space and F2 open the list, digits
    // and "/" are the value. `key` is a Qt::Key.
    Press press(int key, const QString& text);
    // The same for printable keys only, which mean in the open list what they mean in the grid.
    Press type(const QString& text);
    // A position of the scale for the current pair: the grid goes on to the next open one.
    void choose(int position);
    void undo();

    // "/" or "1/": the digit is still to come.
    bool isHalfTyped() const { return pending_ == Pending::Slash; }
    void dropHalfTyped() { pending_ = Pending::Nothing; }
    // The pair whose value was completed since this was last asked.
    std::optional<PairCell> takeCompleted() { return std::exchange(completed_, std::nullopt); }

  private:
    // After "1" may come "/", after "/" must come a digit.
    enum class Pending { Nothing, One, Slash };

    void typeScale(QChar typed);
    void goOn();
    void clear();
    bool moveOn(int key);

    PairEntry entry_;
    PairCell current_;
    Pending pending_ = Pending::Nothing;
    std::optional<PairCell> completed_;
};
