#include "widgets/FlexGrid.h"

#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "text/TextConversion.h"
#include "widgets/Colours.h"
#include "widgets/ElidedLabel.h"

namespace {

constexpr int cornerMargin = 16;    // pixels beside the text of cell (0, 0)
constexpr int nameMargin = 8;       // pixels beside the texts of column 0
constexpr double headerShare = 0.4; // of the width that column 0 takes at most
constexpr float markStrength =
    0.4F; // of the highlight colour in the fixed cells of the current row and column
constexpr int closedRole = Qt::UserRole;
constexpr int markedRole = Qt::UserRole + 1;
constexpr double cornerShare = 0.35; // of the height of a cell that its mark takes

QColor mixed(const QColor& ground, const QColor& colour) {
    const auto mix = [](float from, float to) { return from + markStrength * (to - from); };
    return QColor::fromRgbF(mix(ground.redF(), colour.redF()), mix(ground.greenF(), colour.greenF()),
                            mix(ground.blueF(), colour.blueF()));
}

// Fixed cells; those of the current row and column are marked.
class FixedCells : public QHeaderView {
  public:
    using QHeaderView::QHeaderView;

  protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override {
        QHeaderView::initStyleOptionForIndex(option, section);
        if (option->textAlignment.testFlag(Qt::AlignHCenter)) option->text = option->text.trimmed();
        if (orientation() == Qt::Vertical)
            option->text = option->fontMetrics.elidedText(option->text, Qt::ElideRight, width() - nameMargin);
        const auto current = selectionModel()->currentIndex();
        if (!current.isValid() ||
            section != (orientation() == Qt::Horizontal ? current.column() : current.row()))
            return;
        const auto marked = mixed(palette().color(QPalette::Button), palette().color(QPalette::Highlight));
        option->palette.setColor(QPalette::Button, marked);
        option->palette.setColor(QPalette::Window, marked);
    }
};

class Cells : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->displayAlignment.testFlag(Qt::AlignHCenter)) option->text = option->text.trimmed();
        if (index.data(closedRole).toBool()) option->backgroundBrush = closedCell(option->palette);
    }

    // A shape, not a colour alone, that leaves the text as it is.
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        if (!index.data(markedRole).toBool()) return;
        const double side = cornerShare * option.rect.height();
        const QPointF corner = option.rect.topLeft();
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(isSelected ? option.palette.color(QPalette::HighlightedText)
                                     : fadedText(option.palette));
        painter->drawPolygon(QPolygonF{corner, corner + QPointF(side, 0), corner + QPointF(0, side)});
        painter->restore();
    }
};

} // namespace

FlexGrid::FlexGrid(QWidget* parent) : QTableWidget(parent), corner_(new QLabel(this)) {
    corner_->setAlignment(Qt::AlignCenter);
    setItemDelegate(new Cells(this));
    setHorizontalHeader(new FixedCells(Qt::Horizontal, this));
    setVerticalHeader(new FixedCells(Qt::Vertical, this));
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false); // Tab goes on to the next control, the arrows move in the grid
    setCornerButtonEnabled(false);
    verticalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(this, &QTableWidget::currentCellChanged, this, [this] {
        horizontalHeader()->viewport()->update();
        verticalHeader()->viewport()->update();
    });
}

void FlexGrid::setSize(int rows, int columns) {
    setRowCount(rows - 1);
    setColumnCount(columns - 1);
    clearTexts();
}

QTableWidgetItem* FlexGrid::cell(int row, int column) const {
    return row == 0      ? horizontalHeaderItem(column - 1)
           : column == 0 ? verticalHeaderItem(row - 1)
                         : item(row - 1, column - 1);
}

QString FlexGrid::text(int row, int column) const {
    if (row == 0 && column == 0) return corner_->text();
    const auto* shown = cell(row, column);
    return shown == nullptr ? QString() : shown->text();
}

void FlexGrid::setText(int row, int column, const QString& text) {
    if (row == 0 && column == 0) {
        corner_->setText(text);
        verticalHeader()->setMinimumWidth(corner_->sizeHint().width() + cornerMargin);
        placeCorner();
        return;
    }
    auto* shown = cell(row, column);
    if (shown == nullptr) {
        shown = new QTableWidgetItem;
        shown->setFlags(shown->flags() &
                        ~Qt::ItemIsEditable); // the input method would take the digits for itself
        if (row == 0) {
            setHorizontalHeaderItem(column - 1, shown);
        } else if (column == 0) {
            setVerticalHeaderItem(row - 1, shown);
        } else {
            setItem(row - 1, column - 1, shown);
        }
    }
    if (row > 0 && column > 0) shown->setTextAlignment(cellAlignment_);
    shown->setText(joinedLines(text));
    shown->setData(markedRole, false);
    setHint(row, column, text); // long names may be cut
}

void FlexGrid::setHint(int row, int column, const QString& text) {
    cell(row, column)->setToolTip(plainToolTip(text));
}

void FlexGrid::setClosed(int row, int column) {
    cell(row, column)->setData(closedRole, true);
}

void FlexGrid::setMarked(int row, int column, const QString& hint) {
    cell(row, column)->setData(markedRole, !hint.isEmpty());
    if (!hint.isEmpty()) setHint(row, column, hint);
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

void FlexGrid::claimNeededSize() {
    const int frames = 2 * frameWidth();
    const int names = std::max(verticalHeader()->minimumWidth(), verticalHeader()->sizeHint().width());
    const int withNames =
        std::max(names + horizontalHeader()->length(), static_cast<int>(names / headerShare));
    needed_ = {withNames + frames,
               horizontalHeader()->sizeHint().height() + verticalHeader()->length() + frames};
    updateGeometry();
}

void FlexGrid::resizeEvent(QResizeEvent* event) {
    verticalHeader()->setMaximumWidth(
        std::max(verticalHeader()->minimumWidth(), static_cast<int>(headerShare * width())));
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
