#include "printing/Printer.h"

#include <algorithm>

#include "printing/CupsQueue.h"
#include "printing/DocumentName.h"
#include "printing/PdfDocument.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

PrinterDevice deviceOf(const CupsQueue& queue) {
    return {queue.description.isEmpty() ? queue.name : queue.description, queue.name};
}

} // namespace

Printer::Printer() = default;
Printer::~Printer() = default;

Printer& Printer::ofProgram() {
    static Printer printer;
    return printer;
}

QList<PrinterDevice> Printer::Printers() const {
    QList<PrinterDevice> devices;
    for (const auto& queue : cupsQueues()) devices.append(deviceOf(queue));
    devices.append(pdfFiles());
    return devices;
}

PrinterDevice Printer::pdfFiles() {
    return {u"いきなりPDF 2"_s, QString()};
}

PrinterDevice Printer::current() const {
    if (selected_) return *selected_;
    const auto queues = cupsQueues();
    if (queues.isEmpty()) return {};
    const auto standard =
        std::find_if(queues.begin(), queues.end(), [](const auto& queue) { return queue.isDefault; });
    return deviceOf(standard != queues.end() ? *standard : queues.first());
}

PrinterDevice Printer::installedPrinter() const {
    auto device = current();
    if (device.DeviceName.isEmpty())
        throw RuntimeError(ErrorCode::Printer,
                           u"プリンタがインストールされていません。\n"
                           "「PDF」に切り替えると、PDF ファイルに出力できます。"_s);
    return device;
}

QString Printer::DeviceName() const {
    return current().DeviceName;
}

void Printer::setScaleMode(int mode) {
    if (mode != Millimetres) throw RuntimeError(ErrorCode::InvalidCall);
}

void Printer::setFont(const QString& family) {
    font_ = family;
    if (document_) document_->setFont(family);
}

void Printer::setOrientation(Orientation orientation) {
    orientation_ = orientation;
    if (document_)
        document_->setOrientation(orientation == Orientation::Landscape ? QPageLayout::Landscape
                                                                        : QPageLayout::Portrait);
}

PdfDocument& Printer::document() {
    if (!document_) {
        document_ = std::make_unique<PdfDocument>(documentTitle(name_));
        if (!font_.isEmpty()) setFont(font_);
        setOrientation(orientation_);
    }
    return *document_;
}

void Printer::beginDocument(const DocumentName& name) {
    KillDoc();
    installedPrinter();
    name_ = name;
}

void Printer::Print(const QString& text) {
    document().text({CurrentX, CurrentY}, text);
}

double Printer::TextWidth(const QString& text) {
    return document().textWidth(text);
}

void Printer::Line(double x1, double y1, double x2, double y2) {
    document().line({x1, y1}, {x2, y2}, DrawWidth / 10.0);
}

void Printer::Draw(double x1, double y1, double x2, double y2,
                   const std::function<void(QPainter&, const QRectF&)>& content) {
    document().draw({QPointF(x1, y1), QPointF(x2, y2)}, content);
}

bool Printer::EndPage() {
    return document_ && document_->endPage();
}

void Printer::EndDoc() {
    const auto document = std::move(document_);
    if (!document || !document->hasPages()) return;
    const auto device = installedPrinter();
    const auto pdf = document->finish();
    if (device.queue.isEmpty()) {
        const auto path = writeNamedFile(outputFolder_, name_, u"pdf"_s, pdf);
        if (listener_) listener_(path);
    } else {
        sendToCupsQueue(device.queue, documentTitle(name_), pdf);
    }
}

void Printer::KillDoc() {
    document_.reset();
}
