#include <qcustomplot.h>

#include <algorithm>

#include "figures/FigureTexts.h"
#include "figures/Figures.h"
#include "figures/RowFigure.h"
#include "judgement/Variation.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double nameWidth = 330;
constexpr double classLeft = 392;
constexpr double classWidth = 24;
constexpr double unchanged = 0.00005; // what four places show as no difference

// One cell for each class, the darker the more evaluators it holds, with their number.
void paintClasses(Sheet& sheet, const FactorSpread& spread, const QRectF& band) {
    int group = 0;
    for (const int count : spread.classes) group += count;
    for (int number = 0; number < valueClasses; ++number) {
        const int count = spread.classes[static_cast<std::size_t>(number)];
        const QRectF cell(classLeft + number * classWidth, band.top() + 3, classWidth - 1, band.height() - 6);
        const double share = static_cast<double>(count) / std::max(group, 1);
        const QRgb fill = count == 0 ? 0xfff4f4f4 : share < 0.25 ? Ink::light : 0xffa9c0dd;
        sheet.box(cell, share >= 0.5 ? Ink::middle : fill);
        if (count > 0) sheet.text(cell, QString::number(count), Qt::AlignHCenter);
    }
}

QString movement(const FactorSpread& spread) {
    if (!spread.earlierDeviation) return u"－"_s;
    const double difference = spread.deviation - *spread.earlierDeviation;
    if (std::abs(difference) < unchanged) return u"→ 同じ"_s;
    return (difference < 0 ? u"↓ "_s : u"↑ "_s) + fourPlaces(std::abs(difference));
}

QString nameOf(const RoundResults& results, const FactorSpread& spread) {
    if (spread.parentNo == results.problemNo) return results.names[spread.factorNo];
    return results.names[spread.parentNo] + u" ＞ "_s + results.names[spread.factorNo];
}

QStringList cellsOf(const FactorSpread& spread, bool withEarlier) {
    QStringList cells{fourPlaces(spread.minimum), fourPlaces(spread.maximum), fourPlaces(spread.deviation)};
    if (withEarlier)
        cells << (spread.earlierDeviation ? fourPlaces(*spread.earlierDeviation) : u"－"_s)
              << movement(spread);
    return cells;
}

// How many factors have come together and moved apart.
QString summary(const std::vector<FactorSpread>& spreads) {
    int closer = 0;
    int apart = 0;
    for (const auto& spread : spreads) {
        if (!spread.earlierDeviation) continue;
        const double difference = spread.deviation - *spread.earlierDeviation;
        if (difference <= -unchanged) ++closer;
        if (difference >= unchanged) ++apart;
    }
    return u"揃ってきた要因 %1、離れた要因 %2。"_s.arg(closer).arg(apart);
}

void fillDeviations(QCustomPlot& plot, const std::vector<FactorSpread>& spreads, std::size_t first,
                    std::size_t count, const RoundResults* earlier) {
    auto* now = new QCPBars(plot.yAxis, plot.xAxis); // the plot owns what is made on it
    now->setName(u"標準偏差"_s);
    now->setWidth(0.5);
    now->setPen(QPen(QColor(Ink::line), 1));
    now->setBrush(QColor(Ink::middle));
    QCPGraph* before = nullptr;
    if (earlier != nullptr) {
        before = new QCPGraph(plot.yAxis, plot.xAxis);
        before->setName(u"%1回の標準偏差"_s.arg(earlier->round));
        before->setLineStyle(QCPGraph::lsNone);
        before->setScatterStyle(
            {QCPScatterStyle::ssDiamond, QPen(QColor(Ink::line), 1), QBrush(Qt::white), 10});
    }
    for (std::size_t i = 0; i < count; ++i) {
        const auto& spread = spreads[first + i];
        now->addData(static_cast<double>(i), spread.deviation);
        if (before != nullptr && spread.earlierDeviation)
            before->addData(static_cast<double>(i), *spread.earlierDeviation);
    }
}

// "B（0.1534）".
QString gradeText(double variation) {
    return u"%1（%2）"_s.arg(gradeLetter(variation), fourPlaces(variation));
}

// The grade of the round and what its letters say, in a line of its own.
QString gradeLine(const Agreement& found, const RoundResults* earlier) {
    QString line = u"\n変動度 "_s + gradeText(found.variation);
    if (earlier != nullptr && found.earlierVariation)
        line += u"、%1回は %2"_s.arg(earlier->round).arg(gradeText(*found.earlierVariation));
    return line + u"。"_s + gradeLegend() + u"。"_s;
}

std::vector<FigureSheet> drawSpreads(const RoundResults& results, const RoundResults* earlier,
                                     const std::vector<FactorSpread>& spreads, const QString& what,
                                     const QString& grade) {
    double greatest = 1e-4;
    RowFigure figure;
    figure.title = titleOf(
        results, u"意見の揃い方（%1）"_s.arg(what),
        u"意見の離れている要因から順に並べています。分布は最小から最大までを七つに分けた人数です。"_s);
    if (earlier != nullptr)
        figure.title.reading += u"◇は%1回の標準偏差です。"_s.arg(earlier->round) + summary(spreads);
    figure.title.reading += grade;
    figure.columns = {{u"最小"_s, nameWidth, 56},
                      {u"最大"_s, classLeft + valueClasses * classWidth, 56},
                      {u"標準偏差"_s, 862, 54}};
    if (earlier != nullptr) {
        figure.columns.append({u"%1回"_s.arg(earlier->round), 918, 54});
        figure.columns.append({u"差"_s, 974, 72});
    }
    figure.nameWidth = nameWidth;
    figure.plotLeft = 616;
    figure.plotWidth = 250;
    figure.scale = u"標準偏差"_s;
    for (const auto& spread : spreads) {
        greatest = std::max({greatest, spread.deviation, spread.earlierDeviation.value_or(0)});
        figure.rows.push_back({QString::number(figure.rows.size() + 1), nameOf(results, spread),
                               cellsOf(spread, earlier != nullptr)});
    }
    figure.fill = [&](QCustomPlot& plot, std::size_t first, std::size_t count) {
        plot.xAxis->setRange(0, greatest * 1.05);
        plot.xAxis->ticker()->setTickCount(4);
        fillDeviations(plot, spreads, first, count, earlier);
    };
    figure.paint = [&spreads](Sheet& sheet, std::size_t row, const QRectF& band) {
        paintClasses(sheet, spreads[row], band);
    };
    return drawRows(figure);
}

} // namespace

std::vector<FigureSheet> drawAgreement(const RoundResults& results, const RoundResults* earlier) {
    const Agreement found = agreement(results, earlier);
    auto sheets = drawSpreads(results, earlier, found.weights, u"評価値"_s, gradeLine(found, earlier));
    const auto totals = drawSpreads(results, earlier, found.totals, u"総合評価値（最終レベル）"_s, {});
    sheets.insert(sheets.end(), totals.begin(), totals.end());
    return sheets;
}
