// Shows sheets below one another, as wide as the view.
#pragma once

#include <QScrollArea>
#include <vector>

#include "figures/Sheet.h"

class SheetView : public QScrollArea {
  public:
    explicit SheetView(QWidget* parent = nullptr);

    void show(std::vector<FigureSheet> sheets);
    // Instead of sheets: what is to be done to see some.
    void show(const QString& hint);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    class Paper;

    Paper* paper_;
};
