#include "platform/FlexGrid.h"

#include <QHeaderView>
#include <QLabel>

#include "platform/ElidedLabel.h"

namespace {

constexpr int cornerMargin = 16; // pixels beside the text of cell (0, 0)

} // namespace

FlexGrid::FlexGrid(QWidget* parent) : QTableWidget(parent), corner_(new QLabel(this)) {
    corner_->setAlignment(Qt::AlignCenter);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false); // Tab goes on to the next control, the arrows move in the grid
    setCornerButtonEnabled(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(true);
    verticalHeader()->setSectionsClickable(false);
    verticalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void FlexGrid::setSize(int rows, int columns) {
    setRowCount(rows - 1);
    setColumnCount(columns - 1);
    clearTexts();
}

QString FlexGrid::text(int row, int column) const {
    if (row == 0 && column == 0) return corner_->text();
    const QTableWidgetItem* cell = row == 0      ? horizontalHeaderItem(column - 1)
                                   : column == 0 ? verticalHeaderItem(row - 1)
                                                 : item(row - 1, column - 1);
    return cell == nullptr ? QString() : cell->text();
}

void FlexGrid::setText(int row, int column, const QString& text) {
    if (row == 0 && column == 0) {
        corner_->setText(text);
        verticalHeader()->setMinimumWidth(corner_->sizeHint().width() + cornerMargin);
        placeCorner();
        return;
    }
    auto* cell = new QTableWidgetItem(text);
    cell->setFlags(cell->flags() & ~Qt::ItemIsEditable); // the input method would take the digits for itself
    cell->setToolTip(plainToolTip(text));                // long names may be cut
    if (row == 0) {
        setHorizontalHeaderItem(column - 1, cell);
    } else if (column == 0) {
        setVerticalHeaderItem(row - 1, cell);
    } else {
        cell->setTextAlignment(cellAlignment_);
        setItem(row - 1, column - 1, cell);
    }
}

void FlexGrid::shade(int row, int column, const QColor& colour) {
    if (item(row - 1, column - 1) == nullptr) setText(row, column, {});
    item(row - 1, column - 1)->setBackground(colour);
}

void FlexGrid::clearTexts() {
    // An absent header item shows its number, an empty one nothing, and an absent cell can be edited.
    for (int row = 0; row <= rowCount(); ++row)
        for (int column = 0; column <= columnCount(); ++column) setText(row, column, {});
}

void FlexGrid::showOnly(int rows, int columns) {
    for (int row = 1; row <= rowCount(); ++row) setRowHidden(row - 1, row >= rows);
    for (int column = 1; column <= columnCount(); ++column) setColumnHidden(column - 1, column >= columns);
}

QRect FlexGrid::cellRect(int row, int column) const {
    return visualRect(model()->index(row - 1, column - 1));
}

void FlexGrid::resizeEvent(QResizeEvent* event) {
    QTableWidget::resizeEvent(event);
    placeCorner();
}

void FlexGrid::updateGeometries() {
    QTableWidget::updateGeometries();
    placeCorner();
}

void FlexGrid::placeCorner() {
    corner_->setGeometry(frameWidth(), frameWidth(), verticalHeader()->width(), horizontalHeader()->height());
    corner_->raise();
}
