// Message boxes: their texts, who shows them, and the words that the screens and works say them with.
#pragma once

#include <QString>

#include "text/MessageBox.h"

namespace Common {

// Both live for the whole run.
extern QString MsgTitle;
extern QString MsgText;

extern MessagePresenter Presenter; // who shows the boxes

// Shows MsgText under MsgTitle, or under `title`. Ends the unit of work first: nobody knows how long the user
// will look at the box. Raises an error when that fails.
MessageAnswer showMessage(MessageStyle style);
MessageAnswer showMessage(MessageStyle style, const QString& title);

// MsgText = text, shown with the exclamation icon under MsgTitle.
void refuse(const QString& text);
// MsgText = text, shown without an icon under MsgTitle.
void inform(const QString& text);
// MsgText = text, asked with Yes and No under MsgTitle; true for Yes.
bool confirm(const QString& text);
// The same for a Yes that loses what the user has entered: Enter answers No.
bool confirmDiscard(const QString& text);

} // namespace Common
