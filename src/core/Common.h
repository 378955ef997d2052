// Session state that the screens hand to each other, and the small procedures they share.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include "database/Connection.h"
#include "text/BoundedArray.h"
#include "text/MessageBox.h"

namespace Common {

// A number and a name, both as text, of one row of a list.
struct NumberedName {
    QString number;
    QString name;
};

// All live for the whole run; none is stored.
extern std::unique_ptr<Connection> DbConn;
extern QString MsgTitle;
extern QString MsgText;
extern QString AppDir; // without trailing separator

extern QString ProblemEntry; // "number:name"
extern qint32 ProblemNo;
extern QString ProblemNoText;
extern QString EvaluatorEntry; // "number:name"
extern BoundedArray<qint32, 101> EvaluatorNos;
extern qint16 EvaluatorCount;
extern QString RoundEntry;
extern qint16 RoundCount;

extern qint16 EvaluatorLoadFailed;

// What the program shows with: who presents message boxes and the manual.
extern MessagePresenter Presenter;
extern std::function<void(const QString& screen)> HelpPresenter; // opens the manual at a screen's section

// Opens a fresh connection to DB/Hollin.mdb beside the program in place of the previous one, which stays when
// that fails. Raises a database error when the file is missing, no database, in use, or locked by another
// password.
void openDatabase(const QString& applicationDirectory);

// Makes durable what the action has written so far, or raises an error, with the database as it was before
// the action. Whoever has written calls it before a control is cleared, refilled or closed: the screen must
// not look as if something were stored that is not. What it will show then is read before, so that nothing
// can fail any more.
void makeDurable();

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

// Each says in a message box what is missing and returns false. CheckEvaluatorChosen raises error 5 for an
// entry without ":".
bool CheckProblemChosen();
bool CheckEvaluatorChosen();
bool CheckRoundChosen();
// Both checks, always both: when both are missing the user sees both messages, the round's first.
bool CheckRoundAndEvaluator();

} // namespace Common
