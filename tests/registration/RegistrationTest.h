// What the tests of the registration screens share: one screen at a time, tables of refused inputs, and texts
// that have hurt before.
#pragma once

#include <QListWidget>

#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;

class RegistrationTest : public ScreenTest {
  protected:
    using Typed = std::vector<std::pair<QStringView, QStringView>>; // field, text

    // One click that must be refused; `focus` is the button itself where the message names no field.
    struct Refusal {
        Typed typed;
        QStringView button;
        QStringView text;
        QStringView focus;
    };

    using ScreenTest::click, ScreenTest::type;
    void open(QStringView name) { Common::Forms.show(screen = name.toString()); }
    void type(const Typed& typed) {
        for (const auto& [field, text] : typed) type(screen, field, text);
    }
    void click(QStringView button) { click(screen, button); }
    // Texts of the controls, joined by "|".
    QString texts(std::initializer_list<QStringView> controls) {
        QStringList found;
        for (const auto control : controls) found << text(screen, control);
        return found.join(u'|');
    }
    // The rows of a list, each on a line of its own.
    QString entries(QStringView list) {
        QStringList found;
        const auto* box = control<QListWidget>(screen, list);
        for (int row = 0; row < box->count(); ++row)
            if (!box->item(row)->isHidden()) found << box->item(row)->text();
        return found.join(u'\n');
    }

    // Each refusal starts from the fields that the one before left, and leaves the table as it is.
    void expectRefusals(QStringView title, QStringView table, const std::vector<Refusal>& refusals) {
        const QString everything = u"SELECT * FROM %1 "_s.arg(table);
        const QString before = stored(everything);
        for (const auto& [typed, button, text, focus] : refusals) {
            type(typed);
            EXPECT_EQ(told(screen, button), warning(title.toString(), text.toString()));
            EXPECT_TRUE(hasFocus(screen, focus)) << text.toString().toStdString();
        }
        EXPECT_EQ(stored(everything), before);
    }

    // A click whose writing cannot be made durable is told under the button's caption, and the controls show
    // what they showed before.
    void expectNothingStored(QStringView button, const std::function<QString()>& shown) {
        const QString before = shown();
        const auto other = reader();
        const auto messages = told(screen, button);
        ASSERT_EQ(messages.size(), 2U); // the question before
        EXPECT_EQ(messages[1].title, text(screen, button));
        EXPECT_TRUE(messages[1].text.contains(u"データベースをほかのプログラムが使用しています。"));
        EXPECT_EQ(shown(), before);
    }

    const QStringList hurtingTexts{u"O'Hara"_s,
                                   u"''); DELETE FROM 要因; -- "_s,
                                   u"\"a\" 100%_;\\ /*"_s,
                                   u"%1 %2 1e5AND"_s,
                                   u"ﾊﾝｶｸ ｶﾅﾞ"_s,
                                   u"𠮷野家の𠮷"_s,
                                   QString(400, u'長')};
    QString screen;
};
