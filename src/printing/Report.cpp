#include "printing/Report.h"

#include <QDate>
#include <algorithm>
#include <utility>
#include <vector>

#include "text/Dates.h"
#include "text/ItemMark.h"
#include "text/TextColumns.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double leftMargin = 5;                 // mm
constexpr double portraitRight = 205;            // mm
constexpr double landscapeRight = 292;           // mm
constexpr double halfWidth = 10 * 25.4 / 72 / 2; // mm, at 10 pt
constexpr double ruleRise = 1.2; // mm above the row below it: in the middle of the gap that the text leaves
constexpr int fineRule = 1;
constexpr int heavyRule = 5;
constexpr qint16 titleRow = 1;
constexpr qint16 firstRow = 2;
constexpr qint16 messageIndent = 6;
constexpr qsizetype decimalPlaces = 4;
constexpr double leastMatrixCell = 4.6 * halfWidth; // "1/9" and a gap that sets neighbours apart
constexpr double widestMatrixCell = 6 * halfWidth;
constexpr double usualMatrixName = 80; // mm; longer names take what the cells leave
constexpr int cellRows = 5;            // at most, of a long text
constexpr int hanging = 2;             // half-width columns by which the further rows of a text are moved

double rightMargin(const Output& output) {
    return output.LandscapeFlag == 1 ? landscapeRight : portraitRight;
}

// Columns that stay free behind a number, so that its decimal point stands where four places put it.
qsizetype columnsBehind(const QString& number) {
    const auto point = number.indexOf(u'.');
    const auto places = point < 0 ? -1 : number.size() - point - 1;
    return std::max<qsizetype>(0, decimalPlaces - places);
}

bool isNumber(const ReportColumn& column) {
    return column.alignment == Alignment::Right || column.alignment == Alignment::Point;
}

qint16 columnsIn(double width) {
    return static_cast<qint16>(width / halfWidth + 0.01); // so that 10 × 1.764 are ten columns
}

// Where a line of at most `most` characters ends: no line begins with a closing mark or ends with an
// opening one, and none parts a number or a word, where a few characters less avoid it.
qsizetype breakBefore(const QString& text, qsizetype most) {
    constexpr qsizetype fewer = 8;
    const auto parts = [&text](qsizetype at) {
        const QChar next = text[at];
        const auto isWord = [](QChar character) {
            return character.unicode() < 0x80 && character.isLetterOrNumber();
        };
        return u"）)」』】］〉》、。，．・ー々"_s.contains(next) ||
               u"（(「『【［〈《"_s.contains(text[at - 1]) || next.isLowSurrogate() ||
               (isWord(next) && isWord(text[at - 1]));
    };
    for (auto at = most; at > 1 && at > most - fewer; --at)
        if (!parts(at)) return at;
    return most;
}

// A matrix on paper may have one item more than there are marks.
QString mark(int item) {
    return item <= mostItemMarks ? QString(itemMark(item)) : QString::number(item);
}

const QString continued = u"（続き）"_s;

} // namespace

HeadingLine problemLine(const QString& problem, qint16 round) {
    return {problem, u"（%1回）"_s.arg(round)};
}

Report::Report(Output& output, ReportHeading heading, const DocumentName& document)
    : output_(output), printer_(output.printer()), heading_(std::move(heading)) {
    output_.ChooseReportPrinter();
    printer_.beginDocument(document);
    output_.SetUpPage(static_cast<qint16>(heading_.columns.size()));
    output_.PageContinued = [this] { printRunningLine(); };
}

Report::~Report() {
    output_.PageContinued = {};
    if (!finished_) printer_.KillDoc();
}

void Report::coveringLetter(const QString& path) {
    leavePage();
    output_.PrintMessageFile(path, messageIndent, false);
}

void Report::message(const QString& path) {
    leavePage();
    printRunningLine();
    output_.PrintMessageFile(path, messageIndent, true);
    pageStarted_ = true;
    linesPrinted_ = false;
}

