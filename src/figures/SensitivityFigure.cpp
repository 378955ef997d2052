#include <qcustomplot.h>

#include <algorithm>
#include <cmath>

#include "figures/FigureTexts.h"
#include "figures/Figures.h"
#include "text/Numbers.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int mostLines = 12;
constexpr int samplesPerLine = 180;
constexpr QRectF chart(0, Sheet::top, 730, 370);
constexpr QMargins chartMargins(60, 8, 14, 44);
constexpr double labelsLeft = 772;
constexpr double labelHeight = 16;
constexpr double tableTop = 466;
constexpr double rowHeight = 17;
constexpr double factorWidth = 70; // of the column with k
constexpr double sentenceWidth = FigureSheet::width - factorWidth - 8;
const auto rowsBelowChart = static_cast<std::size_t>((Sheet::bottom - tableTop) / rowHeight) - 1;
const auto rowsOfSheet = static_cast<std::size_t>((Sheet::bottom - Sheet::top) / rowHeight) - 1;

double at(int sample) {
    return leastFactorOfWeight * std::pow(greatestFactorOfWeight / leastFactorOfWeight,
                                          static_cast<double>(sample) / samplesPerLine);
}

// The leaves on the first ranks now, then those that a change brings there.
std::vector<const LeafResponse*> shownLeaves(const Sensitivity& sensitivity) {
    std::vector<const LeafResponse*> shown;
    const auto show = [&](const LeafResponse& leaf) {
        if (shown.size() < mostLines && std::ranges::find(shown, &leaf) == shown.end())
            shown.push_back(&leaf);
    };
    for (const auto& leaf : sensitivity.leaves)
        if (shown.size() < leadingRanks) show(leaf);
    for (const auto& change : sensitivity.changes)
        show(*std::ranges::find(sensitivity.leaves, change.risingNo, &LeafResponse::factorNo));
    return shown;
}

// Lines differ by dashes, lightness and the shape of their marks.
QPen linePen(std::size_t line) {
    constexpr std::array styles{Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine,
                                Qt::DashDotDotLine};
    constexpr std::array inks{Ink::line, Ink::dark, 0xff4a6fa5U};
    return {QColor(inks.at(line % inks.size())), 1.6, styles.at(line % styles.size())};
}

QCPScatterStyle lineMark(std::size_t line) {
    constexpr std::array shapes{QCPScatterStyle::ssCircle,           QCPScatterStyle::ssSquare,
                                QCPScatterStyle::ssTriangle,         QCPScatterStyle::ssDiamond,
                                QCPScatterStyle::ssTriangleInverted, QCPScatterStyle::ssPlusSquare,
                                QCPScatterStyle::ssCrossCircle};
    const QBrush fill = line % 2 == 0 ? QBrush(Qt::white) : QBrush(linePen(line).color());
    return {shapes.at(line % shapes.size()), QPen(linePen(line).color(), 1), fill, 8};
}

// Figures 1, 2 and 5 of each power of ten.
QSharedPointer<QCPAxisTicker> decimalTicks(const QCPRange& range) {
    QSharedPointer<QCPAxisTickerText> ticks(new QCPAxisTickerText);
    const auto exponent = [](double value) { return static_cast<int>(std::floor(std::log10(value))); };
    for (int power = exponent(range.lower); power <= exponent(range.upper); ++power)
        for (const double figure : {1.0, 2.0, 5.0}) {
            const double tick = figure * std::pow(10, power);
            ticks->addTick(tick, formatNumber(tick, u"0.######"_s));
        }
    return ticks;
}

QSharedPointer<QCPAxisTicker> factorTicks() {
    QSharedPointer<QCPAxisTickerText> ticks(new QCPAxisTickerText);
    for (const int whole : {2, 3, 5, 9}) {
        ticks->addTick(whole, u"%1倍"_s.arg(whole));
        ticks->addTick(1.0 / whole, u"1/%1倍"_s.arg(whole));
    }
    ticks->addTick(1, u"1倍（今）"_s);
    return ticks;
}

