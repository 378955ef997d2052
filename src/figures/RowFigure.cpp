#include "figures/RowFigure.h"

#include <qcustomplot.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double headingHeight = 20;
constexpr double leastRow = 26; // two lines of a name
constexpr double greatestRow = 44;
constexpr double axisHeight = 44; // numbers and label
constexpr double legendHeight = 26;
constexpr double markWidth = 40;
constexpr int plotMargin = 14; // so that the numbers at the ends of the axis have room
constexpr double rowsTop = Sheet::top + headingHeight;
constexpr double rowsHeight = Sheet::bottom - rowsTop - axisHeight - legendHeight;
const auto rowsOfSheet = static_cast<std::size_t>(rowsHeight / leastRow);

// The rows first to first + count − 1, on a sheet of their own.
class RowSheet {
  public:
    RowSheet(const RowFigure& figure, std::size_t first, std::size_t count, double rowHeight, Sheet& sheet)
        : figure_(figure), first_(first), count_(count), rowHeight_(rowHeight), sheet_(sheet) {}

    void draw() {
        for (const auto& column : figure_.columns)
            sheet_.text({column.left, Sheet::top, column.width, headingHeight}, column.heading,
                        Qt::AlignRight);
        for (std::size_t i = 0; i < count_; ++i) drawRow(i);
        drawPlot();
    }

  private:
    void drawRow(std::size_t i) {
        const auto& row = figure_.rows[first_ + i];
        const double y = rowsTop + static_cast<double>(i) * rowHeight_;
        const QRectF band(0, y, FigureSheet::width, rowHeight_);
        sheet_.line(band.topLeft(), band.topRight());
        sheet_.text({0, y, markWidth - 8, rowHeight_}, row.mark, Qt::AlignRight);
        sheet_.name({markWidth, y, figure_.nameWidth - markWidth - 8, rowHeight_}, row.name);
        for (qsizetype cell = 0; cell < row.cells.size(); ++cell)
            sheet_.text({figure_.columns[cell].left, y, figure_.columns[cell].width, rowHeight_},
                        row.cells[cell], Qt::AlignRight);
        if (figure_.paint) figure_.paint(sheet_, first_ + i, band);
    }

    void drawPlot() {
        QCustomPlot plot;
        setUpPlot(plot);
        plot.plotLayout()->setRowSpacing(0);
        plot.axisRect()->setAutoMargins(QCP::msNone);
        plot.axisRect()->setMargins({plotMargin, 0, plotMargin, static_cast<int>(axisHeight)});
        plot.xAxis->setLabel(figure_.scale);
        plot.yAxis->setRangeReversed(true);
        plot.yAxis->setRange(-0.5, static_cast<double>(count_) - 0.5);
        plot.yAxis->setTicks(false);
        plot.yAxis->grid()->setVisible(false);
        figure_.fill(plot, first_, count_);
        auto* legend = new QCPLegend; // the layout owns it
        plot.plotLayout()->addElement(1, 0, legend);
        legend->setLayer(u"legend"_s);
        legend->setFillOrder(QCPLegend::foColumnsFirst);
        legend->setFont(figureFont(Sheet::textSize));
        legend->setBorderPen(Qt::NoPen);
        legend->setMargins({plotMargin, 2, 0, 0});
        legend->setMaximumSize(QWIDGETSIZE_MAX, static_cast<int>(legendHeight));
        legend->setMinimumSize(0, static_cast<int>(legendHeight));
        for (int i = 0; i < plot.plottableCount(); ++i)
            if (!plot.plottable(i)->name().isEmpty()) plot.plottable(i)->addToLegend(legend);
        sheet_.plot(plot, {figure_.plotLeft, rowsTop, figure_.plotWidth,
                           static_cast<double>(count_) * rowHeight_ + axisHeight + legendHeight});
    }

    const RowFigure& figure_;
    std::size_t first_;
    std::size_t count_;
    double rowHeight_;
    Sheet& sheet_;
};

} // namespace

std::vector<FigureSheet> drawRows(const RowFigure& figure) {
    std::vector<FigureSheet> sheets;
    const auto rows = figure.rows.size();
    const auto pages = static_cast<int>((rows + rowsOfSheet - 1) / rowsOfSheet);
    const double rowHeight =
        std::clamp(rowsHeight / static_cast<double>(std::max<std::size_t>(rows, 1)), leastRow, greatestRow);
    for (std::size_t first = 0; first < rows; first += rowsOfSheet) {
        Sheet sheet(figure.title, static_cast<int>(sheets.size()) + 1, pages);
        RowSheet(figure, first, std::min(rowsOfSheet, rows - first), rowHeight, sheet).draw();
        sheets.push_back(sheet.finish());
    }
    return sheets;
}
