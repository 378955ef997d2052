#include "figures/Sheet.h"

#include <qcustomplot.h>

#include "text/Dates.h"
#include "text/TextColumns.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int titleSize = 17;
constexpr double titleHeight = 24;
constexpr double lineHeight = 18;
constexpr double readingHeight = 16;

constexpr int smallText = 8;

// Half-width columns of a font of this size in so many pixels.
qint16 columnsIn(double width, int pixels) {
    return static_cast<qint16>(width * 2 / pixels);
}

bool isPartOfNumber(QChar letter) {
    return letter.unicode() < 128 && (letter.isDigit() || letter == u'.' || letter == u'/');
}

// As much of the text as has room, without a number torn apart.
QString firstLineOf(const QString& text, qint16 columns) {
    QString line = leadingCharacters(text, FitChars(text, columns));
    if (line.size() == text.size() || !isPartOfNumber(text[line.size()])) return line;
    qsizetype whole = line.size();
    while (whole > 0 && isPartOfNumber(line[whole - 1])) --whole;
    return whole > 0 ? line.first(whole) : line;
}

} // namespace

QFont figureFont(int pixels) {
    QFont font(u"ＭＳ ゴシック"_s);
    font.setPixelSize(pixels); // points would be another size on every device
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(false);
    return font;
}

QString elidedText(const QString& text, double width) {
    return cutToColumns(text, columnsIn(width, Sheet::textSize));
}

QStringList wrappedText(const QString& text, double width) {
    const auto columns = columnsIn(width, Sheet::textSize);
    QStringList lines;
    for (QString rest : text.split(u'\n'))
        while (!rest.isEmpty()) {
            lines << firstLineOf(rest, columns);
            rest.remove(0, lines.last().size());
        }
    return lines;
}

void setUpPlot(QCustomPlot& plot) {
    plot.setBackground(Qt::NoBrush);
    plot.setNotAntialiasedElements(QCP::aeNone);
    plot.setAntialiasedElements(QCP::aeAll);
    for (QCPAxis* axis : {plot.xAxis, plot.xAxis2, plot.yAxis, plot.yAxis2}) {
        axis->setTickLabelFont(figureFont(Sheet::textSize));
        axis->setLabelFont(figureFont(Sheet::textSize));
        axis->setSubTicks(false);
        axis->grid()->setPen(QPen(QColor(Ink::rule), 1));
        axis->grid()->setZeroLinePen(Qt::NoPen);
    }
    plot.legend->setFont(figureFont(Sheet::textSize));
    plot.legend->setBorderPen(Qt::NoPen);
    plot.legend->setBrush(Qt::NoBrush);
}

void FigureSheet::draw(QPainter& painter, const QRectF& frame) const {
    painter.save();
    painter.translate(frame.topLeft());
    const double scale = frame.width() / width;
    painter.scale(scale * picture.logicalDpiX() / painter.device()->logicalDpiX(),
                  scale * picture.logicalDpiY() / painter.device()->logicalDpiY());
    // The picture records no pen that the recorder began with: on a dark palette texts would be white.
    painter.setPen(Qt::black);
    painter.drawPicture(0, 0, picture);
    painter.restore();
}

Sheet::Sheet(const FigureTitle& title, int page, int pages)
    : painter_(std::make_unique<QCPPainter>(&sheet_.picture)) {
    sheet_.figure = title.figure;
    sheet_.picture.setBoundingRect({0, 0, FigureSheet::width, FigureSheet::height});
    painter_->setMode(QCPPainter::pmVectorized);
    const double width = FigureSheet::width;
    text({0, 0, width, titleHeight}, title.figure, Qt::AlignLeft, titleSize);
    const auto date = formatDate(QDate::currentDate());
    text({0, 0, width, titleHeight}, u"%1   − %2 / %3 −"_s.arg(date).arg(page).arg(pages), Qt::AlignRight);
    text({0, titleHeight, width, lineHeight},
         elidedText(title.problem, width - 6.0 * TextColumns(title.group) - 24) + u"   "_s + title.group);
    double y = titleHeight + lineHeight;
    for (const auto& line : wrappedText(title.reading, width)) {
        text({0, y, width, readingHeight}, line);
        y += readingHeight;
    }
    text({0, FigureSheet::height, width, lineHeight}, title.foot); // in the margin, where nothing else stands
}

Sheet::~Sheet() = default;

void Sheet::text(const QRectF& frame, const QString& text, Qt::Alignment alignment, int pixels) {
    if (text.isEmpty()) return;
    painter_->setFont(figureFont(pixels));
    painter_->setPen(QColor(Ink::line));
    painter_->drawText(frame, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextDontClip, text);
    sheet_.words += text + u'\n';
}

void Sheet::name(const QRectF& frame, const QString& name) {
    const bool isLong = TextColumns(name) > 2 * columnsIn(frame.width(), textSize) - 2;
    const int pixels = isLong ? smallText : textSize;
    const auto columns = columnsIn(frame.width(), pixels);
    QStringList lines;
    QString rest = name;
    for (int line = isLong ? 3 : 2; line > 0 && !rest.isEmpty(); --line) {
        lines << (line == 1 ? cutToColumns(rest, columns) : firstLineOf(rest, columns));
        rest.remove(0, lines.last().size());
    }
    text(frame, lines.join(u'\n'), Qt::AlignLeft, pixels);
}

void Sheet::box(const QRectF& frame, QRgb fill) {
    painter_->setPen(Qt::NoPen);
    painter_->setBrush(QColor(fill));
    painter_->drawRect(frame);
    painter_->setBrush(Qt::NoBrush);
}

void Sheet::line(QPointF from, QPointF to) {
    painter_->setPen(QPen(QColor(Ink::rule), 1));
    painter_->drawLine(from, to);
}

void Sheet::mark(QPointF place, const QCPScatterStyle& style) {
    style.applyTo(painter_.get(), QPen(QColor(Ink::line)));
    style.drawShape(painter_.get(), place);
    painter_->setBrush(Qt::NoBrush);
}

void Sheet::plot(QCustomPlot& plot, const QRectF& frame) {
    painter_->save();
    painter_->translate(frame.topLeft());
    plot.toPainter(painter_.get(), qRound(frame.width()), qRound(frame.height()));
    painter_->restore();
}

FigureSheet Sheet::finish() {
    painter_->end();
    return sheet_;
}
