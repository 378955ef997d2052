// Final result: coefficients of the group for a problem, into a table and a CSV file.
#pragma once

#include "output/ReportForm.h"

class 最終結果 : public ReportForm {
  public:
    最終結果();

  protected:
    void run(const ReportSelection& selection) override;
};
