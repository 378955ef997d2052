// Comparison setup: problem, evaluator, round and date of a comparison session.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "core/NumberedNames.h"
#include "core/Screen.h"

struct AnsweredGoals;
namespace Ui {
class ComparisonSetup;
}

class 比較者設定 : public Screen {
  public:
    比較者設定();
    ~比較者設定() override;

    void Form_Load() override;

  private:
    bool hasInput() const override { return false; } // choices, quickly made again

    void end() override { Command2_Click(); }
    void Combo1_Click();   // a problem: its round, its evaluators, and what they have answered
    void Command1_Click(); // "開始"
    void Command2_Click(); // "キャンセル"
    void Command3_Click(); // questionnaires

    void showAnswers(const std::optional<AnsweredGoals>& answered);
    bool takeProblem();
    bool takeEvaluator();
    bool takeDate();
    void tellExistingRound();

    std::unique_ptr<Ui::ComparisonSetup> ui_;
    // Parallel to the entries of the two lists.
    std::vector<Common::NumberedName> problems_;
    std::vector<Common::NumberedName> evaluators_;
};
