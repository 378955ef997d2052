#include "core/Messages.h"

#include "core/Common.h"

namespace Common {

QString MsgTitle;
QString MsgText;
MessagePresenter Presenter = consolePresenter();

MessageAnswer showMessage(MessageStyle style) {
    return showMessage(style, MsgTitle);
}

MessageAnswer showMessage(MessageStyle style, const QString& title) {
    makeDurable();
    return Presenter(MsgText, title, style);
}

void refuse(const QString& text) {
    MsgText = text;
    showMessage(MessageStyle::Exclamation);
}

void inform(const QString& text) {
    MsgText = text;
    showMessage(MessageStyle::Plain);
}

bool confirm(const QString& text) {
    MsgText = text;
    return showMessage(MessageStyle::Question) == MessageAnswer::Yes;
}

bool confirmDiscard(const QString& text) {
    MsgText = text;
    return showMessage(MessageStyle::Discard) == MessageAnswer::Yes;
}

} // namespace Common
