// Comparison entry grid: one evaluator's pairwise comparisons, one goal factor at a time.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "comparison/GoalAspects.h"
#include "comparison/PairKeyboard.h"
#include "core/Screen.h"
#include "rounds/AnsweredGoals.h"
#include "rounds/EarlierAnswers.h"

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
    void Combo1_Click();   // another goal factor: nothing is shown of it until it is started
    void Command1_Click(); // "評価開始"
    void Command2_Click(); // "評価終了": saves
    void Command3_Click(); // "終了": back to the menu
    void Command4_Click(); // "次の目的要因": starts the next one that is not stored
    void Command5_Click(); // "登録済の値を入れる": nothing is preset without it
    void MSFlexGrid1_Click(int row, int column);
    void CmbCell_Click(int position);

    bool mayDiscardValues();
    void startGoal();
    void showGoal();
    void clearGrid();
    void refuseWithoutGoal();
    void sayTaken(const EarlierAnswers& earlier);
    std::vector<qint32> items() const; // the numbers of the children
    void askForStart();
    void showChild(int item, const Factor& child);
    void fitWindow();
    void readAspects();
    Aspect aspect() const { return aspects_.value(goalNo_.value_or(0)); }
    EvaluatorRound session() const;
    std::optional<int> nextOpenGoal() const; // its entry in Combo1

    const PairEntry& entry() const { return keyboard_.entry(); }
    void goTo(PairCell cell);
    // Shows what the keyboard's rules made of what the user did.
    void follow(const std::function<void()>& rules);
    void showCell(PairCell cell);
    void hideChooser();
    bool gridKey(const QKeyEvent& key);
    bool listKey(const QKeyEvent& key);

    // The names of the two items that a sentence is about.
    QStringList namesOf(PairCell cell) const;
    void showState();
    void showSentence();
    void showConsistency();
    void showStored();

    std::unique_ptr<Ui::ComparisonGrid> ui_;
    std::vector<Factor> goals_; // parallel to the entries of Combo1
    AnsweredGoals answered_;
    GoalAspects aspects_;
    std::optional<qint32> goalNo_; // the goal factor whose grid is shown
    std::vector<Factor> children_; // its children, in display order
    PairKeyboard keyboard_;
};
