#include "output/ReportForm.h"

#include <QCoreApplication>

#include "output/ReportSelection.h"
#include "ui_ReportForm.h"

using namespace Qt::StringLiterals;
using namespace Common;

ReportForm::ReportForm(const ReportWork& work)
    : Screen(work.screen), work_(work), print_(Printer), ui_(std::make_unique<Ui::ReportForm>()) {
    ui_->setupUi(this);
    addStatusLine();
    setWindowTitle(work.screen);
    ui_->Command7->setText(work.caption);
    ui_->Command7->setShortcut(Qt::ALT | Qt::Key_S); // after setText, which takes a shortcut away
    for (QWidget* widget : {static_cast<QWidget*>(ui_->Label2), static_cast<QWidget*>(ui_->List1),
                            static_cast<QWidget*>(ui_->Command1)})
        widget->setVisible(work.hasEvaluators);
    for (QWidget* widget : {static_cast<QWidget*>(ui_->Label4), static_cast<QWidget*>(ui_->Command17)})
        widget->setVisible(work.printsReport);
    for (QWidget* widget : std::initializer_list<QWidget*>{ui_->progress, ui_->progressText}) {
        QSizePolicy policy = widget->sizePolicy();
        policy.setRetainSizeWhenHidden(true); // the window keeps its size when the bar comes and goes
        widget->setSizePolicy(policy);
    }
    showProgressBar(false);

    onEvent(ui_->Combo1, &QComboBox::activated, [this] { Combo1_Click(); });
    onEvent(ui_->Command1, &QPushButton::clicked, [this] { ui_->List1->selectAll(); });
    onEvent(ui_->Command17, &QPushButton::clicked, [this] { Command17_Click(); });
    onAction(ui_->Command7, work.screen, [this] { Command7_Click(); });
    onEvent(ui_->Command2, &QPushButton::clicked, [this] { end(); });
}

ReportForm::~ReportForm() = default;

void ReportForm::Form_Load() {
    MsgTitle = windowTitle();
    print_.load(AppDir);
    const QStringList problems = problemEntries(*DbConn);
    ui_->Combo1->addItems(problems);
    if (problems.isEmpty()) refuse(u"課題が存在しません。"_s);
    ui_->Command17->setText(print_.OutputTarget);
    centre();
}

void ReportForm::Combo1_Click() {
    const QString problemNo = entryNumber(ui_->Combo1->currentText());
    ui_->List1->clear();
    ui_->List1->addItems(evaluatorEntries(*DbConn, problemNo));
    ui_->Label5->setText(currentRound(*DbConn, problemNo));
}

void ReportForm::Command17_Click() {
    print_.ToggleOutputTarget();
    ui_->Command17->setText(print_.OutputTarget);
}

ChosenEntries ReportForm::chosenEntries() const {
    ChosenEntries chosen{ui_->Combo1->currentText(), {}, ui_->Label5->text()};
    for (int row = 0; row < ui_->List1->count(); ++row)
        if (ui_->List1->item(row)->isSelected()) chosen.evaluators << ui_->List1->item(row)->text();
    return chosen;
}

void ReportForm::Command7_Click() {
    // Whether the work succeeds or fails, the screen is ready for the next choice afterwards.
    const auto hideProgress = qScopeGuard([this] { showProgressBar(false); });
    const auto chosen = checkedSelection(*DbConn, chosenEntries(), work_.hasEvaluators);
    if (!chosen) return;
    work_.run(print_, *chosen, options,
              [this](int done, int total, const QString& at) { showProgress(done, total, at); });
}

QVBoxLayout* ReportForm::optionsLayout() {
    return ui_->options;
}

void ReportForm::showProgressBar(bool shown) {
    ui_->progress->setVisible(shown);
    ui_->progressText->setVisible(shown);
}

void ReportForm::showProgress(int done, int total, const QString& at) {
    ui_->progress->setMaximum(total);
    ui_->progress->setValue(done);
    ui_->progressText->setText(at);
    showProgressBar(true);
    // The work runs on this thread: let the bar be painted, and take no clicks meanwhile.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