void Report::row(const QStringList& cells, int indent) {
    const auto row = layOut({cells, indent});
    keepTogether(row.height);
    openTable();
    printRow(row);
}

void Report::group(const RowGroup& group) {
    std::vector<LaidRow> rows;
    for (const auto& row : group.rows) rows.push_back(layOut(row));
    const int title = group.title.isEmpty() ? 0 : acrossRows(group.title + continued, group.indent);
    const auto height = [&](std::size_t count) {
        int sum = title;
        for (std::size_t i = 0; i < std::min(count, rows.size()); ++i) sum += rows[i].height;
        return sum;
    };
    beginRows(height(rows.size()), height(2));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const bool lastButOne = i > 0 && i + 2 == rows.size();
        keepTogether(rows[i].height + (lastButOne ? rows[i + 1].height : 0));
        const bool begins = i == 0 || !tableOpen_;
        openTable();
        if (begins && title > 0) printAcross(i == 0 ? group.title : group.title + continued, group.indent);
        if (begins && !group.label.isEmpty()) rows[i].cells[0] = {group.label};
        printRow(rows[i]);
    }
}

void Report::newTable(const QString& title, const QList<ReportColumn>& columns,
                      const QList<ReportRow>& rows) {
    beginTable(title, columns);
    group({rows});
    openTable(); // also without rows
}

void Report::group(int rows) {
    beginRows(rows, std::min(rows, 2));
}

void Report::newTable(const QString& title, const QList<ReportColumn>& columns, int rows) {
    beginTable(title, columns);
    beginRows(rows, std::min(rows, 2));
    openTable();
}

void Report::beginTable(const QString& title, const QList<ReportColumn>& columns) {
    closeTable();
    heading_.columns = columns;
    tableTitle_ = title;
    tableContinued_ = false;
}

// Makes room for all rows of a group, or for the first ones where a page does not take them all.
void Report::beginRows(int all, int first) {
    keepTogether(all <= rowsOfPage() ? all : first);
    if (rowsPrinted_) drawRule(output_.LineNo, fineRule);
}

void Report::matrix(const QString& title, const QStringList& names, const QList<QStringList>& cells) {
    const auto count = static_cast<int>(names.size());
    QList<ReportRow> rows;
    double longest = 0;
    for (int i = 0; i < count; ++i) {
        rows.append({QStringList{mark(i + 1) + u' ' + names[i]} + cells[i]});
        longest = std::max(longest, (TextColumns(rows.last().cells[0]) + 1) * halfWidth);
    }
    const double width = rightMargin(output_) - leftMargin;
    const double name = std::min(std::max(usualMatrixName, longest), width - count * leastMatrixCell);
    const double cell = std::clamp((width - name) / count, leastMatrixCell, widestMatrixCell);
    QList<ReportColumn> columns{{QString(), leftMargin, name}};
    for (int i = 0; i < count; ++i)
        columns.append({mark(i + 1), leftMargin + name + i * cell, cell, Alignment::Right});
    newTable(title, columns, rows);
}

int Report::footColumns() const {
    return columnsIn(rightMargin(output_) - leftMargin);
}

void Report::newPart(const QList<HeadingLine>& lines) {
    leavePage();
    heading_.lines = lines;
}

void Report::finish() {
    leavePage();
    finished_ = true; // when sending fails there is no document either
    output_.EndDocument();
}

int Report::headingRows() const {
    int lines = 0;
    bool spanned = false;
    for (const auto& column : heading_.columns) {
        if (!column.heading.isEmpty())
            lines = std::max(lines, static_cast<int>(column.heading.count(u'\n')) + 1);
        spanned = spanned || !column.over.isEmpty();
    }
    return spanned ? lines + 1 : lines;
}

// What is printed between LineNo and the next row of the table.
int Report::rowsUntilTable() const {
    if (tableOpen_) return 0;
    const int lines =
        linesPrinted_ || heading_.lines.size() < 2 ? 0 : static_cast<int>(heading_.lines.size());
    return lines + 1 + acrossRows(tableTitle()) + headingRows();
}

