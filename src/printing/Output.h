// What the report screens share of printing: the output target, the page conventions, the message files.
#pragma once

#include <QString>
#include <functional>

#include "printing/Printer.h"
#include "text/BoundedArray.h"

// One for each report screen. Pages are a grid of rows, LineHeight mm high; the text of row r stands with its
// top at LineHeight × r mm. Widths of texts are counted in half-width columns.
class Output {
  public:
    explicit Output(Printer& printer) : printer_(printer) {}

    int Documents = 0; // handed out so far

    // State of the report screen.
    QString FileDir;        // message files and exported files
    QString PdfPrinterName; // device names
    QString OfficePrinterName;
    qint16 MaxLines = 65;     // rows of a page
    qint16 LineHeight = 6;    // mm
    qint16 LineNo = 0;        // row of the next text; row 0 is at the top edge of the paper
    qint16 PageNo = 0;        // pages ended in this report
    qint16 LandscapeFlag = 0; // 1 in landscape
    BoundedArray<QString, 21>
        MsgSlots; // what the markers of message files stand for: date, "…様", problem, round
    QString OutputTarget = QStringLiteral("印刷");         // or "PDF"; the caption of the screen's button
    std::function<void(const QString& path)> FileExported; // who wants to know of files other than documents

    std::function<void()> PageContinued; // what a further page of a message file begins with

    // The state of a screen that has just been loaded. `appDir` is the application directory.
    void load(const QString& appDir);

    void ToggleOutputTarget();
    // For programs without a screen: "PDF", and that is files whatever the settings name.
    void makePdfFilesOnly();
    // The first installed printer of this device name becomes the current one; without one all stays as it
    // was.
    void SelectPrinter(const QString& deviceName);
    // The printer that OutputTarget names. Each report calls it when it begins.
    void ChooseReportPrinter();
    // Its device name, without choosing it; empty when no printer is installed.
    QString ReportDevice() const;

    // Begins the layout of a report: millimetres, font, counters at 0; landscape with 27 rows for a table of
    // 13 or more columns, else portrait with 40 rows.
    void SetUpPage(qint16 columns);
    // What every letter may name: today's date, the evaluator (without "様"), the problem and the round.
    void fillSlots(const QString& evaluator, const QString& problem, qint16 round);
    // Prints a text file of paragraphs from row 2 on, wrapped at 100 columns of which `indent` (0 to 98) are
    // blank, its markers "~0~" to "~20~" replaced from MsgSlots. Empty lines take no row. Afterwards the page
    // ends, or with `keepPage` goes on at LineNo. Raises 53, 75 or 76 when the file cannot be read, 9 for a
    // slot above 20, 5 for a "~" without its pair, both with the place in the file.
    void PrintMessageFile(const QString& path, qint16 indent, bool keepPage);
    // Ends the page, and counts it when there is anything on it: an empty letter makes no page.
    void EndPage();
    // Hands the document out.
    void EndDocument();
    // Writes a file of its own into FileDir, and tells whoever wants to know. Raises error 75 or 76 when it
    // cannot be written.
    void writeFile(const DocumentName& name, const QString& type, const QByteArray& bytes) const;

    Printer& printer() { return printer_; }

  private:
    QString targetName() const {
        return OutputTarget == QStringLiteral("印刷") ? OfficePrinterName : PdfPrinterName;
    }
    // The line with its markers replaced; `place` tells the user where in which file it stands.
    QString filled(QString line, const QString& place) const;
    void printWrapped(QString line, qint16 indent);

    Printer& printer_;
    bool onlyPdfFiles_ = false;
};
