#include "screens/WorkScreen.h"

#include <QStyle>

#include "core/Common.h"
#include "core/Messages.h"
#include "rounds/AnsweredGoals.h"
#include "rounds/RoundEntries.h"
#include "rounds/RoundState.h"
#include "ui_WorkScreen.h"
#include "widgets/ListMark.h"

using namespace Qt::StringLiterals;
using Common::DbConn;
using Common::refuse;

WorkScreen::WorkScreen(const Work& work)
    : OutputScreen(work.screen), work_(work), ui_(std::make_unique<Ui::WorkScreen>()) {
    ui_->setupUi(this);
    setWindowTitle(work.screen);
    ui_->Command7->setText(work.caption);
    ui_->Command7->setShortcut(Qt::ALT | Qt::Key_S); // after setText, which takes a shortcut away
    for (QWidget* widget : {static_cast<QWidget*>(ui_->Label2), static_cast<QWidget*>(ui_->List1),
                            static_cast<QWidget*>(ui_->Command1)})
        widget->setVisible(work.hasEvaluators);
    for (QWidget* widget : {static_cast<QWidget*>(ui_->Label4), static_cast<QWidget*>(ui_->Command17)})
        widget->setVisible(work.printsReport);
    ui_->device->setVisible(work.printsReport);
    setUpOutput(ui_->Command17, ui_->device, ui_->folder);
    setUpProgress(ui_->progress);
    if (work.offersFigures) offerFigures();

    onChoice(ui_->Combo1, [this] { Combo1_Click(); });
    onEvent(ui_->Command1, &QPushButton::clicked, [this] { ui_->List1->selectAll(); });
    onAction(ui_->Command7, work.screen, [this] { Command7_Click(); });
    onEvent(ui_->Command2, &QPushButton::clicked, [this] { end(); });
}

WorkScreen::~WorkScreen() = default;

void WorkScreen::offerFigures() {
    auto* Command3 = new QPushButton(u"図(&G)…"_s);
    Command3->setObjectName(u"Command3"_s);
    Command3->setMinimumSize(ui_->Command2->minimumSize());
    Command3->setToolTip(u"総合係数、意見の揃い方、感度、順位の安定を図にします"_s);
    ui_->buttons->insertWidget(ui_->buttons->indexOf(ui_->Command7), Command3);
    setTabOrder(ui_->Command7, Command3);
    onEvent(Command3, &QPushButton::clicked, [this] {
        Common::ProblemEntry = ui_->Combo1->currentText();
        leaveTo(u"図"_s);
    });
}

void WorkScreen::Form_Load() {
    Common::MsgTitle = windowTitle();
    addStatusLine(); // what the screens add to the form is there by now
    loadOutput();
    const QStringList problems = problemEntries(*DbConn);
    ui_->Combo1->addItems(problems);
    if (problems.isEmpty()) refuse(u"課題が存在しません。"_s);
    centre();
}

void WorkScreen::Combo1_Click() {
    const QString problemNo = entryNumber(ui_->Combo1->currentText());
    const QStringList evaluators = evaluatorEntries(*DbConn, problemNo);
    const QString round = currentRound(*DbConn, problemNo);
    const auto of = shownRound(*DbConn, problemNo, round);
    const auto state = of ? readRoundState(*of) : RoundState();
    ui_->Label5->setText(round);
    ui_->List1->clear();
    ui_->List1->addItems(evaluators);
    ui_->results->clear();
    if (of) showState(state);
    problemChosen(of);
}

// Whose results there are, in bold where not all are there or belong to the answers.
void WorkScreen::showState(const RoundState& state) {
    QFont font = ui_->results->font();
    font.setBold(!state.isComplete());
    ui_->results->setFont(font);
    ui_->results->setWholeText(state.line());
    markEvaluators(state);
}

// A symbol at each evaluator whose comparisons of the round are not all there, with a tool tip.
void WorkScreen::markEvaluators(const RoundState& state) {
    for (int row = 0; row < ui_->List1->count(); ++row) {
        auto* item = ui_->List1->item(row);
        const int count = state.evaluators.at(static_cast<std::size_t>(row)).goals; // in the list's order
        const bool isAll = count == state.goals;
        item->setIcon(isAll ? listMark(*ui_->List1, false)
                            : style()->standardIcon(count == 0 ? QStyle::SP_MessageBoxCritical
                                                               : QStyle::SP_MessageBoxWarning));
        item->setToolTip(
            isAll ? QString() : u"一対比較は %1 / %2 目的要因まで済んでいます"_s.arg(count).arg(state.goals));
    }
}

// A calculation takes what there is, also half of it.
void WorkScreen::tellWhatIsAmiss(const RoundSelection& chosen, const RoundState& state) {
    std::vector<qint32> numbers;
    for (const auto& evaluator : chosen.evaluators) numbers.push_back(evaluator.number);
    if (const auto notes = state.notesOf(numbers); !notes.isEmpty()) say(told() + notes, true);
}

void WorkScreen::Command7_Click() {
    // Whether the work succeeds or fails, the screen is ready for the next choice afterwards.
    const auto hideProgress = progressGuard();
    const auto chosen = chosenRound(ui_->Combo1, ui_->List1, ui_->Label5);
    if (!chosen) return;
    const auto count = chosen->evaluators.size();
    const bool accepted = makeDocuments(
        work_.hasEvaluators ? u"%1 名："_s.arg(count) : QString(),
        [&] { return work_.run(output_, *chosen, options, progress()); },
        work_.whenNothing.isEmpty() ? u"作成した書類はありません。"_s : work_.whenNothing.arg(count));
    if (!accepted) return goTo(listToMend(ui_->Combo1, ui_->List1));
    if (work_.use == RoundUse::Makes) {
        const auto state = readRoundState(*chosen);
        showState(state);
        tellWhatIsAmiss(*chosen, state);
    }
    worked(*chosen);
}

QVBoxLayout* WorkScreen::optionsLayout() {
    return ui_->options;
}
