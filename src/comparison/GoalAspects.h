// By what the children of each goal factor are compared: by importance, or by quality where they are what the
// decision is about.
#pragma once

#include <QHash>

#include "judgement/ComparisonScale.h"

class Connection;

// Goals that are not named are compared by importance.
using GoalAspects = QHash<qint32, Aspect>;

// By quality where all children are alternatives: leaves that stand under several goals. "questions.txt" in
// the folder may say otherwise for single goals; without that file the rule alone holds. Raises error 5 for a
// line of the file that means nothing for this problem, with its place.
GoalAspects readGoalAspects(Connection& connection, qint32 problemNo, const QString& folder);
