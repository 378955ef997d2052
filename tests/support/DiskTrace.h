// Stands between the program and the system's calls that decide what a power cut leaves.
#pragma once

#include <QStringList>
#include <functional>

// What the body asks of the disk, in order: "contents" and "folder" for a sync, "name" and "removal". The
// sync of that number, counted from 1, fails.
QStringList diskTrace(const std::function<void()>& body, int failingSync = 0);
