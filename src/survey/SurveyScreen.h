// Questionnaires: gives them out on paper and as files, and reads the answers in.
#pragma once

#include <memory>

#include "rounds/RoundSelection.h"
#include "screens/OutputScreen.h"
#include "screens/Work.h"
#include "survey/CheckedAnswers.h"

namespace Ui {
class SurveyScreen;
}

class 調査票 : public OutputScreen {
  public:
    調査票();
    ~調査票() override;

    void Form_Load() override;

    // Reads the files and shows what they say; nothing is stored yet. They are added to
    // those shown that have not been stored; one that was read before is read anew.
    void readFiles(const QStringList& paths);

  private:
    void end() override { leaveTo(QStringLiteral("比較者設定")); }
    void Combo1_Click();
    void Command6_Click(); // choose files
    void Command7_Click(); // store

    // What is to be answered, for the chosen evaluators: on paper, as spreadsheets, as texts.
    void make(const Work& work);
    std::optional<RoundSelection> problemRound();
    void hold(const Questionnaire& questionnaire, QList<Answers> all);
    void takeOff(); // Delete: the current file
    void showFiles();
    void showRow(int row);
    void showDetails();
    QList<qsizetype> checkedFiles() const;
    QStringList pathsLeftOut() const;
    bool mayReplace(const QList<qsizetype>& files);

    std::unique_ptr<Ui::SurveyScreen> ui_;
    QList<Answers> answers_;      // of the files shown
    QList<CheckedAnswers> files_; // parallel to the rows of the table
    QStringList stored_;          // paths of those that have been stored
};
