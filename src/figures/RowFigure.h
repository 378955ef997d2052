// A figure with one row for each factor, on as many sheets as it takes.
#pragma once

#include <functional>
#include <vector>

#include "figures/Sheet.h"

class QCustomPlot;

// Numbers beside the plot; the texts end at the right edge.
struct RowColumn {
    QString heading;
    double left;
    double width;
};

struct FigureRow {
    QString mark; // before the name
    QString name;
    QStringList cells;
};

struct RowFigure {
    FigureTitle title;
    QList<RowColumn> columns;
    std::vector<FigureRow> rows;
    double nameWidth = 0; // names stand at the left of the sheet
    double plotLeft = 0;
    double plotWidth = 0;
    QString scale; // what the plot's axis shows
    // Fills the plot of one sheet for the rows from `first` on. Row `first` stands at 0 of the vertical axis,
    // the next at 1.
    std::function<void(QCustomPlot& plot, std::size_t first, std::size_t count)> fill;
    // What else stands in the row, `band` high. May be missing.
    std::function<void(Sheet& sheet, std::size_t row, const QRectF& band)> paint = {};
};

std::vector<FigureSheet> drawRows(const RowFigure& figure);
