// Analysis output: grade of the round and spread of the evaluators' weights.
#pragma once

#include "output/ReportForm.h"

class 分析出力 : public ReportForm {
  public:
    分析出力();

  protected:
    void run(const ReportSelection& selection) override;
};
