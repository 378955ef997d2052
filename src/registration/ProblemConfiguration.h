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
    void Command1_Click(); // "登録"
    void Command2_Click(); // "変更"
    void Command3_Click(); // "表示"
    void Text1_DblClick(); // takes over the problem that was picked last

    bool problemCanBeConfigured();
    bool settingsAreNumbers();
    void addProblem();
    QString problemName() const;
    QString shownNumber() const;
    void refuseMissingProblem();

    std::unique_ptr<Ui::ProblemConfiguration> ui_;
};
