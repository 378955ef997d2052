// Individual results: tree, comparisons and overall weights of the chosen evaluators.
#pragma once

#include "screens/WorkScreen.h"

class 個人結果 : public WorkScreen {
  public:
    explicit 個人結果(const Work& work);
};
