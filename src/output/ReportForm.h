// What the calculation and report screens share: problem, evaluators, round, output target, progress.
#pragma once

#include <memory>

#include "core/Screen.h"
#include "output/PrintService.h"
#include "output/Progress.h"
#include "output/ReportSelection.h"

namespace Ui {
class ReportForm;
}
class QVBoxLayout;

// How one of the screens differs from the others.
struct ReportFormOptions {
    QString name;              // also caption and title of its message boxes
    QString actionControl;     // name of the button that does the work
    QString actionCaption;     // its caption
    bool hasEvaluators = true; // whether evaluators are chosen
    bool printsReport = true;  // whether there is an output target to choose
};

class ReportForm : public Screen {
  public:
    explicit ReportForm(const ReportFormOptions& options);
    ~ReportForm() override;

    void Form_Load() override;

  protected:
    void end() override { leaveTo(QStringLiteral("メニュー")); }
    // The work of the action button. A run-time error is shown under the screen's name.
    virtual void run(const ReportSelection& selection) = 0;

    // For the options of one screen, between the choices and the buttons.
    QVBoxLayout* optionsLayout();
    // Shows in a bar how far the work is and who is at work.
    Progress progress();

    PrintService print_;

  private:
    void Combo1_Click();
    void Command17_Click();
    void CommandAction_Click();
    void showProgressBar(bool shown);
    void showProgress(int done, int total, const QString& at);
    ReportSelection selection() const;

    ReportFormOptions options_;
    std::unique_ptr<Ui::ReportForm> ui_;
};
