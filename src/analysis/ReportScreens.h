// The calculation and report screens: each is the shared form with its own work.
#pragma once

#include "screens/WorkScreen.h"

class QLabel;
class QTableWidget;

// Calculation: weights and inconsistency report of the chosen evaluators.
class 評価計算 : public WorkScreen {
  public:
    評価計算();
};

// Individual results: tree, comparisons and overall weights of the chosen evaluators.
class 個人結果 : public WorkScreen {
  public:
    個人結果();
};

// Group report: the chosen evaluators' weights beside those of the group, with a covering letter.
class 報告作成 : public WorkScreen {
  public:
    報告作成();
};

// Analysis output: grade of the round and spread of the evaluators' weights.
class 分析出力 : public WorkScreen {
  public:
    分析出力();
};

// Final result: coefficients of the group for a problem, into a table and a CSV file.
class 最終結果 : public WorkScreen {
  public:
    最終結果();

  protected:
    void problemChosen(const std::optional<ProblemRound>& of) override;
    void worked(const RoundSelection& chosen) override;

  private:
    void showCoefficients(const ProblemRound& of);

    QTableWidget* coefficients_; // that are stored, the highest first
    QLabel* whose_;              // whether they belong to the present results
};
