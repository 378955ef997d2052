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
#include "core/Messages.h"
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
    // The same as one text, with blanks between the records.
    QString stored(const QString& sql) { return rows(sql).join(u' '); }

    // The structure of a problem as "parent:child,child parent:…". Children stand in their display order, or
    // behind "@" with one of their own; those that have children themselves count as filled.
    void structure(const QString& tree, int problem = 1);
    // Evaluators of problem 1, named 評価者1 and so on.
    void evaluators(const QList<int>& numbers);
    // What the grid stores for a scale text such as "1/3".
    static double scaleValue(const QString& text);
    // The upper triangle of a goal factor, row by row, as scale texts such as "3 1/5 1".
    void compare(int goal, const QList<int>& children, const QString& scales, int evaluator = 1,
                 int round = 1);

    // A control of a loaded screen by its name; fails the test when there is none.
    template <typename Control = QWidget>
    Control* control(QStringView screen, QStringView name) {
        auto* form = Common::Forms.find(screen.toString());
        // Not by the class itself: those of the program have no meta-object of their own.
        auto* found =
            form == nullptr ? nullptr : dynamic_cast<Control*>(form->findChild<QWidget*>(name.toString()));
        if (found == nullptr)
            throw std::runtime_error(QStringLiteral("%1.%2 is missing").arg(screen, name).toStdString());
        return found;
    }
    bool isOpen(QStringView screen) { return Common::Forms.find(screen.toString()) != nullptr; }
    bool hasFocus(QStringView screen, QStringView name);
    void click(QStringView screen, QStringView button);
    // The messages of one click.
    std::vector<ShownMessage> told(QStringView screen, QStringView button) {
        takeMessages();
        click(screen, button);
        return takeMessages();
    }
    // Their texts as one.
    QString toldText(QStringView screen, QStringView button) {
        QStringList texts;
        for (const auto& message : told(screen, button)) texts << message.text;
        return texts.join(u'|');
    }
    void type(QStringView screen, QStringView field, QStringView text);
    QString text(QStringView screen, QStringView field);
    // Chooses an entry of a list box or combo box as a user does.
    void choose(QStringView screen, QStringView combo, int index);
    // Selects rows of a list that takes several.
    void select(QStringView screen, QStringView list, const QList<int>& rows);

    // Message boxes so far, taken off the list; each question is answered with the next of `answers`, then
    // with Yes.
    std::vector<ShownMessage> takeMessages() { return std::exchange(shown_, {}); }
    std::deque<MessageAnswer> answers;
    // What another program writes while the next question stands.
    QStringList writtenMeanwhile;

    // Another program at work on the file until the result goes: one that reads lets nothing become durable,
    // one that writes lets nothing be read either.
    auto reader() { return otherProgram({QStringLiteral("BEGIN"), QStringLiteral("SELECT * FROM 要因")}); }
    auto writer() {
        return otherProgram({QStringLiteral("PRAGMA locking_mode = EXCLUSIVE"),
                             QStringLiteral("INSERT INTO tempfac DEFAULT VALUES"), QStringLiteral("COMMIT")});
    }

  private:
    void expectDurable();
    std::unique_ptr<Connection> otherProgram(const QStringList& statements);

    QTemporaryDir directory_;
    std::vector<ShownMessage> shown_;
};

// Warnings of a screen: the exclamation icon under its title.
inline std::vector<ShownMessage> warning(const QString& title, const QString& text) {
    return {{title, text, MessageStyle::Exclamation}};
}
// What a screen tells without an icon.
inline std::vector<ShownMessage> notice(const QString& title, const QString& text) {
    return {{title, text, MessageStyle::Plain}};
}
inline std::vector<ShownMessage> question(const QString& title, const QString& text) {
    return {{title, text, MessageStyle::Question}};
}
