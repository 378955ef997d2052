// Problem configuration: kind, levels, branches and rounds of a problem.
#pragma once

#include <memory>

#include "registration/RegistrationScreen.h"

namespace Ui {
class ProblemConfiguration;
}

class 課題構成登録 : public RegistrationScreen {
  public:
    課題構成登録();
    ~課題構成登録() override;

    void Form_Load() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Text1_DblClick();

    bool problemCanBeConfigured();
    bool settingsAreNumbers();
    void addProblem();
    QString problemName() const;
    QString shownNumber() const;
    void refuseMissingProblem();

    std::unique_ptr<Ui::ProblemConfiguration> ui_;
};
