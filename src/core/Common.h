// Session state that the screens hand to each other, its database connection and the checks of what is
// chosen.
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "database/Connection.h"
#include "text/BoundedArray.h"

namespace Common {

// All live for the whole run; none is stored.
extern std::unique_ptr<Connection> DbConn;
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

// Each says in a message box what is missing and returns false. CheckEvaluatorChosen raises error 5 for an
// entry without ":".
bool CheckProblemChosen();
bool CheckEvaluatorChosen();
bool CheckRoundChosen();
// Both checks, always both: when both are missing the user sees both messages, the round's first.
bool CheckRoundAndEvaluator();

} // namespace Common
