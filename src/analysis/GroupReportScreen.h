// Group report: the chosen evaluators' weights beside those of the group, with a covering letter.
#pragma once

#include "output/ReportForm.h"

class 報告作成 : public ReportForm {
  public:
    報告作成();

  protected:
    void run(const ReportSelection& selection) override;
};
