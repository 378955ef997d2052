#include "output/ReportForm.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStyle>

#include "core/AnsweredGoals.h"
#include "output/MadeFiles.h"
#include "output/ReportSelection.h"
#include "output/RoundResults.h"
#include "platform/ListMark.h"
#include "platform/TextFile.h"
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
    ui_->results->setVisible(work.ofWholeRound);
    for (QWidget* widget : {static_cast<QWidget*>(ui_->Label4), static_cast<QWidget*>(ui_->Command17)})
        widget->setVisible(work.printsReport);
    for (QWidget* widget : std::initializer_list<QWidget*>{ui_->progress, ui_->progressText}) {
        QSizePolicy policy = widget->sizePolicy();
        policy.setRetainSizeWhenHidden(true); // the window keeps its size when the bar comes and goes
        widget->setSizePolicy(policy);
    }
    showProgressBar(false);
    ui_->folder->hide();
    ui_->device->setVisible(work.printsReport);

    onChoice(ui_->Combo1, [this] { Combo1_Click(); });
    onEvent(ui_->Command1, &QPushButton::clicked, [this] { ui_->List1->selectAll(); });
    onEvent(ui_->Command17, &QPushButton::clicked, [this] { Command17_Click(); });
    onAction(ui_->Command7, work.screen, [this] { Command7_Click(); });
    onEvent(ui_->Command2, &QPushButton::clicked, [this] { end(); });
    onEvent(ui_->folder, &QPushButton::clicked, [this] {
        if (!showOnDesktop(folder_))
            say(u"このコンピューターにはフォルダーを表示するプログラムがありません：%1"_s.arg(folder_), true);
    });
}

ReportForm::~ReportForm() = default;

void ReportForm::offerFigures() {
    auto* Command3 = new QPushButton(u"図(&G)…"_s);
    Command3->setObjectName(u"Command3"_s);
    Command3->setMinimumSize(ui_->Command2->minimumSize());
    Command3->setToolTip(u"総合係数、意見の揃い方、感度、順位の安定を図にします"_s);
    ui_->buttons->insertWidget(ui_->buttons->indexOf(ui_->Command7), Command3);
    setTabOrder(ui_->Command7, Command3);
    onEvent(Command3, &QPushButton::clicked, [this] {
        ProblemEntry = ui_->Combo1->currentText();
        leaveTo(u"図"_s);
    });
}

void ReportForm::Form_Load() {
    MsgTitle = windowTitle();
    print_.load(AppDir);
    const QStringList problems = problemEntries(*DbConn);
    ui_->Combo1->addItems(problems);
    if (problems.isEmpty()) refuse(u"課題が存在しません。"_s);
    showDevice();
    print_.FileExported = [this](const QString& path) { exported_ = nativePath(path); };
    centre();
}

void ReportForm::Combo1_Click() {
    const QString problemNo = entryNumber(ui_->Combo1->currentText());
    const QStringList evaluators = evaluatorEntries(*DbConn, problemNo);
    const QString round = currentRound(*DbConn, problemNo);
    const QString results = work_.ofWholeRound
                                ? resultsLine({*DbConn, Value(problemNo).toLong(), Value(round).toInteger()})
                                : QString();
    ui_->Label5->setText(round);
    ui_->List1->clear();
    ui_->List1->addItems(evaluators);
    ui_->results->setWholeText(results);
    markEvaluators();
    problemChosen();
}

ProblemRound ReportForm::problemRound() const {
    return {*DbConn, Value(entryNumber(ui_->Combo1->currentText())).toLong(),
            Value(ui_->Label5->text()).toInteger()};
}

// A symbol at each evaluator whose comparisons of the round are not all there, with a tool tip.
void ReportForm::markEvaluators() {
    if (ui_->List1->count() == 0) return;
    const AnsweredGoals answered = readAnsweredGoals(problemRound());
    const auto all = static_cast<int>(answered.goals.size());
    for (int row = 0; row < ui_->List1->count(); ++row) {
        auto* item = ui_->List1->item(row);
        const int count = answered.count(Value(entryNumber(item->text())).toLong());
        item->setIcon(count == all ? listMark(*ui_->List1, false)
                                   : style()->standardIcon(count == 0 ? QStyle::SP_MessageBoxCritical
                                                                      : QStyle::SP_MessageBoxWarning));
        item->setToolTip(count == all ? QString()
                                      : u"一対比較は %1 / %2 目的要因まで済んでいます"_s.arg(count).arg(all));
    }
}

void ReportForm::Command17_Click() {
    print_.ToggleOutputTarget();
    showDevice();
}

// The target, and the device that it comes to at this moment.
void ReportForm::showDevice() {
    ui_->Command17->setText(print_.OutputTarget);
    if (!work_.printsReport) return;
    const QString device = print_.ReportDevice();
    ui_->device->setWholeText(device.isEmpty() ? u"プリンタがありません"_s : u"→ "_s + device);
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
    ui_->folder->hide();
    exported_.clear();
    const MadeFiles made;
    const int before = print_.Documents;
    const auto chosen = checkedSelection(*DbConn, chosenEntries(), work_.hasEvaluators);
    bool accepted = false;
    try {
        accepted =
            chosen && work_.run(print_, *chosen, options, [this](int done, int total, const QString& at) {
                showProgress(done, total, at);
            });
    } catch (...) {
        made.show(); // what was made before the error
        throw;
    }
    if (!accepted) return goTo(refusedList());
    worked(*chosen);
    showMade(*chosen, made, print_.Documents - before);
}

// What was made and where it is.
void ReportForm::showMade(const RoundSelection& chosen, const MadeFiles& made, int documents) {
    QString line = work_.hasEvaluators ? u"%1 名："_s.arg(chosen.evaluators.size()) : QString();
    if (!exported_.isEmpty())
        line += u"%1 を作成しました。"_s.arg(QFileInfo(exported_).fileName());
    else if (!made.paths().isEmpty())
        line += u"PDF %1 件を作成しました。"_s.arg(made.paths().size());
    else if (documents > 0)
        line += u"%1 件を「%2」に送りました。"_s.arg(documents).arg(print_.printer().DeviceName());
    else
        line += u"終わりました。"_s;
    const bool shown = made.show();
    if (!shown)
        line += u"%1を表示するプログラムがありません。"_s.arg(made.paths().size() == 1 ? u"PDF "_s
                                                                                       : u"フォルダー"_s);
    const QString file = exported_.isEmpty() ? made.paths().value(0) : exported_;
    if (!file.isEmpty()) {
        folder_ = QFileInfo(file).path();
        line += u"（%1）"_s.arg(folder_);
        ui_->folder->show();
    }
    say(line, !shown);
}

QVBoxLayout* ReportForm::optionsLayout() {
    return ui_->options;
}

// The list in which to choose something else.
QWidget* ReportForm::refusedList() {
    if (ui_->Combo1->currentIndex() < 0 || !work_.hasEvaluators) return ui_->Combo1;
    return ui_->List1;
}

void ReportForm::showProgressBar(bool shown) {
    ui_->progress->setVisible(shown);
    ui_->progressText->setVisible(shown);
}

void ReportForm::showProgress(int done, int total, const QString& at) {
    ui_->progress->setMaximum(total);
    ui_->progress->setValue(done);
    ui_->progressText->setWholeText(at);
    showProgressBar(true);
    // The work runs on this thread: let the bar be painted, and take no clicks meanwhile.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
