// What one calculation is about.
#pragma once

#include <QtGlobal>

class Connection;

struct EvaluatorRound {
    Connection& connection;
    qint32 problemNo;
    qint32 evaluatorNo;
    qint16 round;
};
