// Fixture that drives the real screens: an application directory of its own with an encrypted database,
// message boxes answered from a script.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QWidget>
#include <deque>
#include <ostream>
#include <vector>

#include "core/Common.h"
#include "core/Screens.h"

struct ShownMessage {
    QString title;
    QString text;
    MessageStyle style = MessageStyle::Exclamation;

    bool operator==(const ShownMessage&) const = default;
};
std::ostream& operator<<(std::ostream& stream, const ShownMessage& message);
// Lets failures show Japanese texts as they are.
void PrintTo(const QString& text, std::ostream* stream);

class ScreenTest : public ::testing::Test {
  protected:
    ScreenTest();
    ~ScreenTest() override;

    // The application directory, with DB/Hollin.mdb and file/.
    QString directory() const { return directory_.path(); }

    // One statement.
    void run(const QString& sql);
    // Fields joined by "|", null as "NULL", one text for each record.
    QStringList rows(const QString& sql);

    // A control of a loaded screen by its name; fails the test when there is none.
    template <typename Control = QWidget>
    Control* control(const QString& screen, const QString& name) {
        auto* form = Common::Forms.find(screen);
        auto* found = form == nullptr ? nullptr : form->findChild<Control*>(name);
        if (found == nullptr)
            throw std::runtime_error(
                (screen + QChar(u'.') + name + QStringLiteral(" is missing")).toStdString());
        return found;
    }
    bool isOpen(const QString& screen) { return Common::Forms.find(screen) != nullptr; }
    bool hasFocus(const QString& screen, const QString& name);
    void click(const QString& screen, const QString& button);
    void type(const QString& screen, const QString& field, const QString& text);
    QString text(const QString& screen, const QString& field);
    // Chooses an entry of a list box or combo box as a user does.
    void choose(const QString& screen, const QString& combo, int index);
    // Selects rows of a list that takes several.
    void select(const QString& screen, const QString& list, const QList<int>& rows);

    // Message boxes so far, taken off the list; each question is answered with the next of `answers`, then
    // with Yes.
    std::vector<ShownMessage> takeMessages() { return std::exchange(shown_, {}); }
    std::deque<MessageAnswer> answers;

  private:
    QTemporaryDir directory_;
    std::vector<ShownMessage> shown_;
};

// Warnings of a screen: the exclamation icon under its title.
inline std::vector<ShownMessage> warning(const QString& title, const QString& text) {
    return {{title, text, MessageStyle::Exclamation}};
}
