// What the calculation and report screens share: problem, evaluators, round, output target, progress.
#pragma once

#include <memory>

#include "core/Screen.h"
#include "output/PrintService.h"
#include "output/ReportWork.h"
#include "output/RoundSelection.h"

namespace Ui {
class ReportForm;
}
class MadeFiles;
class QVBoxLayout;

class ReportForm : public Screen {
  public:
    explicit ReportForm(const ReportWork& work);
    ~ReportForm() override;

    void Form_Load() override;

  protected:
    void end() override { leaveTo(QStringLiteral("メニュー")); }
    // For the options of one screen, between the choices and the buttons.
    QVBoxLayout* optionsLayout();
    // A button that goes over to the figures of the chosen problem.
    void offerFigures();
    // What one screen does besides: when a problem has been chosen, and after its work.
    virtual void problemChosen() {}
    virtual void worked(const RoundSelection& /*chosen*/) {}

    ReportOptions options;

  private:
    void Combo1_Click();    // a problem: its round, its evaluators, whose results are there
    void Command17_Click(); // the output target, in turn "印刷" and "PDF"
    void Command7_Click();  // the work; a run-time error is shown under the screen's name
    ProblemRound problemRound() const;
    void markEvaluators();
    void showDevice();
    void showMade(const RoundSelection& chosen, const MadeFiles& made, int documents);
    QWidget* refusedList();
    void showProgressBar(bool shown);
    void showProgress(int done, int total, const QString& at);
    ChosenEntries chosenEntries() const;

    const ReportWork& work_;
    PrintService print_;
    QString folder_;   // of the files that the last work made
    QString exported_; // the file that the last work wrote besides documents
    std::unique_ptr<Ui::ReportForm> ui_;
};
