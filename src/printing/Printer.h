// The printer object of the program: installed printers, the current one, and the document being printed.
#pragma once

#include <QList>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

#include "printing/DocumentName.h"

class PdfDocument;
class QPainter;
class QRectF;

struct PrinterDevice {
    QString DeviceName;
    QString queue; // print queue; empty for the built-in device that writes PDF files
};

enum class Orientation { Portrait = 1, Landscape = 2 };

// One for the whole program; the current printer stays current until another is selected. It may be made
// before the QGuiApplication, but draws and measures only with one. Pages are A4, positions are millimetres
// from the upper left edge of the paper. Printers are asked for anew each time, since they come and go.
//
//     printer.select(device);
//     printer.beginDocument({u"個人結果"_s, problemName, evaluatorName});
//     printer.setOrientation(Orientation::Landscape);
//     printer.CurrentX = 5; printer.CurrentY = 12; printer.Print(u"要因名"_s);
//     printer.EndPage();
//     printer.EndDoc();
class Printer {
  public:
    Printer();
    ~Printer();
    // The program's own, which stays selected for the whole run.
    static Printer& ofProgram();

    static constexpr int Millimetres = 6; // the only scale mode

    // Upper left corner of the next text.
    double CurrentX = 0;
    double CurrentY = 0;
    // Width of lines and boxes in tenths of a millimetre: 1 is the fine rule, 5 the heavy one.
    int DrawWidth = 1;

    // The built-in device "いきなりPDF 2", which writes files.
    static PrinterDevice pdfFiles();
    // The queues in the order of the print system, the built-in device last.
    QList<PrinterDevice> Printers() const;
    void select(const PrinterDevice& device) { selected_ = device; }
    // Of the current printer: the selected one, else the system's default, else its first; empty when no
    // printer is installed.
    QString DeviceName() const;

    // Raises error 5 for a scale other than millimetres.
    void setScaleMode(int mode);
    // 10 pt, for the texts that follow.
    void setFont(const QString& family);
    // For the pages that begin from now on.
    void setOrientation(Orientation orientation);

    // Discards what an interrupted report may have left, and names the document that is drawn from now on.
    // Raises error 482 when no printer is installed.
    void beginDocument(const DocumentName& name);
    // Draws at (CurrentX, CurrentY), which stays where it is. Control characters print as blanks.
    void Print(const QString& text);
    double TextWidth(const QString& text);
    void Line(double x1, double y1, double x2, double y2);
    // `content` draws into the box, which it is given in the painter's own units.
    void Draw(double x1, double y1, double x2, double y2,
              const std::function<void(QPainter&, const QRectF&)>& content);
    // The page is complete; the next thing drawn begins another one.
    // True when something had been drawn on it.
    bool EndPage();
    // Sends the document to the current printer, or writes its PDF file. Without a page it does nothing.
    // Raises error 482 when the printer does not take the document, 75 or 76 when the file cannot be written;
    // the document is gone then, and no file is left.
    void EndDoc();
    // Discards the document.
    void KillDoc();

    // The folder for PDF files, and who is told the path of each file written.
    void setOutputFolder(const QString& folder) { outputFolder_ = folder; }
    void onDocument(std::function<void(const QString& path)> listener) { listener_ = std::move(listener); }

  private:
    PrinterDevice current() const;
    PrinterDevice installedPrinter() const;
    PdfDocument& document();

    std::optional<PrinterDevice> selected_;
    std::unique_ptr<PdfDocument> document_;
    QString font_;
    Orientation orientation_ = Orientation::Portrait;
    DocumentName name_;
    QString outputFolder_;
    std::function<void(const QString& path)> listener_;
};
