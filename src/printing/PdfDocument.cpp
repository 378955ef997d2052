#include "printing/PdfDocument.h"

#include <QFontMetricsF>
#include <QPen>
#include <algorithm>

#include "text/RuntimeError.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int dotsPerInch = 1440; // fonts are whole dots high: 10 pt are 200
constexpr double dotsPerMillimetre = dotsPerInch / 25.4;
constexpr double fontPoints = 10;

QPointF inDots(QPointF millimetres) {
    return millimetres * dotsPerMillimetre;
}

QPen solidPen(double millimetres) {
    return {Qt::black, millimetres * dotsPerMillimetre, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin};
}

// A tab or another control character takes one column, as it is counted.
QString printable(QString text) {
    std::replace_if(text.begin(), text.end(), isControl, u' ');
    return text;
}

} // namespace

PdfDocument::PdfDocument(const QString& title) : buffer_(&bytes_), writer_(&buffer_) {
    buffer_.open(QIODevice::WriteOnly);
    writer_.setResolution(dotsPerInch);
    writer_.setPageLayout({QPageSize(QPageSize::A4), orientation_, {}});
    writer_.setTitle(title);
    writer_.setCreator(u"Hollin"_s);
    setFont(u"ＭＳ ゴシック"_s);
}

PdfDocument::~PdfDocument() {
    if (painter_.isActive()) painter_.end(); // before the writer that it draws on
}

void PdfDocument::setFont(const QString& family) {
    QFont font(family);
    font.setPointSizeF(fontPoints);
    // Columns are counted, so every character keeps the advance that the font designer gave it.
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    font_ = QFont(font, &writer_);
}

void PdfDocument::openPage() {
    if (pageOpen_) return;
    writer_.setPageOrientation(orientation_);
    const bool begun = painter_.isActive() ? writer_.newPage() : painter_.begin(&writer_);
    if (!begun) throw RuntimeError(ErrorCode::Printer, u"ページを作成できません。"_s);
    pageOpen_ = true;
}

void PdfDocument::text(QPointF topLeft, const QString& text) {
    if (text.isEmpty()) return;
    openPage();
    painter_.setFont(font_);
    const double ascent = QFontMetricsF(font_, &writer_).ascent();
    painter_.drawText(inDots(topLeft) + QPointF(0, ascent), printable(text));
}

double PdfDocument::textWidth(const QString& text) const {
    // The device is asked for its resolution only.
    return QFontMetricsF(font_, const_cast<QPdfWriter*>(&writer_)).horizontalAdvance(printable(text)) /
           dotsPerMillimetre;
}

void PdfDocument::line(QPointF from, QPointF to, double width) {
    openPage();
    painter_.setPen(solidPen(width));
    painter_.drawLine(inDots(from), inDots(to));
}

void PdfDocument::draw(const QRectF& frame, const std::function<void(QPainter&, const QRectF&)>& content) {
    openPage();
    painter_.save();
    content(painter_, QRectF(inDots(frame.topLeft()), inDots(frame.bottomRight())));
    painter_.restore();
}

QByteArray PdfDocument::finish() {
    painter_.end();
    return bytes_;
}