// Whether this many rows of the table fit below LineNo.
bool Report::fits(int rows) const {
    return output_.LineNo + rowsUntilTable() + rows <= output_.MaxLines;
}

void Report::keepTogether(int rows) {
    if (pageStarted_ && !fits(rows)) leavePage();
    if (!pageStarted_) startPage();
}

// Rows of the table that a fresh page takes.
int Report::rowsOfPage() const {
    const int lines = std::max(0, static_cast<int>(heading_.lines.size()) - 1);
    return output_.MaxLines - firstRow - lines - 1 - acrossRows(tableTitle()) - headingRows();
}

void Report::startPage() {
    printRunningLine();
    output_.LineNo = firstRow;
    printLines();
    pageStarted_ = true;
}

void Report::leavePage() {
    closeTable();
    if (linesPrinted_ && !foot_.isEmpty())
        printCell({{}, leftMargin, rightMargin(output_) - leftMargin}, foot_, output_.MaxLines + 1);
    if (output_.LineNo > 0) output_.EndPage();
    output_.LineNo = 0;
    pageStarted_ = false;
    linesPrinted_ = false;
}

void Report::openTable() {
    if (tableOpen_) return;
    if (!linesPrinted_ && heading_.lines.size() > 1) {
        ++output_.LineNo;
        printLines();
    }
    ++output_.LineNo;
    if (!tableTitle_.isEmpty()) printAcross(tableTitle());
    tableContinued_ = true;
    drawRule(output_.LineNo, heavyRule);
    printColumnHeadings();
    if (headingRows() > 0) drawRule(output_.LineNo, heavyRule);
    tableOpen_ = true;
    rowsPrinted_ = false;
}

void Report::closeTable() {
    if (tableOpen_) drawRule(output_.LineNo, heavyRule);
    tableOpen_ = false;
    rowsPrinted_ = false;
}

void Report::printRunningLine() {
    const double width = rightMargin(output_) - leftMargin;
    const double beside = (width - printer_.TextWidth(heading_.title)) / 2 - 2 * halfWidth;
    const auto dateAndPage = u"%1   − %2 −"_s.arg(formatDate(QDate::currentDate())).arg(output_.PageNo + 1);
    if (!heading_.lines.isEmpty())
        printCell({{}, leftMargin, beside}, cut(heading_.lines.first(), beside), titleRow);
    printCell({{}, leftMargin, width, Alignment::Centre}, heading_.title, titleRow);
    printCell({{}, leftMargin, width, Alignment::Right}, dateAndPage, titleRow);
}

void Report::printLines() {
    const double width = rightMargin(output_) - leftMargin;
    for (const auto& line : heading_.lines.mid(1)) printAcross(cut(line, width));
    linesPrinted_ = true;
}

void Report::printColumnHeadings() {
    const auto& columns = heading_.columns;
    const int rows = headingRows();
    for (qsizetype i = 0; i < columns.size(); ++i) {
        if (!columns[i].over.isEmpty() && (i == 0 || columns[i - 1].over != columns[i].over))
            printSpanningHeading(i);
        auto column = columns[i];
        if (column.alignment == Alignment::Point) column.alignment = Alignment::Right;
        const QStringList lines = column.heading.split(u'\n');
        for (qsizetype line = 0; line < lines.size(); ++line)
            printCell(column, lines[line], static_cast<int>(output_.LineNo + rows - lines.size() + line));
    }
    output_.LineNo = static_cast<qint16>(output_.LineNo + rows);
}

// The upper heading of the column and its neighbours, with a fine rule between it and theirs.
void Report::printSpanningHeading(qsizetype first) {
    const auto& columns = heading_.columns;
    auto last = first;
    while (last + 1 < columns.size() && columns[last + 1].over == columns[first].over) ++last;
    const double left = columns[first].left;
    const double right = columns[last].left + columns[last].width;
    printCell({{}, left, right - left, Alignment::Centre}, columns[first].over, output_.LineNo);
    printer_.Line(left + halfWidth, boundary(output_.LineNo + 1), right, boundary(output_.LineNo + 1));
}

