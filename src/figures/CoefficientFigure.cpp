#include <qcustomplot.h>

#include <algorithm>

#include "figures/FigureTexts.h"
#include "figures/Figures.h"
#include "figures/RowFigure.h"

using namespace Qt::StringLiterals;

namespace {

class CoefficientPlot {
  public:
    CoefficientPlot(QCustomPlot& plot, std::optional<std::size_t> chosen) : plot_(plot), chosen_(chosen) {
        bars_ = new QCPBars(plot.yAxis, plot.xAxis); // the plot owns what is made on it
        bars_->setName(u"総合係数"_s);
        bars_->setWidth(0.62);
        bars_->setPen(QPen(QColor(Ink::line), 1));
        bars_->setBrush(QColor(Ink::light));
        range_ = new QCPErrorBars(plot.yAxis, plot.xAxis);
        range_->setDataPlottable(bars_);
        range_->setName(u"最小～最大"_s);
        range_->setPen(QPen(QColor(Ink::line), 1.4));
        range_->setWhiskerWidth(9);
        range_->setSymbolGap(0);
        values_ = scatters(u"各評価者の値"_s,
                           {QCPScatterStyle::ssCircle, QPen(QColor(Ink::dark), 1), QBrush(Qt::white), 6});
        if (chosen)
            own_ = scatters(u"選んだ評価者の値"_s, {QCPScatterStyle::ssDiamond, QPen(QColor(Ink::line), 1),
                                                    QBrush(QColor(Ink::line)), 12});
    }

    void add(double row, const LeafCoefficient& leaf) {
        bars_->addData(row, leaf.coefficient);
        range_->addData(leaf.coefficient - leaf.minimum, leaf.maximum - leaf.coefficient);
        for (std::size_t i = 0; i < leaf.values.size(); ++i)
            if (leaf.values[i] != 0) (i == chosen_ ? own_ : values_)->addData(row, leaf.values[i]);
    }

  private:
    QCPGraph* scatters(const QString& name, const QCPScatterStyle& style) {
        auto* graph = new QCPGraph(plot_.yAxis, plot_.xAxis);
        graph->setName(name);
        graph->setLineStyle(QCPGraph::lsNone);
        graph->setScatterStyle(style);
        return graph;
    }

    QCustomPlot& plot_;
    std::optional<std::size_t> chosen_;
    QCPBars* bars_;
    QCPErrorBars* range_;
    QCPGraph* values_;
    QCPGraph* own_ = nullptr;
};

QStringList cellsOf(const LeafCoefficient& leaf, std::optional<std::size_t> chosen) {
    QStringList cells{fourPlaces(leaf.coefficient), fourPlaces(leaf.minimum), fourPlaces(leaf.maximum)};
    if (chosen) cells << (leaf.values[*chosen] == 0 ? QString() : fourPlaces(leaf.values[*chosen]));
    return cells;
}

} // namespace

std::vector<FigureSheet> drawCoefficients(const RoundResults& results, std::optional<std::size_t> chosen) {
    const auto leaves = rankedLeaves(results);
    double greatest = 0;
    RowFigure figure;
    figure.title =
        titleOf(results, u"総合係数"_s,
                u"棒は全員の総合評価値の幾何平均です。横線は最小から最大まで、○は一人ひとりの値です。"_s);
    if (chosen) figure.title.reading += u"◆は%1の値です。"_s.arg(results.evaluators[*chosen].name);
    figure.columns = {{u"係数"_s, 830, 50}, {u"最小"_s, 884, 50}, {u"最大"_s, 938, 50}};
    if (chosen) figure.columns.append({u"◆"_s, 992, 50});
    figure.nameWidth = 360;
    figure.plotLeft = 350;
    figure.plotWidth = 475;
    figure.scale = u"総合評価値"_s;
    for (const auto& leaf : leaves) {
        greatest = std::max(greatest, leaf.maximum);
        figure.rows.push_back({rankText(leaf.rank), results.names[leaf.factorNo], cellsOf(leaf, chosen)});
    }
    figure.fill = [&](QCustomPlot& plot, std::size_t first, std::size_t count) {
        plot.xAxis->setRange(0, greatest * 1.03);
        CoefficientPlot filled(plot, chosen);
        for (std::size_t i = 0; i < count; ++i) filled.add(static_cast<double>(i), leaves[first + i]);
    };
    return drawRows(figure);
}
