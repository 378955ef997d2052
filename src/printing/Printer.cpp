#include "printing/Printer.h"

#include <algorithm>

#include "printing/CupsQueue.h"
#include "printing/DocumentFile.h"
#include "printing/PrintDocument.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

PrinterDevice deviceOf(const CupsQueue& queue) {
    return {queue.description.isEmpty() ? queue.name : queue.description, queue.name};
}

} // namespace

ReportPrinter::ReportPrinter() = default;
ReportPrinter::~ReportPrinter() = default;

QList<PrinterDevice> ReportPrinter::Printers() const {
    QList<PrinterDevice> devices;
    for (const auto& queue : cupsQueues()) devices.append(deviceOf(queue));
    devices.append(pdfFiles());
    return devices;
}

PrinterDevice ReportPrinter::pdfFiles() {
    return {u"いきなりPDF 2"_s, QString()};
}

PrinterDevice ReportPrinter::current() const {
    if (selected_) return *selected_;
    const auto queues = cupsQueues();
    if (queues.isEmpty()) return {};
    const auto standard =
        std::find_if(queues.begin(), queues.end(), [](const auto& queue) { return queue.isDefault; });
    return deviceOf(standard != queues.end() ? *standard : queues.first());
}

PrinterDevice ReportPrinter::installedPrinter() const {
    auto device = current();
    if (device.DeviceName.isEmpty())
        throw RuntimeError(ErrorCode::Printer,
                           u"プリンタがインストールされていません。\n"
                           "「PDF」に切り替えると、PDF ファイルに出力できます。"_s);
    return device;
}

QString ReportPrinter::DeviceName() const {
    return current().DeviceName;
}

void ReportPrinter::setScaleMode(int mode) {
    if (mode != Millimetres) throw RuntimeError(ErrorCode::InvalidCall);
}

void ReportPrinter::setFont(const QString& family) {
    font_ = family;
    if (document_) document_->setFont(family);
}

void ReportPrinter::setOrientation(Orientation orientation) {
    orientation_ = orientation;
    if (document_)
        document_->setOrientation(orientation == Orientation::Landscape ? QPageLayout::Landscape
                                                                        : QPageLayout::Portrait);
}

PrintDocument& ReportPrinter::document() {
    if (!document_) {
        document_ = std::make_unique<PrintDocument>(documentTitle(name_));
        if (!font_.isEmpty()) setFont(font_);
        setOrientation(orientation_);
    }
    return *document_;
}

void ReportPrinter::beginDocument(const DocumentName& name) {
    KillDoc();
    installedPrinter();
    name_ = name;
}

void ReportPrinter::Print(const QString& text) {
    document().text({CurrentX, CurrentY}, text);
}

double ReportPrinter::TextWidth(const QString& text) {
    return document().textWidth(text);
}

void ReportPrinter::Line(double x1, double y1, double x2, double y2) {
    document().line({x1, y1}, {x2, y2}, DrawWidth / 10.0);
}

void ReportPrinter::Box(double x1, double y1, double x2, double y2) {
    document().box({QPointF(x1, y1), QPointF(x2, y2)}, DrawWidth / 10.0);
}

void ReportPrinter::Draw(double x1, double y1, double x2, double y2,
                         const std::function<void(QPainter&, const QRectF&)>& content) {
    document().draw({QPointF(x1, y1), QPointF(x2, y2)}, content);
}

bool ReportPrinter::EndPage() {
    return document_ && document_->endPage();
}

void ReportPrinter::EndDoc() {
    const auto document = std::move(document_);
    if (!document || !document->hasPages()) return;
    const auto device = installedPrinter();
    const auto pdf = document->finish();
    if (device.queue.isEmpty()) {
        const auto path = writeDocument(outputFolder_, name_, u"pdf"_s, pdf);
        if (listener_) listener_(path);
    } else {
        sendToCupsQueue(device.queue, documentTitle(name_), pdf);
    }
}

void ReportPrinter::KillDoc() {
    document_.reset();
}
