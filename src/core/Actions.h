// The one way in which event procedures run.
#pragma once

#include <QString>
#include <functional>

#include "text/RuntimeError.h"

// Without this there is no program: the one error that ends it.
class StartError : public RuntimeError {
  public:
    explicit StartError(const RuntimeError& cause) : RuntimeError(cause) {}
};

// The same later on: the screen that the user wanted to leave stays, unless he ends the program.
class ReopenError : public RuntimeError {
  public:
    explicit ReopenError(const RuntimeError& cause) : RuntimeError(cause) {}
};

// Runs the body of an event procedure and ends its unit of work. A run-time error's description is shown with
// the exclamation icon under `caption`; what was written before the error stays. True when there was none.
bool runAction(const QString& caption, const std::function<void()>& body);

// The same for an event procedure without an error handler of its own: an error is shown under the title of
// the screen that the event came from.
bool runEvent(const std::function<void()>& body);

// Shows an error that lets the program not go on and ends it with exit code 1.
void reportUnhandled(const QString& description);
