// Lays out a report: the heading of every page, tables of aligned cells, rules, page breaks.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <utility>

#include "printing/Output.h"

// Point: the decimal points stand below each other, with room for four places behind them, whatever places
// the numbers have ("0.25", "1", "0.1234").
enum class Alignment { Left, Right, Centre, Point };

// Positions in mm from the left edge of the paper: 5 to 205 in portrait, 5 to 292 in landscape. A half-width
// character takes 1.764 mm.
struct ReportColumn {
    QString heading; // may have several lines
    double left = 0;
    double width = 0;
    Alignment alignment = Alignment::Left;
    QString over = {}; // second heading, above all neighbours that have the same one
};

// A line of the heading. A long text is cut, so that what follows it ("様", the round) is always there.
struct HeadingLine {
    HeadingLine(QString line, QString following = {}) : text(std::move(line)), tail(std::move(following)) {}

    QString text;
    QString tail;
};

// "課題（2回）".
HeadingLine problemLine(const QString& problem, qint16 round);

struct ReportHeading {
    QString title;            // name of the screen
    QList<HeadingLine> lines; // at the left, from the top: evaluator, problem, …
    QList<ReportColumn> columns;
};

// A text for each column; missing ones stay blank. `indent` moves the first one to the right, in half-width
// columns. Left and centred texts go on in further rows of their cell, the fifth ends in "…" where they are
// longer still; numbers are never cut.
struct ReportRow {
    QStringList cells;
    int indent = 0;
};

// Rows that belong together.
struct RowGroup {
    QList<ReportRow> rows;
    QString title = {}; // above them, in a row of its own; repeated on each further page
    int indent = 0;     // of the title, in half-width columns
    QString label = {}; // takes the first cell of the first row on each page
};

// A report on pages. Rows go down the page; when they reach its foot, the page ends and the heading is
// printed again on the next one. A report of 13 or more columns is in landscape. What an error interrupts is
// discarded.
//
//     Report report(output, {u"分析出力"_s, {u"評価者 3名"_s, u"変動度:A"_s},
//                             {{u"要因名"_s, 5, 90}, {u"最小値"_s, 95, 25, Alignment::Point}}},
//                     {u"分析出力"_s, problemName, {}});
//     report.group({rowsOf(factors), parent.name});
//     report.newTable(u"総合評価値（最終レベル）"_s, columns, rowsOf(lastLevel));
//     report.finish();
class Report {
  public:
    // Chooses the printer, sets up the page and begins the document. Raises error 482 without a printer.
    Report(Output& output, ReportHeading heading, const DocumentName& document);
    ~Report();
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    // Prints a message file on a page of its own, as a covering letter. The pages on which a long one goes on
    // have the running line.
    void coveringLetter(const QString& path);
    // Prints a message file at the top of a fresh page; the table follows below it.
    void message(const QString& path);

    // One row of the table.
    void row(const QStringList& cells, int indent = 0);
    // Rows below a fine rule. They stay on one page where they fit on one; where they do not, neither the
    // first nor the last one stands alone.
    void group(const RowGroup& group);
    // Closes the table and begins another one below a title, with rows that belong together. On the pages
    // that follow it repeats its title and headings.
    void newTable(const QString& title, const QList<ReportColumn>& columns, const QList<ReportRow>& rows);
    // The same for rows that the caller prints one by one, each as high as the page's rows.
    void group(int rows);
    void newTable(const QString& title, const QList<ReportColumn>& columns, int rows);
    // A table of up to 21 × 21 short texts ("1/9") between items: a row for each item with its mark and name,
    // the marks above the columns. It stays on one page where it fits on one.
    void matrix(const QString& title, const QStringList& names, const QList<QStringList>& cells);

    // A line at the foot of every page of the table from here on; none where it is empty.
    void foot(const QString& line) { foot_ = line; }
    // Half-width columns that the foot has.
    int footColumns() const;

    // The next row begins a new page, whose heading has these lines: the next evaluator of the document.
    void newPart(const QList<HeadingLine>& lines);

    // Ends the last page and sends the document. Without it the document is discarded.
    void finish();

  private:
    // The lines of each cell, and the rows of the page that they take.
    struct LaidRow {
        int indent = 0;
        QList<QStringList> cells;
        int height = 1;
    };

    int headingRows() const;
    int rowsUntilTable() const;
    int rowsOfPage() const;
    bool fits(int rows) const;
    void keepTogether(int rows);
    double boundary(int row) const;
    void startPage();
    void leavePage();
    void openTable();
    void closeTable();
    void printRunningLine();
    void printLines();
    void printColumnHeadings();
    void printSpanningHeading(qsizetype first);
    void printCell(const ReportColumn& column, const QString& text, int row);
    void beginTable(const QString& title, const QList<ReportColumn>& columns);
    void beginRows(int all, int first);
    LaidRow layOut(const ReportRow& row) const;
    void printRow(const LaidRow& row);
    ReportColumn columnOf(qsizetype cell, int indent) const;
    QStringList wrapped(const QString& text, double width) const;
    void printAcross(const QString& text, int indent = 0);
    int acrossRows(const QString& text, int indent = 0) const;
    QString tableTitle() const;
    void drawRule(int row, int width);
    QString cut(const QString& text, double width) const;
    QString cut(const HeadingLine& line, double width) const;

    Output& output_;
    Printer& printer_;
    ReportHeading heading_;
    QString tableTitle_;
    QString foot_;
    bool tableContinued_ = false; // the table has stood on an earlier page
    bool pageStarted_ = false;
    bool linesPrinted_ = false;
    bool tableOpen_ = false;
    bool rowsPrinted_ = false; // in the open table, on this page
    bool finished_ = false;
};