QCPRange valueRange(const std::vector<const LeafResponse*>& leaves) {
    double lowest = leaves.front()->coefficient(leastFactorOfWeight);
    double highest = 0;
    for (const auto* leaf : leaves) {
        lowest = std::min(lowest, leaf->coefficient(leastFactorOfWeight));
        highest = std::max(highest, leaf->coefficient(greatestFactorOfWeight));
    }
    return {lowest / 1.06, highest * 1.06};
}

void addLine(QCustomPlot& plot, const LeafResponse& leaf, std::size_t line) {
    QCPGraph* curve = plot.addGraph();
    curve->setPen(linePen(line));
    QCPGraph* marks = plot.addGraph();
    marks->setLineStyle(QCPGraph::lsNone);
    marks->setScatterStyle(lineMark(line));
    for (int sample = 0; sample <= samplesPerLine; ++sample) {
        const double k = at(sample);
        curve->addData(k, leaf.coefficient(k));
        if (sample % (samplesPerLine / 6) == 0) marks->addData(k, leaf.coefficient(k));
    }
}

// The names beside the ends of their lines, moved apart where they would cover each other.
void labelLines(Sheet& sheet, const QCPRange& range, const std::vector<const LeafResponse*>& leaves,
                const RoundResults& results) {
    const double top = chart.top() + chartMargins.top();
    const double height = chart.height() - chartMargins.top() - chartMargins.bottom();
    const auto yOf = [&](const LeafResponse& leaf) {
        return top + height * std::log(range.upper / leaf.coefficient(greatestFactorOfWeight)) /
                         std::log(range.upper / range.lower);
    };
    std::vector<std::pair<double, std::size_t>> places;
    for (std::size_t line = 0; line < leaves.size(); ++line) places.emplace_back(yOf(*leaves[line]), line);
    std::ranges::sort(places);
    double lowest = chart.bottom();
    for (auto place = places.rbegin(); place != places.rend(); ++place, lowest -= labelHeight)
        lowest = place->first = std::min(place->first, lowest);
    double highest = chart.top();
    for (auto& [y, line] : places) {
        const double end = yOf(*leaves[line]);
        y = std::max(y, highest);
        highest = y + labelHeight;
        sheet.line({chart.right() - chartMargins.right() + 4, end}, {labelsLeft - 18, y});
        sheet.mark({labelsLeft - 10, y}, lineMark(line));
        sheet.text({labelsLeft, y - labelHeight / 2, FigureSheet::width - labelsLeft, labelHeight},
                   elidedText(rankText(leaves[line]->rank) + u' ' + results.names[leaves[line]->factorNo],
                              FigureSheet::width - labelsLeft));
    }
}

void drawChart(Sheet& sheet, const RoundResults& results, const Sensitivity& sensitivity) {
    const auto leaves = shownLeaves(sensitivity);
    if (leaves.empty()) return;
    QCustomPlot plot;
    setUpPlot(plot);
    plot.axisRect()->setAutoMargins(QCP::msNone);
    plot.axisRect()->setMargins(chartMargins);
    const QCPRange range = valueRange(leaves);
    plot.xAxis->setScaleType(QCPAxis::stLogarithmic);
    plot.xAxis->setRange(leastFactorOfWeight, greatestFactorOfWeight);
    plot.xAxis->setTicker(factorTicks());
    plot.xAxis->setLabel(u"『%1』の重み"_s.arg(elidedText(results.names[sensitivity.factorNo], 480)));
    plot.yAxis->setScaleType(QCPAxis::stLogarithmic);
    plot.yAxis->setRange(range);
    plot.yAxis->setTicker(decimalTicks(range));
    plot.yAxis->setLabel(u"総合係数"_s);
    auto* now = new QCPItemStraightLine(&plot); // the plot owns it
    now->point1->setCoords(1, range.lower);
    now->point2->setCoords(1, range.upper);
    now->setPen(QPen(QColor(Ink::line), 1));
    for (std::size_t line = 0; line < leaves.size(); ++line) addLine(plot, *leaves[line], line);
    sheet.plot(plot, chart);
    labelLines(sheet, range, leaves, results);
}