void Report::printCell(const ReportColumn& column, const QString& text, int row) {
    const auto shown = isNumber(column) ? text : cut(text, column.width);
    double offset = 0;
    if (column.alignment != Alignment::Left) {
        const double spare = column.width - printer_.TextWidth(shown);
        offset = column.alignment == Alignment::Centre ? spare / 2
                 : column.alignment == Alignment::Right
                     ? spare
                     : spare - static_cast<double>(columnsBehind(text)) * halfWidth;
    }
    printer_.CurrentX = column.left + offset;
    printer_.CurrentY = output_.LineHeight * row;
    printer_.Print(shown);
}

Report::LaidRow Report::layOut(const ReportRow& row) const {
    LaidRow laid{row.indent, {}, 1};
    for (qsizetype i = 0; i < std::min(row.cells.size(), heading_.columns.size()); ++i) {
        const auto column = columnOf(i, row.indent);
        laid.cells.append(isNumber(column) ? QStringList{row.cells[i]} : wrapped(row.cells[i], column.width));
        laid.height = std::max(laid.height, static_cast<int>(laid.cells.last().size()));
    }
    return laid;
}

void Report::printRow(const LaidRow& row) {
    for (qsizetype i = 0; i < row.cells.size(); ++i) {
        auto column = columnOf(i, row.indent);
        for (qsizetype line = 0; line < row.cells[i].size(); ++line) {
            printCell(column, row.cells[i][line], static_cast<int>(output_.LineNo + line));
            if (line == 0) column.left += hanging * halfWidth;
        }
    }
    output_.LineNo = static_cast<qint16>(output_.LineNo + row.height);
    rowsPrinted_ = true;
}

ReportColumn Report::columnOf(qsizetype cell, int indent) const {
    auto column = heading_.columns[cell];
    if (cell == 0) {
        column.left += indent * halfWidth;
        column.width -= indent * halfWidth;
    }
    return column;
}

// The text in lines of this width; those behind the first leave room to be moved to the right.
QStringList Report::wrapped(const QString& text, double width) const {
    QStringList lines;
    QString rest = text;
    for (int columns = columnsIn(width);
         lines.size() + 1 < cellRows && TextColumns(rest) > columns && columns > 1;
         columns = columnsIn(width) - hanging) {
        lines << leadingCharacters(rest, FitChars(rest, static_cast<qint16>(columns)));
        lines.last().truncate(breakBefore(rest, lines.last().size()));
        rest.remove(0, lines.last().size());
    }
    return lines << cut(rest, lines.isEmpty() ? width : width - hanging * halfWidth);
}

int Report::acrossRows(const QString& text, int indent) const {
    const double width = rightMargin(output_) - leftMargin - indent * halfWidth;
    return text.isEmpty() ? 0 : static_cast<int>(wrapped(text, width).size());
}

QString Report::tableTitle() const {
    return tableContinued_ && !tableTitle_.isEmpty() ? tableTitle_ + continued : tableTitle_;
}

QString Report::cut(const QString& text, double width) const {
    return cutToColumns(text, columnsIn(width));
}

QString Report::cut(const HeadingLine& line, double width) const {
    return cut(line.text, width - TextColumns(line.tail) * halfWidth) + line.tail;
}

// A text over the whole width.
void Report::printAcross(const QString& text, int indent) {
    double left = leftMargin + indent * halfWidth;
    for (const auto& line : wrapped(text, rightMargin(output_) - left)) {
        printCell({{}, left, rightMargin(output_) - left}, line, output_.LineNo++);
    }
}

double Report::boundary(int row) const {
    return output_.LineHeight * row - ruleRise;
}

void Report::drawRule(int row, int width) {
    const auto& columns = heading_.columns;
    if (columns.isEmpty()) return;
    const auto left = columns.first().left;
    const auto right = columns.last().left + columns.last().width;
    printer_.DrawWidth = width;
    printer_.Line(left, boundary(row), right, boundary(row));
    printer_.DrawWidth = fineRule;
}
