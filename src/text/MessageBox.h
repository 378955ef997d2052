// Message boxes: what is asked, and who shows it.
#pragma once

#include <QString>
#include <functional>

// Question: Yes and No, without an icon. Discard: the same, but No is what Enter answers, since Yes loses
// work.
enum class MessageStyle { Plain, Exclamation, Question, Discard };
enum class MessageAnswer { Ok, Yes, No };

constexpr bool isQuestion(MessageStyle style) {
    return style == MessageStyle::Question || style == MessageStyle::Discard;
}

// Shows the box and waits for the user's answer.
using MessagePresenter =
    std::function<MessageAnswer(const QString& text, const QString& title, MessageStyle style)>;

// Text and title on standard error; questions are answered with Yes.
MessagePresenter consolePresenter();
