// Individual results: tree, comparisons and overall weights of the chosen evaluators.
#pragma once

#include "output/ReportForm.h"

class QCheckBox;

class 個人結果 : public ReportForm {
  public:
    個人結果();

  protected:
    void run(const ReportSelection& selection) override;

  private:
    QCheckBox* Check1; // whether the tree shows the evaluator's weights or zeros
};
