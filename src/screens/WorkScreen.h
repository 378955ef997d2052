// What the calculation and report screens share: problem, evaluators, round, output target, progress.
#pragma once

#include <memory>

#include "rounds/RoundSelection.h"
#include "screens/OutputScreen.h"
#include "screens/Work.h"

namespace Ui {
class WorkScreen;
}
struct RoundState;
class QVBoxLayout;

class WorkScreen : public OutputScreen {
  public:
    explicit WorkScreen(const Work& work);
    ~WorkScreen() override;

    void Form_Load() override;

  protected:
    void end() override { leaveTo(QStringLiteral("メニュー")); }
    // For the options of one screen, between the choices and the buttons.
    QVBoxLayout* optionsLayout();
    // What one screen does besides: when a problem has been chosen, and after its work. What is read for a
    // choice is read before the screen changes.
    virtual void problemChosen(const std::optional<ProblemRound>& /*of*/) {}
    virtual void worked(const RoundSelection& /*chosen*/) {}

    WorkOptions options;

  private:
    // A button that goes over to the figures of the chosen problem.
    void offerFigures();
    void Combo1_Click();   // a problem: its round, its evaluators, whose results are there
    void Command7_Click(); // the work; a run-time error is shown under the screen's name
    void showState(const RoundState& state);
    void markEvaluators(const RoundState& state);
    void tellWhatIsAmiss(const RoundSelection& chosen, const RoundState& state);

    const Work& work_;
    std::unique_ptr<Ui::WorkScreen> ui_;
};
