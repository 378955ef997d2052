// Tables from outside: the cells of spreadsheet and text files, read by hollin-sheet, a program of its own
// with little memory and time, so that what a file does to its reader ends there.
#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <functional>

#include "sheets/SheetListing.h"

struct TableCell {
    QString text; // a number or a truth in the file's own spelling
    CellKind kind = CellKind::Text;
};

struct MergedCells {
    int firstRow;
    int lastRow;
};

struct Table {
    QString name;                         // empty in a text
    QMap<int, QMap<int, TableCell>> rows; // row from 1 → column from 0 → cell; empty cells are left out
    QList<MergedCells> merged;
};

struct TableFile {
    QString path;
    QString fault; // why it cannot be read; empty when it was
    QList<Table> tables;
};

// Reads the files one after the other and gives each to `take`, so that only one is in memory. Raises error
// 53 when hollin-sheet is not there.
void readTableFiles(const QStringList& paths, const std::function<void(const TableFile&)>& take);

// What a file dialog shows: "*.xlsx … *.csv".
QString tableFilePatterns();
