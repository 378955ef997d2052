#include "platform/Printer.h"

#include <QDateTime>
#include <QFile>
#include <algorithm>

#include "platform/CupsQueue.h"
#include "platform/PrintDocument.h"
#include "platform/RuntimeError.h"
#include "platform/TextFile.h"

using namespace Qt::StringLiterals;

namespace {

const QString pdfDeviceName = u"いきなりPDF 2"_s;

// A file name takes 255 bytes. The screen, the date, a number and the suffix of the file while it is being
// written leave this much for each of the two names.
constexpr qsizetype namePartBytes = 90;

PrinterDevice deviceOf(const CupsQueue& queue) {
    return {queue.description.isEmpty() ? queue.name : queue.description, queue.name};
}

// Characters that file systems do not take, in their full-width form.
QString fileNamePart(const QString& text) {
    static const QString refused = u"/\\:*?\"<>|"_s;
    static const QString replacements = u"／￥：＊？”＜＞｜"_s;
    QString part;
    for (const char32_t character : text.toUcs4()) {
        const auto position =
            character < 0x80 ? refused.indexOf(QChar(static_cast<char16_t>(character))) : -1;
        const auto kept = character < 0x20 || character == 0x7f ? u"＿"_s
                          : position >= 0                       ? replacements.mid(position, 1)
                                                                : QString::fromUcs4(&character, 1);
        if ((part + kept).toUtf8().size() > namePartBytes) break;
        part += kept;
    }
    return part;
}

QString joined(const DocumentName& name, const QString& time) {
    QStringList parts;
    for (const auto& part : {name.screen, name.problem, name.evaluator, time})
        if (!part.isEmpty()) parts.append(fileNamePart(part));
    return parts.join(u'_');
}

// Takes a name that no file has by creating the file, so that no other program can take it meanwhile.
QString reserveFile(const QString& folder, const QString& name) {
    for (int number = 1;; ++number) {
        const auto suffix = number == 1 ? QString() : u"_%1"_s.arg(number);
        QFile file(u"%1/%2%3.pdf"_s.arg(folder, name, suffix));
        if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly) || !file.exists()) return file.fileName();
    }
}

} // namespace

ReportPrinter::ReportPrinter() = default;
ReportPrinter::~ReportPrinter() = default;

QList<PrinterDevice> ReportPrinter::Printers() const {
    QList<PrinterDevice> devices;
    for (const auto& queue : cupsQueues()) devices.append(deviceOf(queue));
    devices.append({pdfDeviceName, QString()});
    return devices;
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
        document_ = std::make_unique<PrintDocument>(joined(name_, {}));
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

bool ReportPrinter::EndPage() {
    return document_ && document_->endPage();
}

void ReportPrinter::EndDoc() {
    const auto document = std::move(document_);
    if (!document || !document->hasPages()) return;
    const auto device = installedPrinter();
    const auto pdf = document->finish();
    if (device.queue.isEmpty()) {
        const auto path = writeFile(pdf);
        if (listener_) listener_(path);
    } else {
        sendToCupsQueue(device.queue, joined(name_, {}), pdf);
    }
}

QString ReportPrinter::writeFile(const QByteArray& pdf) const {
    const auto time = QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s);
    auto path = reserveFile(nativePath(outputFolder_), joined(name_, time));
    try {
        writeWholeFile(path, pdf);
    } catch (const RuntimeError&) {
        QFile::remove(path);
        throw;
    }
    return path;
}

void ReportPrinter::KillDoc() {
    document_.reset();
}
