#include "figures/FigureOutput.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>

#include "printing/Output.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double margin = 10;       // mm
constexpr double sheetWidth = 277;  // mm: A4 in landscape
constexpr double sheetHeight = 190; // mm
constexpr int dotsPerUnit = 2;      // of PNG files: 192 to the inch
constexpr double paperMargin = 20;  // of pictures, 1/96 inch
constexpr QRectF picture(0, 0, FigureSheet::width + 2 * paperMargin, FigureSheet::height + 2 * paperMargin);
constexpr QRectF onPicture(paperMargin, paperMargin, FigureSheet::width, FigureSheet::height);

QByteArray svg(const FigureSheet& sheet) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(96);
    generator.setSize(picture.size().toSize());
    generator.setViewBox(picture);
    generator.setTitle(sheet.figure);
    generator.setDescription(sheet.words);
    QPainter painter(&generator);
    painter.fillRect(picture, Qt::white);
    sheet.draw(painter, onPicture);
    painter.end();
    return bytes;
}

QByteArray png(const FigureSheet& sheet) {
    QImage image(picture.size().toSize() * dotsPerUnit, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    sheet.draw(painter, {onPicture.topLeft() * dotsPerUnit, onPicture.size() * dotsPerUnit});
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

void printFigures(Output& output, const std::vector<FigureSheet>& sheets, const QString& problem) {
    auto& printer = output.printer();
    output.ChooseReportPrinter();
    printer.beginDocument({u"図"_s, problem, {}});
    printer.setOrientation(Orientation::Landscape);
    for (const auto& sheet : sheets) {
        printer.Draw(margin, margin, margin + sheetWidth, margin + sheetHeight,
                     [&sheet](QPainter& painter, const QRectF& frame) { sheet.draw(painter, frame); });
        printer.EndPage();
    }
    output.EndDocument();
}

void saveFigures(Output& output, const std::vector<FigureSheet>& sheets, const QString& problem,
                 PictureType type) {
    const bool isSvg = type == PictureType::Svg;
    for (const auto& sheet : sheets)
        output.writeFile({u"図_"_s + sheet.figure, problem, {}}, isSvg ? u"svg"_s : u"png"_s,
                         isSvg ? svg(sheet) : png(sheet));
}
