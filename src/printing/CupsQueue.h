// The print queues of this computer, as the print system lists them.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

struct CupsQueue {
    QString name;
    QString description; // what people call the printer; often empty
    bool isDefault = false;
};

// In the order of the print system; empty when it cannot be reached.
QList<CupsQueue> cupsQueues();

// Hands a PDF document to a queue, to be printed in its true size on A4. Returns when the queue has taken the
// whole document. Raises error 482 with the print system's own words when it does not.
void sendToCupsQueue(const QString& queue, const QString& title, const QByteArray& pdf);
