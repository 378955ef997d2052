// Message boxes: what is asked, and who shows it.
#pragma once

#include <QString>
#include <functional>

enum class MessageStyle { Plain, Exclamation, Question }; // Question: Yes and No, without an icon
enum class MessageAnswer { Ok, Yes, No };

// Shows the box and waits for the user's answer.
using MessagePresenter =
    std::function<MessageAnswer(const QString& text, const QString& title, MessageStyle style)>;

// A real box on the desktop.
MessagePresenter desktopPresenter();
// Text and title on standard error; questions are answered with Yes.
MessagePresenter consolePresenter();
