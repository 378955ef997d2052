// Factor registration and problem registration: a problem is a factor of class 0.
#pragma once

#include <memory>

#include "registration/RegistrationScreen.h"

namespace Ui {
class FactorRegistration;
}

// What the two screens differ in.
struct FactorScreenKind {
    QStringView name;
    QStringView numberLabel;
    QStringView list;
    QStringView classHint;
    bool registersProblems; // new factors must be of class 0
};

class FactorRegistration : public RegistrationScreen {
  public:
    explicit FactorRegistration(const FactorScreenKind& kind);
    ~FactorRegistration() override;

    void Form_Load() override;

  private:
    void Command1_Click(); // "登録"
    void Command2_Click(); // "変更"
    void Command3_Click(); // "表示"

    bool canRegister();
    void addFactor(qint16 number);
    // Each tells when it is not so.
    bool isFreeNumber(qint16 number);
    bool factorExists();
    void refuseMissingFactor();

    const FactorScreenKind& kind_;
    std::unique_ptr<Ui::FactorRegistration> ui_;
};

// Factor registration.
class 要因登録 : public FactorRegistration {
  public:
    要因登録();
};

// Problem registration.
class 課題登録 : public FactorRegistration {
  public:
    課題登録();
};
