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
    // Alignment of the texts that are set from now on, outside the fixed cells.
    void setCellAlignment(Qt::Alignment alignment) { cellAlignment_ = alignment; }
    // Background of a cell.
    void shade(int row, int column, const QColor& colour);
    // Empties every cell, the fixed ones too.
    void clearTexts();
    // Shows only the first `rows` rows and `columns` columns, the fixed ones included.
    void showOnly(int rows, int columns);

    // The current cell, (0, 0) when there is none.
    int row() const { return currentRow() + 1; }
    int column() const { return currentColumn() + 1; }
    void setCurrent(int row, int column) { setCurrentCell(row - 1, column - 1); }
    // Place of a cell in the viewport, pixels.
    QRect cellRect(int row, int column) const;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void updateGeometries() override;

  private:
    void placeCorner();

    QLabel* corner_;
    Qt::Alignment cellAlignment_ = Qt::AlignLeft | Qt::AlignVCenter;
};
