// How long-running work tells the screen where it stands.
#pragma once

#include <QString>
#include <functional>

// `done` of `total` steps are done; `at` names the evaluator at work.
using Progress = std::function<void(int done, int total, const QString& at)>;
