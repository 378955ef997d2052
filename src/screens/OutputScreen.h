// What the screens share that make documents and files: the output target and its device, the progress of the
// work, what it made and where that is.
#pragma once

#include <QScopeGuard>
#include <optional>

#include "core/Screen.h"
#include "printing/Output.h"
#include "rounds/RoundSelection.h"
#include "screens/Progress.h"

class MadeFiles;
class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;

class OutputScreen : public Screen {
  protected:
    explicit OutputScreen(const QString& name) : Screen(name), output_(Printer::ofProgram()) {}

    // The form's controls: the button "印刷" or "PDF"; what that comes to at this moment, which is not looked
    // up for a hidden label; the button that opens where the files are that were made last.
    void setUpOutput(QPushButton* target, ElidedLabel* device, QPushButton* folder);
    void setUpProgress(QProgressBar* bar);
    // What is chosen in the lists of problems and evaluators, with the round that is shown. Nothing when the
    // choice is refused; then, and when it is an error, the list to choose something else in has the focus.
    static std::optional<RoundSelection> chosenRound(QComboBox* problems, QListWidget* evaluators,
                                                     const QLabel* round);
    // The list in which to choose something else; a screen without evaluators hides theirs.
    static QWidget* listToMend(QComboBox* problems, QListWidget* evaluators);
    // The first state: "印刷".
    void loadOutput();

    // Runs a work that is false when it was refused. A single document opens in its viewer, several open
    // their folder, and the status line says, behind `subject`, what was made and where; `nothing` when
    // nothing was. What was made before an error is shown alike.
    bool makeDocuments(const QString& subject, const std::function<bool()>& work,
                       const QString& nothing = {});
    // Shows how far a work is, until the guard's end.
    Progress progress();
    auto progressGuard() {
        return qScopeGuard([this] { endProgress(); });
    }

    Output output_;

  private:
    void showTarget();
    void openFolder();
    bool showMade(const MadeFiles& documents, int printed);
    void endProgress();

    QPushButton* target_ = nullptr;
    ElidedLabel* device_ = nullptr;
    QPushButton* openFolder_ = nullptr;
    QProgressBar* progressBar_ = nullptr;
    QStringList files_; // that the work under way has written besides documents
    QString folder_;
};
