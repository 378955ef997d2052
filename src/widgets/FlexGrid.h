// A grid of texts whose row 0 and column 0 are fixed and stay in view.
#pragma once

#include <QTableWidget>

class QLabel;

class FlexGrid : public QTableWidget {
  public:
    explicit FlexGrid(QWidget* parent = nullptr);

    // Rows and columns with the fixed ones.
    void setSize(int rows, int columns);
    // Text of a cell; row 0 and column 0 are the fixed cells.
    QString text(int row, int column) const;
    void setText(int row, int column, const QString& text);
    // A cell's tool tip is its text unless another one is set after the text.
    void setHint(int row, int column, const QString& text);
    // Alignment of the texts that are set from now on, outside the fixed cells. Centred texts stand under
    // each other without regard to the blanks around them.
    void setCellAlignment(Qt::Alignment alignment) { cellAlignment_ = alignment; }
    // Shows that a cell takes no entry.
    void setClosed(int row, int column);
    // A mark in the corner of a cell and the hint that tells what it means; none without a hint.
    void setMarked(int row, int column, const QString& hint);
    // Empties every cell, the fixed ones too.
    void clearTexts();
    // Shows only the first `rows` rows and `columns` columns, the fixed ones included.
    void showOnly(int rows, int columns);

    // The current cell, (0, 0) when there is none.
    int row() const { return currentRow() + 1; }
    int column() const { return currentColumn() + 1; }
    void setCurrent(int row, int column) { setCurrentCell(row - 1, column - 1); }
    // Scrolls the current cell into view.
    void showCurrent() { scrollTo(currentIndex()); }
    // Place of a cell in the viewport, pixels.
    QRect cellRect(int row, int column) const;
    // Asks the layout for room enough to show all cells that are shown now, and the texts of column 0 whole.
    void claimNeededSize();
    QSize sizeHint() const override { return needed_.isValid() ? needed_ : QTableWidget::sizeHint(); }

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void updateGeometries() override;

  private:
    QTableWidgetItem* cell(int row, int column) const;
    void placeCorner();

    QLabel* corner_;
    QSize needed_;
    Qt::Alignment cellAlignment_ = Qt::AlignLeft | Qt::AlignVCenter;
};
