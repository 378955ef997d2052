#include "printing/Output.h"

#include <algorithm>

#include "files/NewFile.h"
#include "files/Settings.h"
#include "files/TextFile.h"
#include "printing/DocumentName.h"
#include "text/Dates.h"
#include "text/TextColumns.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

const QString officeTarget = u"印刷"_s;
const QString pdfTarget = u"PDF"_s;
const QString reportFont = u"ＭＳ ゴシック"_s;
const QString printers = u"Printers"_s; // section of the per-user settings

constexpr qint16 messageColumns = 100;
constexpr qint16 messageFirstRow = 2;
constexpr qint16 landscapeColumns = 13; // from this many table columns on
constexpr qint16 portraitRows = 40;
constexpr qint16 landscapeRows = 27;

// The number at the beginning of a marker's text, 0 when it begins with something else.
int slotNumber(QStringView marker) {
    int number = 0;
    for (const QChar character : marker) {
        if (!character.isDigit()) break;
        number = std::min(number * 10 + character.digitValue(), 1000); // far above every slot
    }
    return number;
}

} // namespace

void Output::load(const QString& appDir) {
    FileDir = appDir + u"\\file"_s;
    MaxLines = 65;
    LineHeight = 6;
    PageNo = 0;
    LineNo = 0;
    LandscapeFlag = 0;
    PdfPrinterName = readSetting(printers, u"Pdf"_s, Printer::pdfFiles().DeviceName);
    OfficePrinterName = readSetting(printers, u"Office"_s, u"SHARP AR-266FP SPDL2_T1"_s);
    printer_.setScaleMode(Printer::Millimetres);
    printer_.setFont(reportFont);
    printer_.setOutputFolder(FileDir);
    removeAbandonedFiles(FileDir);
    OutputTarget = officeTarget;
}

void Output::ToggleOutputTarget() {
    OutputTarget = OutputTarget != officeTarget ? officeTarget : pdfTarget;
}

void Output::makePdfFilesOnly() {
    OutputTarget = pdfTarget;
    onlyPdfFiles_ = true;
}

void Output::SelectPrinter(const QString& deviceName) {
    for (const auto& device : printer_.Printers()) {
        if (device.DeviceName != deviceName) continue;
        printer_.select(device);
        return;
    }
}

void Output::ChooseReportPrinter() {
    if (onlyPdfFiles_) return printer_.select(Printer::pdfFiles());
    SelectPrinter(targetName());
}

QString Output::ReportDevice() const {
    const auto printers = printer_.Printers();
    const QString name = targetName();
    const bool installed = std::ranges::find(printers, name, &PrinterDevice::DeviceName) != printers.end();
    return installed ? name : printer_.DeviceName();
}

void Output::SetUpPage(qint16 columns) {
    const bool landscape = columns >= landscapeColumns;
    printer_.setScaleMode(Printer::Millimetres);
    printer_.setFont(reportFont);
    LineHeight = 6;
    PageNo = 0;
    LineNo = 0;
    printer_.setOrientation(landscape ? Orientation::Landscape : Orientation::Portrait);
    MaxLines = landscape ? landscapeRows : portraitRows;
    LandscapeFlag = landscape ? 1 : 0;
}

void Output::EndPage() {
    if (printer_.EndPage()) ++PageNo;
    if (LandscapeFlag == 1) printer_.setOrientation(Orientation::Landscape);
}

void Output::EndDocument() {
    printer_.EndDoc();
    ++Documents;
}

void Output::writeFile(const DocumentName& name, const QString& type, const QByteArray& bytes) const {
    const auto path = writeNamedFile(FileDir, name, type, bytes);
    if (FileExported) FileExported(path);
}

QString Output::filled(QString line, const QString& place) const {
    qsizetype from = 0;
    while ((from = line.indexOf(u'~', from)) >= 0) {
        const auto to = line.indexOf(u'~', from + 1);
        if (to < 0)
            throw RuntimeError(ErrorCode::InvalidCall,
                               u"メッセージファイルの「~」が対になっていません。\n%1"_s.arg(place));
        const int slot = slotNumber(QStringView(line).sliced(from + 1, to - from - 1));
        if (slot >= static_cast<int>(decltype(MsgSlots)::size()))
            throw RuntimeError(ErrorCode::SubscriptOutOfRange,
                               u"メッセージファイルの差込番号は 0 から 20 までです。\n%1"_s.arg(place));
        const auto& value = MsgSlots[slot];
        line.replace(from, to - from + 1, value);
        // The search goes on behind the value: a problem may have "~" in its name, and a value that held its
        // own marker would be replaced for ever.
        from += value.size();
    }
    return line;
}

void Output::printWrapped(QString line, qint16 indent) {
    const QString padding(indent, u' ');
    while (!line.isEmpty()) {
        if (LineNo >= MaxLines) {
            EndPage();
            if (PageContinued) PageContinued();
            LineNo = messageFirstRow;
        }
        const auto row =
            leadingCharacters(line, FitChars(line, static_cast<qint16>(messageColumns - indent)));
        printer_.CurrentX = 0;
        printer_.CurrentY = LineHeight * LineNo;
        printer_.Print(padding + row);
        line.remove(0, row.size());
        ++LineNo;
    }
}

void Output::fillSlots(const QString& evaluator, const QString& problem, qint16 round) {
    MsgSlots[0] = formatDate(QDate::currentDate());
    MsgSlots[1] = evaluator + u"様"_s;
    MsgSlots[2] = problem;
    MsgSlots[3] = QString::number(round);
}

void Output::PrintMessageFile(const QString& path, qint16 indent, bool keepPage) {
    if (indent < 0 || indent > messageColumns - 2) throw RuntimeError(ErrorCode::InvalidCall);
    LineNo = messageFirstRow;
    int number = 0;
    for (const auto& line : readLines(path))
        printWrapped(filled(line, u"%1 (%2 行目)"_s.arg(nativePath(path), QString::number(++number))),
                     indent);
    if (keepPage) return;
    EndPage();
    LineNo = 0;
}
