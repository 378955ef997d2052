// Archives in memory: spreadsheet files as other programs write them, and what is inside of ours.
#pragma once

#include <QByteArray>
#include <QList>
#include <utility>

QByteArray zipped(const QList<std::pair<QByteArray, QByteArray>>& parts);
// A part of an archive; empty when there is none.
QByteArray unzipped(const QByteArray& archive, const char* part);
