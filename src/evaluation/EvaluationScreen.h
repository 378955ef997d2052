// Calculation: weights and inconsistency report of the chosen evaluators.
#pragma once

#include "output/ReportForm.h"

class 評価計算 : public ReportForm {
  public:
    評価計算();

  protected:
    void run(const ReportSelection& selection) override;
};
