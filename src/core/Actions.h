// The one way in which event procedures run.
#pragma once

#include <QString>
#include <functional>

// Runs the body of an event procedure and ends its unit of work. A run-time error's description is shown with
// the exclamation icon under `caption`; what was written before the error stays. True when there was none.
bool runAction(const QString& caption, const std::function<void()>& body);

// The same for an event procedure without an error handler of its own: an error is reported as unhandled and
// ends the program with exit code 1.
bool runEvent(const std::function<void()>& body);

// Shows an error that nothing handled and ends the program with exit code 1.
void reportUnhandled(const QString& description);
