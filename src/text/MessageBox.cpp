#include "text/MessageBox.h"

#include <QTextStream>

MessagePresenter consolePresenter() {
    return [](const QString& text, const QString& title, MessageStyle style) {
        QTextStream(stderr) << title << ": " << text << '\n';
        return isQuestion(style) ? MessageAnswer::Yes : MessageAnswer::Ok;
    };
}
