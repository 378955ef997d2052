#include "support/PrintedPages.h"

#include <QXmlStreamReader>
#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "support/Helpers.h"

using namespace Qt::StringLiterals;

namespace {

double millimetres(const QXmlStreamReader& xml, const QString& attribute) {
    return xml.attributes().value(attribute).toDouble() * 25.4 / 72;
}

} // namespace

PrintedWord PrintedPage::word(const QString& text) const {
    const auto found =
        std::find_if(words.begin(), words.end(), [&](const auto& word) { return word.text == text; });
    return found == words.end() ? PrintedWord() : *found;
}

QStringList PrintedPage::row(double y) const {
    QList<PrintedWord> inRow;
    for (const auto& word : words)
        if (std::abs(word.box.y() - y) < 0.3) inRow.append(word);
    std::sort(inRow.begin(), inRow.end(), [](const auto& a, const auto& b) { return a.box.x() < b.box.x(); });
    QStringList texts;
    for (const auto& word : inRow) texts.append(word.text);
    return texts;
}

QList<PrintedPage> printedPages(const QString& pdfPath) {
    const auto [exitCode, text, errors] = runProgram(u"pdftotext"_s, {u"-bbox"_s, pdfPath, u"-"_s});
    if (exitCode != 0) throw std::runtime_error(errors.toStdString());
    QXmlStreamReader xml(text.mid(text.indexOf(u"<body>"))); // titles are not always well-formed
    QList<PrintedPage> pages;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        if (xml.name() == u"page") {
            pages.append(PrintedPage{{millimetres(xml, u"width"_s), millimetres(xml, u"height"_s)}, {}});
        } else if (xml.name() == u"word") {
            const QRectF box(QPointF(millimetres(xml, u"xMin"_s), millimetres(xml, u"yMin"_s)),
                             QPointF(millimetres(xml, u"xMax"_s), millimetres(xml, u"yMax"_s)));
            pages.last().words.append({xml.readElementText(), box});
        }
    }
    return pages;
}
