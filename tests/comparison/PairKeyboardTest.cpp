// What is typed into the comparison grid, without the grid.
#include <gtest/gtest.h>

#include <QMap>

#include "comparison/PairKeyboard.h"
#include "judgement/ComparisonScale.h"

using namespace Qt::StringLiterals;

namespace {

// Types keys; "\n" is Enter, "<" and ">" the arrows, "~" Backspace, "Z" undo.
void type(PairKeyboard& keyboard, const QString& keys) {
    static const QMap<QChar, int> named{
        {u'\n', Qt::Key_Return}, {u'<', Qt::Key_Left}, {u'>', Qt::Key_Right}, {u'~', Qt::Key_Backspace}};
    for (const QChar key : keys)
        if (key == u'Z')
            keyboard.undo();
        else
            keyboard.press(named.value(key, key.unicode()), named.contains(key) ? QString() : QString(key));
}

// The values in pair order, "." for none, then the current cell and "/" when half of a value is typed.
std::string stateOf(const PairKeyboard& keyboard) {
    QString state;
    const auto& entry = keyboard.entry();
    for (int row = 1; row < entry.items(); ++row)
        for (int column = row + 1; column <= entry.items(); ++column) {
            const auto position = entry.position({row, column});
            state += (position ? scaleText(*position) : u"."_s) + u' ';
        }
    const auto [row, column] = keyboard.current();
    return (state + u"%1,%2"_s.arg(row).arg(column) + (keyboard.isHalfTyped() ? u"/"_s : QString()))
        .toStdString();
}

} // namespace

TEST(PairKeyboardTest, ValuesAreTypedAsTheyAreRead) {
    for (const auto& [typed, state] :
         {std::pair{u"32/4"_s, "3 2 1/4 2,3"}, // a complete value goes on to the next open pair
          {u"1\n1\n1"_s, "1 1 1 2,3"},
          {u"12"_s, "1 2 . 2,3"}, // the next key completes "1" too
          {u"1/35"_s, "1/3 5 . 2,3"},
          {u"/1/95"_s, "1 1/9 5 2,3"},
          {u"2317"_s, "2 3 1 2,3"}, // a digit behind the last pair belongs to none
          {u"34<<5"_s, "5 4 . 2,3"},
          {u"3/<5"_s, "5 . . 1,3"}, // "/" was left behind
          {u"1/~5"_s, "5 . . 1,3"},
          {u"3<1/"_s, "3 . . 1,2/"}, // the value before "1" is kept as long as there is no other
          {u"0x.３"_s, "3 . . 1,3"},
          {u"34<~"_s, "3 . . 1,3"},
          {u"34<~Z"_s, "3 4 . 1,3"},
          {u"34Z"_s, "3 . . 1,3"},
          {u"34ZZ"_s, "3 4 . 1,3"},
          {u"1/4Z"_s, ". . . 1,2"},
          {u">>>2"_s, ". . 2 1,2"}, // the arrows go from row to row and stop at the ends
          {u"<2>><<3"_s, "3 . . 1,3"},
          {u"23<"_s, "2 3 . 1,3"}}) {
        PairKeyboard keyboard(3);
        keyboard.goTo({1, 2});
        type(keyboard, typed);
        EXPECT_EQ(stateOf(keyboard), state) << typed.toStdString();
    }
}

TEST(PairKeyboardTest, KeysThatAreNotTheGridsAreToldApart) {
    using Press = PairKeyboard::Press;
    PairKeyboard keyboard(3);
    for (const auto& [cell, key, text, expected] :
         {std::tuple{PairCell{2, 2}, int{Qt::Key_3}, u"3"_s, Press::Swallowed},
          {PairCell{1, 2}, Qt::Key_A, u"a"_s, Press::Swallowed},
          {PairCell{1, 2}, Qt::Key_S, QString(), Press::Ignored}, // a command
          {PairCell{1, 2}, Qt::Key_Up, QString(), Press::Ignored},
          {PairCell{1, 2}, Qt::Key_F2, QString(), Press::OpensList},
          {PairCell{1, 2}, Qt::Key_1, u"1"_s, Press::Done},
          {PairCell{1, 2}, Qt::Key_Enter, QString(), Press::Done},
          {PairCell{1, 3}, Qt::Key_Enter, QString(), Press::OpensList}}) {
        keyboard.goTo(cell);
        EXPECT_EQ(keyboard.press(key, text), expected) << key;
    }
    EXPECT_EQ(keyboard.takeCompleted(), (PairCell{1, 2}));
    EXPECT_EQ(keyboard.takeCompleted(), std::nullopt);
}
