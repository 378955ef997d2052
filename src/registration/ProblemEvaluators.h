// Assignment of evaluators to a problem.
#pragma once

#include <QStringList>
#include <memory>
#include <vector>

#include "core/NumberedNames.h"
#include "registration/RegistrationScreen.h"

namespace Ui {
class ProblemEvaluators;
}

class 課題評価者登録 : public RegistrationScreen {
  public:
    課題評価者登録();
    ~課題評価者登録() override;

    void Form_Load() override;

  private:
    void Combo1_Click();   // a problem: all evaluators, and those assigned to it
    void Command1_Click(); // "登録": replaces the assignment
    void Command2_Click(); // "追加"
    void Command3_Click(); // "削除"

    // Number of the chosen problem.
    const QString& problem() const;
    // Numbers of the evaluators selected among all, in the order of the list. The removal goes by this list
    // too: one selection serves all three actions.
    QStringList selectedEvaluators() const;
    bool isChosen(const QString& noSelection);
    bool isNew(const QStringList& evaluators);
    void assign(const QStringList& evaluators);
    std::vector<Common::NumberedName> assignedEvaluators() const;
    void finishChange(const QString& done);

    std::unique_ptr<Ui::ProblemEvaluators> ui_;
    // Parallel to the entries of the two lists.
    std::vector<Common::NumberedName> problems_;
    std::vector<Common::NumberedName> evaluators_;
};