// "1.4", or with more places where that would be 1.
QString timesText(double k) {
    const QString text = formatNumber(k, u"0.##"_s);
    return text == u"1" ? formatNumber(k, u"0.######"_s) : text;
}

QString sentence(const RoundResults& results, qint32 factorNo, const RankChange& change) {
    const auto changed = u"を %1 倍にすると %2 位と %3 位が入れ替わります。"_s.arg(timesText(change.k))
                             .arg(change.rank)
                             .arg(change.rank + 1);
    constexpr double nameWidth = sentenceWidth / 4.4;
    return u"『%1』"_s.arg(elidedText(results.names[factorNo], nameWidth)) + changed +
           u"「%1」が「%2」を上回ります。"_s.arg(elidedText(results.names[change.risingNo], nameWidth),
                                                 elidedText(results.names[change.fallingNo], nameWidth));
}

void drawTable(Sheet& sheet, double top, const RoundResults& results, const Sensitivity& sensitivity,
               std::size_t first, std::size_t count) {
    if (sensitivity.changes.empty()) {
        sheet.text({0, top, FigureSheet::width, rowHeight},
                   u"『%1』を 1/9 倍から 9 倍まで変えても、%2 位までの順位は変わりません。"_s
                       .arg(elidedText(results.names[sensitivity.factorNo], 480))
                       .arg(leadingRanks));
        return;
    }
    sheet.text({0, top, factorWidth, rowHeight}, u"倍率"_s, Qt::AlignRight);
    sheet.text({factorWidth + 14, top, sentenceWidth, rowHeight}, u"順位の入れ替わり（1 倍に近い順）"_s);
    for (std::size_t i = 0; i < count; ++i) {
        const auto& change = sensitivity.changes[first + i];
        const double y = top + rowHeight * static_cast<double>(i + 1);
        sheet.text({0, y, factorWidth, rowHeight}, fourPlaces(change.k), Qt::AlignRight);
        sheet.text({factorWidth + 14, y, sentenceWidth, rowHeight},
                   sentence(results, sensitivity.factorNo, change));
    }
}

// Sheets that the figure of one factor takes: the table goes on behind the chart.
int sheetsOf(const Sensitivity& sensitivity) {
    const auto changes = sensitivity.changes.size();
    if (changes <= rowsBelowChart) return 1;
    return 1 + static_cast<int>((changes - rowsBelowChart + rowsOfSheet - 1) / rowsOfSheet);
}

} // namespace

std::vector<FigureSheet> drawSensitivity(const RoundResults& results) {
    const auto found = sensitivities(results, leadingRanks);
    int pages = 0;
    for (const auto& sensitivity : found) pages += sheetsOf(sensitivity);
    std::vector<FigureSheet> sheets;
    for (const auto& sensitivity : found) {
        const auto title = titleOf(
            results, u"感度：『%1』"_s.arg(elidedText(results.names[sensitivity.factorNo], 500)),
            u"『%1』の評価値を全員について k 倍（1/9 倍から 9 倍まで）にしたときの、上位の要因の総合係数です。"_s
                .arg(elidedText(results.names[sensitivity.factorNo], 360)));
        const auto changes = sensitivity.changes.size();
        for (std::size_t first = 0; first == 0 || first < changes;) {
            Sheet sheet(title, static_cast<int>(sheets.size()) + 1, pages);
            const auto count = std::min(changes - first, first == 0 ? rowsBelowChart : rowsOfSheet);
            if (first == 0) drawChart(sheet, results, sensitivity);
            drawTable(sheet, first == 0 ? tableTop : Sheet::top, results, sensitivity, first, count);
            sheets.push_back(sheet.finish());
            first += std::max<std::size_t>(count, 1);
        }
    }
    return sheets;
}
