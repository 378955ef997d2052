#include "comparison/PairKeyboard.h"

#include "judgement/ComparisonScale.h"
#include "text/TextConversion.h"

void PairKeyboard::goTo(PairCell cell) {
    if (cell == current_) return;
    current_ = cell;
    dropHalfTyped();
}

PairKeyboard::Press PairKeyboard::press(int key, const QString& text) {
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (pending_ == Pending::One) {
                goOn();
                return Press::Done;
            }
            [[fallthrough]];
        case Qt::Key_Space:
        case Qt::Key_F2:
            dropHalfTyped(); // what is typed next belongs to the list
            return Press::OpensList;
        case Qt::Key_Delete:
        case Qt::Key_Backspace:
            clear();
            return Press::Done;
        case Qt::Key_Left:
        case Qt::Key_Right:
            return moveOn(key) ? Press::Done : Press::Ignored;
        default:
            return type(text);
    }
}

// Every printable key is the grid's: the search of the toolkit's own tables and lists would jump to another
// cell or another value.
PairKeyboard::Press PairKeyboard::type(const QString& text) {
    const QString typed = toHalfWidth(text);
    if (typed.size() != 1 || !typed.front().isPrint()) return Press::Ignored;
    const bool isScaleKey = typed.front() == u'/' || (typed.front() >= u'1' && typed.front() <= u'9');
    if (!isScaleKey || !entry_.isPair(current_)) return Press::Swallowed;
    typeScale(typed.front());
    return Press::Done;
}

// 2 to 9 is a value, and so is "/" with a digit ("1/3" may be typed as it is read). "1" counts at once, but
// the grid goes on only with the next key, which may be "/".
void PairKeyboard::typeScale(QChar typed) {
    if (pending_ == Pending::One && typed == u'/') {
        entry_.undo();
    } else if (pending_ == Pending::One) {
        if (!entry_.nextOpen(current_)) return; // the digit belongs to no pair
        goOn();
    }
    if (typed == u'/') {
        pending_ = Pending::Slash;
        return;
    }
    const bool isReciprocal = std::exchange(pending_, Pending::Nothing) == Pending::Slash;
    const int position = positionOf(typed.digitValue());
    if (isReciprocal || typed != u'1') return choose(isReciprocal ? mirrorPosition(position) : position);
    entry_.set(current_, position);
    pending_ = Pending::One;
}

void PairKeyboard::choose(int position) {
    if (!entry_.isPair(current_)) return;
    entry_.set(current_, position);
    goOn();
}

void PairKeyboard::goOn() {
    dropHalfTyped();
    completed_ = current_;
    current_ = entry_.nextOpen(current_).value_or(current_);
}

void PairKeyboard::clear() {
    if (std::exchange(pending_, Pending::Nothing) != Pending::Slash && entry_.isPair(current_) &&
        entry_.position(current_))
        entry_.set(current_, std::nullopt);
}

void PairKeyboard::undo() {
    const auto cell = entry_.undo();
    if (!cell) return;
    current_ = *cell;
    dropHalfTyped();
}

// At the end of a row the arrow goes on to the next pair, at its beginning back to the pair before.
bool PairKeyboard::moveOn(int key) {
    dropHalfTyped();
    if (!entry_.isPair(current_)) return false;
    const auto [row, column] = current_;
    const int items = entry_.items();
    PairCell to{row, column + (key == Qt::Key_Right ? 1 : -1)};
    if (to.column > items) to = {row + 1, row + 2};
    if (to.column == row) to = {row - 1, items};
    if (!entry_.isPair(to)) return false;
    current_ = to;
    return true;
}
