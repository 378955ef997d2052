// Final result: coefficients of the group for a problem, into a table and a CSV file.
#pragma once

#include "screens/WorkScreen.h"

class QTableWidget;

class 最終結果 : public WorkScreen {
  public:
    explicit 最終結果(const Work& work);

  protected:
    void problemChosen(const std::optional<ProblemRound>& of) override;
    void worked(const RoundSelection& chosen) override;

  private:
    void showCoefficients(const ProblemRound& of);

    QTableWidget* coefficients_; // that are stored, the highest first
    QLabel* whose_;              // whether they belong to the present results
};
