#include <qcustomplot.h>

#include <algorithm>

#include "figures/FigureTexts.h"
#include "figures/Figures.h"
#include "figures/RowFigure.h"
#include "text/Numbers.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int alwaysShown = 10; // first ranks that are shown however often they stand among the counted

double percent(int times, int runs) {
    return runs == 0 ? 0 : 100.0 * times / runs;
}

int timesCounted(const LeafStability& leaf) {
    int times = 0;
    for (const int onRank : leaf.timesOn) times += onRank;
    return times;
}

QStringList cellsOf(const LeafStability& leaf, int runs) {
    QStringList cells;
    for (const int times : leaf.timesOn) cells << formatNumber(percent(times, runs), u"0.0"_s) + u'%';
    cells << (leaf.bestRank == leaf.worstRank ? rankText(leaf.bestRank)
                                              : u"%1～%2位"_s.arg(leaf.bestRank).arg(leaf.worstRank));
    return cells;
}

} // namespace

std::vector<FigureSheet> drawStability(const RoundResults& results, const Stability& stability) {
    std::vector<LeafStability> shown;
    for (const auto& leaf : stability.leaves)
        if (leaf.rank <= alwaysShown || timesCounted(leaf) > 0) shown.push_back(leaf);
    RowFigure figure;
    figure.title = titleOf(
        results, u"順位の安定"_s,
        u"すべての比較値を尺度の一目盛だけ無作為に動かす計算を %1 回くり返したときの順位です。左端は今の順位です。"_s
            .arg(stability.runs));
    if (const auto rest = stability.leaves.size() - shown.size(); rest > 0)
        figure.title.reading += u"ほかの %1 要因は 3 位以内に入りません。"_s.arg(rest);
    figure.columns = {
        {u"1位"_s, 780, 58}, {u"2位"_s, 840, 58}, {u"3位"_s, 900, 58}, {u"順位の幅"_s, 960, 84}};
    figure.nameWidth = 360;
    figure.plotLeft = 350;
    figure.plotWidth = 430;
    figure.scale = u"回数の割合（％）"_s;
    double greatest = 100; // equal leaves share a rank: more than one can be first in a run
    for (const auto& leaf : shown) {
        greatest = std::max(greatest, percent(timesCounted(leaf), stability.runs));
        figure.rows.push_back(
            {rankText(leaf.rank), results.names[leaf.factorNo], cellsOf(leaf, stability.runs)});
    }
    figure.fill = [&](QCustomPlot& plot, std::size_t first, std::size_t count) {
        plot.xAxis->setRange(0, greatest);
        QCPBars* below = nullptr;
        for (std::size_t rank = 0; rank < countedRanks; ++rank) {
            auto* bars = new QCPBars(plot.yAxis, plot.xAxis); // the plot owns it
            bars->setName(rankText(static_cast<int>(rank) + 1));
            bars->setWidth(0.62);
            bars->setPen(QPen(QColor(Ink::line), 1));
            bars->setBrush(QColor(std::array{Ink::dark, Ink::middle, Ink::light}.at(rank)));
            if (below != nullptr) bars->moveAbove(below);
            below = bars;
            for (std::size_t i = 0; i < count; ++i)
                if (const int times = shown[first + i].timesOn.at(rank); times > 0)
                    bars->addData(static_cast<double>(i), percent(times, stability.runs));
        }
    };
    return drawRows(figure);
}
