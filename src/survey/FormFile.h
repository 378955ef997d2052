// The cells of a form that comes back, from a spreadsheet or a text file with commas.
#pragma once

#include <QList>
#include <QMap>
#include <QString>

struct FormCell {
    QString text; // a number or a truth in the file's own spelling; empty for a formula
    bool isFormula = false;
};

// Cells that were made one.
struct MergedCells {
    int firstRow;
    int lastRow;
};

struct FormSheet {
    QString name;                        // empty in a text file
    QMap<int, QMap<int, FormCell>> rows; // row from 1 → column from 0 → cell; empty cells are left out
    QList<MergedCells> merged;
};

// Reads an .xlsx file by the program hollin-sheet, or a text file in UTF-8 or windows-31j. What the file is
// shows in its first bytes, whatever its name says. Raises error 53 or 75 when it cannot be read, 5 with the
// reason in words when it is neither, broken, too large, or has programs in it.
QList<FormSheet> readFormFile(const QString& path);
