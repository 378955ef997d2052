#include "sheets/Spreadsheet.h"

#include <QFile>
#include <utility>

#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

Spreadsheet::Spreadsheet() : book_(workbook_new(path().constData())) {
    if (book_ == nullptr) fail();
}

Spreadsheet::~Spreadsheet() {
    if (book_ != nullptr) workbook_close(book_);
}

lxw_worksheet* Spreadsheet::sheet(const QString& name) {
    return workbook_add_worksheet(book_, name.toUtf8().constData());
}

lxw_format* Spreadsheet::format() {
    auto* format = workbook_add_format(book_);
    format_set_font_name(format, "ＭＳ Ｐゴシック");
    format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
    return format;
}

QByteArray Spreadsheet::bytes() {
    if (workbook_close(std::exchange(book_, nullptr)) != LXW_NO_ERROR) fail();
    QFile file(QFile::decodeName(path()));
    if (!file.open(QIODevice::ReadOnly)) fail();
    return file.readAll();
}

QByteArray Spreadsheet::path() const {
    return QFile::encodeName(folder_.filePath(u"form.xlsx"_s));
}

void Spreadsheet::fail() const {
    throw RuntimeError(ErrorCode::FileAccess,
                       u"作業用のファイルを書き込めません。ディスクの空き容量を確かめてください。\n%1"_s.arg(
                           folder_.path()));
}

void writeText(lxw_worksheet* sheet, lxw_row_t row, int column, const QString& text, lxw_format* format) {
    worksheet_write_string(sheet, row, static_cast<lxw_col_t>(column), text.toUtf8().constData(), format);
}

void writeNumber(lxw_worksheet* sheet, lxw_row_t row, int column, qint32 number, lxw_format* format) {
    worksheet_write_number(sheet, row, static_cast<lxw_col_t>(column), number, format);
}
