// Comparison entry grid: one evaluator's pairwise comparisons, one goal factor at a time.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "core/Screen.h"
#include "platform/BoundedArray.h"

namespace Ui {
class ComparisonGrid;
}

class 比較値設定 : public Screen {
  public:
    比較値設定();
    ~比較値設定() override;

    void Form_Load() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void end() override { Command3_Click(); }
    void Command1_Click(); // start of a goal factor
    void Command2_Click(); // save
    void Command3_Click(); // back to the menu
    void MSFlexGrid1_Click(int row, int column);
    void CmbCell_Click(int position);

    bool mayDiscardValues();
    void showGoal();
    void clearGrid();
    void refuseWithoutGoal();
    void showChild(int item, qint32 factorNo, const QString& factorName);
    // The first pair without a value, row and column of the grid.
    std::optional<std::pair<int, int>> firstUnset() const;
    void replaceComparisons();

    bool isEntryCell(int row, int column) const;
    void setCell(int row, int column, int position);
    void showProgress(const QString& note = {});
    void hideChooser();
    bool gridKey(QKeyEvent* key);
    bool typeScale(int row, int column, const QString& typed);
    bool moveOn(int row, int column, int key);

    static constexpr int slots_ = 21;

    std::unique_ptr<Ui::ComparisonGrid> ui_;
    std::vector<qint32> goals_;          // parallel to the entries of Combo1
    std::optional<qint32> goalNo_;       // the goal factor whose grid is shown
    BoundedArray<qint32, slots_> items_; // its children, by position 1 … n
    int itemCount_ = 0;
    BoundedArray<BoundedArray<float, slots_>, slots_> values_; // 0: not set yet
    bool unsaved_ = false;
    bool reciprocalTyped_ = false; // "/" was typed: the next digit n sets 1/n
};
