// Evaluator registration.
#pragma once

#include <memory>

#include "registration/RegistrationScreen.h"

namespace Ui {
class EvaluatorRegistration;
}

class 評価者登録 : public RegistrationScreen {
  public:
    評価者登録();
    ~評価者登録() override;

    // Sets EvaluatorLoadFailed to 1 when the evaluators could not be read: whoever shows the screen then
    // closes it again.
    void Form_Load() override;

  private:
    void Command1_Click(); // "登録"
    void Command2_Click(); // "変更"
    void Command3_Click(); // "表示"

    void addEvaluator(qint32 number);
    bool isFreeNumber(qint32 number);
    void refuseMissingEvaluator();

    std::unique_ptr<Ui::EvaluatorRegistration> ui_;
};
