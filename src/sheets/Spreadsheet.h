// An .xlsx file in the making, of sheets and formats of the writing library, which knows only paths and plain
// structures.
#pragma once

#include <xlsxwriter.h>

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

class Spreadsheet {
  public:
    // Raises error 75 when there is no room to write in.
    Spreadsheet();
    Spreadsheet(const Spreadsheet&) = delete;
    Spreadsheet& operator=(const Spreadsheet&) = delete;
    ~Spreadsheet();

    // A name has at most 31 characters, none of []:*?/\.
    lxw_worksheet* sheet(const QString& name);
    // The font of the program, in the middle of the row.
    lxw_format* format();
    // The finished file; nothing can be added afterwards. Raises error 75 when it cannot be written.
    QByteArray bytes();

  private:
    QByteArray path() const;
    [[noreturn]] void fail() const;

    QTemporaryDir folder_;
    lxw_workbook* book_;
};

void writeText(lxw_worksheet* sheet, lxw_row_t row, int column, const QString& text, lxw_format* format);
void writeNumber(lxw_worksheet* sheet, lxw_row_t row, int column, qint32 number, lxw_format* format);
