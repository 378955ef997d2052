// Comparison entry grid: one evaluator's pairwise comparisons, one goal factor at a time.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "comparison/PairEntry.h"
#include "core/Screen.h"
#include "rounds/AnsweredGoals.h"

class ElidedLabel;
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
    // What was typed of a value that is not complete yet: after "1" may come "/", after "/" must come a
    // digit.
    enum class Typed { Nothing, One, Slash };

    void end() override { Command3_Click(); }
    void Combo1_Click();   // another goal factor: nothing is shown of it until it is started
    void Command1_Click(); // "評価開始"
    void Command2_Click(); // "評価終了": saves
    void Command3_Click(); // "終了": back to the menu
    void Command4_Click(); // "次の目的要因": starts the next one that is not stored
    void MSFlexGrid1_Click(int row, int column);
    void CmbCell_Click(int position);

    bool mayDiscardValues();
    void startGoal();
    void showGoal();
    void clearGrid();
    void refuseWithoutGoal();
    void askForStart();
    void showChild(int item, const Factor& child);
    void fitWindow();
    EvaluatorRound session() const;
    std::optional<int> nextOpenGoal() const; // its entry in Combo1

    PairCell current() const;
    void goTo(PairCell cell);
    void enter(PairCell cell, int position);
    void goOn(PairCell from);
    void showCell(PairCell cell);
    void clearCell();
    void undo();
    void hideChooser();
    bool gridKey(const QKeyEvent& key);
    bool typeKey(const QKeyEvent& key);
    void typeScale(QChar typed);
    bool moveOn(int key);

    QString itemName(int item) const;
    QString shortName(int item) const;
    void tell(ElidedLabel& label, PairCell cell,
              const std::function<QString(const QString& source, const QString& target)>& sentence);
    void showState();
    void showSentence();
    void showConsistency();
    void showStored();

    std::unique_ptr<Ui::ComparisonGrid> ui_;
    std::vector<Factor> goals_; // parallel to the entries of Combo1
    AnsweredGoals answered_;
    std::optional<qint32> goalNo_; // the goal factor whose grid is shown
    std::vector<Factor> children_; // its children, in display order
    PairEntry entry_;
    Typed typed_ = Typed::Nothing;
};
