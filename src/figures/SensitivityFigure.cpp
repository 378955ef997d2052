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
constexpr double labelWidth = FigureSheet::width - labelsLeft;
constexpr double labelHeight = 16;
constexpr double tallLabelHeight = 26; // of a name in two lines
constexpr double tableTop = 466;
constexpr double rowHeight = 17;
constexpr double factorWidth = 70; // of the column with k
constexpr double sentenceWidth = FigureSheet::width - factorWidth - 14;
constexpr auto linesBelowChart = static_cast<qsizetype>((Sheet::bottom - tableTop) / rowHeight) - 1;
constexpr auto linesOfSheet = static_cast<qsizetype>((Sheet::bottom - Sheet::top) / rowHeight) - 1;

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
        if (leaf.rank <= leadingRanks) show(leaf);
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
    QStringList names;
    double pitch = labelHeight;
    for (const auto* leaf : leaves) {
        names << rankText(leaf->rank) + u' ' + results.names[leaf->factorNo];
        if (wrappedText(names.last(), labelWidth).size() > 1) pitch = tallLabelHeight;
    }
    double lowest = chart.bottom();
    for (auto place = places.rbegin(); place != places.rend(); ++place, lowest -= pitch)
        lowest = place->first = std::min(place->first, lowest);
    double highest = chart.top();
    for (auto& [y, line] : places) {
        const double end = yOf(*leaves[line]);
        y = std::max(y, highest);
        highest = y + pitch;
        sheet.line({chart.right() - chartMargins.right() + 4, end}, {labelsLeft - 18, y});
        sheet.mark({labelsLeft - 10, y}, lineMark(line));
        sheet.name({labelsLeft, y - pitch / 2, labelWidth, pitch}, names[static_cast<qsizetype>(line)]);
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

QString quotedName(const RoundResults& results, qint32 factorNo) {
    return u"「%1」"_s.arg(results.names[factorNo]);
}

QString sentence(const RoundResults& results, qint32 factorNo, const RankChange& change) {
    const QString times = u"『%1』を %2 倍にすると"_s.arg(results.names[factorNo],
                                                          formatNumber(change.roundedK, u"0.######"_s));
    const QString places = change.changesPlaces
                               ? u" %1 位と %2 位が入れ替わります。"_s.arg(change.rank).arg(change.rank + 1)
                               : u"、"_s;
    return times + places + quotedName(results, change.risingNo) + u"が"_s +
           quotedName(results, change.fallingNo) + u"を上回ります。"_s;
}

struct TableRow {
    QString factor; // k
    QStringList lines;
};

// Once for each rank that several of the leading leaves share now.
void addTies(std::vector<TableRow>& rows, const RoundResults& results,
             const std::vector<LeafResponse>& leaves) {
    for (std::size_t first = 0; first < leaves.size() && leaves[first].rank <= leadingRanks;) {
        auto next = first;
        QString names;
        for (; next < leaves.size() && leaves[next].rank == leaves[first].rank; ++next)
            names += quotedName(results, leaves[next].factorNo);
        if (next - first > 1)
            rows.push_back({fourPlaces(1),
                            wrappedText(u"いまは%1が同じ %2 位です。"_s.arg(names).arg(leaves[first].rank),
                                        sentenceWidth)});
        first = next;
    }
}

// What stands below the chart: who is equal now, then who changes places with whom.
std::vector<TableRow> tableOf(const RoundResults& results, const Sensitivity& sensitivity) {
    std::vector<TableRow> rows;
    addTies(rows, results, sensitivity.leaves);
    for (const auto& change : sensitivity.changes)
        rows.push_back({fourPlaces(change.k),
                        wrappedText(sentence(results, sensitivity.factorNo, change), sentenceWidth)});
    if (!sensitivity.changes.empty()) return rows;
    const QString which = sensitivity.leaves.size() > leadingRanks ? u"%1 位までの順位"_s.arg(leadingRanks)
                          : rows.empty()                           ? u"順位"_s
                                                                   : u"そのほかの順位"_s;
    rows.push_back({{},
                    wrappedText(u"『%1』を 1/9 倍から 9 倍まで変えても、%2は変わりません。"_s.arg(
                                    results.names[sensitivity.factorNo], which),
                                sentenceWidth)});
    return rows;
}

// The rows by sheet: the table goes on behind the chart.
std::vector<std::vector<TableRow>> tableSheets(const std::vector<TableRow>& rows) {
    std::vector<std::vector<TableRow>> sheets(1);
    qsizetype room = linesBelowChart;
    for (const auto& row : rows) {
        if (row.lines.size() > room && !(sheets.back().empty() && sheets.size() > 1)) {
            sheets.emplace_back();
            room = linesOfSheet;
        }
        room -= row.lines.size();
        sheets.back().push_back(row);
    }
    return sheets;
}

void drawTable(Sheet& sheet, double top, const std::vector<TableRow>& rows) {
    if (rows.empty()) return;
    sheet.text({0, top, factorWidth, rowHeight}, u"倍率"_s, Qt::AlignRight);
    sheet.text({factorWidth + 14, top, sentenceWidth, rowHeight}, u"順位の入れ替わり（1 倍に近い順）"_s);
    double y = top + rowHeight;
    for (const auto& row : rows) {
        sheet.text({0, y, factorWidth, rowHeight}, row.factor, Qt::AlignRight);
        for (const auto& line : row.lines) {
            sheet.text({factorWidth + 14, y, sentenceWidth, rowHeight}, line);
            y += rowHeight;
        }
    }
}

} // namespace

std::vector<FigureSheet> drawSensitivity(const RoundResults& results) {
    const auto found = sensitivities(results, leadingRanks);
    std::vector<std::vector<std::vector<TableRow>>> tables; // by factor and sheet
    std::size_t pages = 0;
    for (const auto& sensitivity : found) {
        tables.push_back(tableSheets(tableOf(results, sensitivity)));
        pages += tables.back().size();
    }
    std::vector<FigureSheet> sheets;
    for (std::size_t factor = 0; factor < found.size(); ++factor) {
        const QString name = results.names[found[factor].factorNo];
        const auto title = titleOf(
            results, u"感度：『%1』"_s.arg(elidedText(name, 500)),
            u"『%1』の評価値を全員について k 倍（1/9 倍から 9 倍まで）にしたときの、上位の要因の総合係数です。"_s
                .arg(name));
        for (const auto& rows : tables[factor]) {
            const bool isFirst = &rows == &tables[factor].front();
            Sheet sheet(title, static_cast<int>(sheets.size()) + 1, static_cast<int>(pages));
            if (isFirst) drawChart(sheet, results, found[factor]);
            drawTable(sheet, isFirst ? tableTop : Sheet::top, rows);
            sheets.push_back(sheet.finish());
        }
    }
    return sheets;
}
