#include "figures/FiguresScreen.h"

#include <QCoreApplication>

#include "core/Common.h"
#include "core/Messages.h"
#include "figures/FigureOutput.h"
#include "figures/Figures.h"
#include "figures/PrintFigures.h"
#include "rounds/RoundEntries.h"
#include "rounds/RoundState.h"
#include "ui_FiguresScreen.h"

using namespace Qt::StringLiterals;
using Common::DbConn;

namespace {

constexpr int runsBetweenPaints = 5;

void fill(QComboBox* combo, const QString& none, const QStringList& entries) {
    combo->clear();
    combo->addItem(none);
    combo->addItems(entries);
}

} // namespace

図::図() : OutputScreen(u"図"_s), ui_(std::make_unique<Ui::FiguresScreen>()) {
    ui_->setupUi(this);
    addStatusLine();
    setUpOutput(ui_->Command17, ui_->device, ui_->folder);
    setWindowTitle(name());
    ui_->Combo2->addItems({u"総合係数"_s, u"意見の揃い方"_s, u"感度"_s, u"順位の安定"_s});
    for (QComboBox* combo : {ui_->Combo2, ui_->Combo3, ui_->Combo4})
        onEvent(combo, &QComboBox::activated, [this] { showFigure(); });
    onAction(ui_->Command1, u"順位の安定の計算"_s, [this] { Command1_Click(); });
    onEvent(ui_->Command3, &QPushButton::clicked, [this] { stopped_ = true; });
    onAction(ui_->Command7, u"図の出力"_s, [this] { Command7_Click(); });
    onAction(ui_->Command4, u"図の保存"_s, [this] { savePictures(PictureType::Svg); });
    onAction(ui_->Command5, u"図の保存"_s, [this] { savePictures(PictureType::Png); });
    onEvent(ui_->Command2, &QPushButton::clicked, [this] { end(); });
}

図::~図() = default;

void 図::Form_Load() {
    Common::MsgTitle = windowTitle();
    loadOutput();
    ui_->Combo1->addItems(problemEntries(*DbConn));
    // The problem that was chosen on the screen from which the figures were asked for.
    ui_->Combo1->setCurrentIndex(
        Common::ProblemEntry.isEmpty() ? -1 : ui_->Combo1->findText(Common::ProblemEntry));
    setRunning(false);
    if (ui_->Combo1->currentIndex() >= 0)
        Combo1_Click();
    else
        showFigure();
    onChoice(ui_->Combo1, [this] { Combo1_Click(); }); // from the choice that the screen opens with
    centre();
}

void 図::end() {
    stopped_ = true;
    if (!running_) leaveTo(u"メニュー"_s);
}

void 図::Combo1_Click() {
    const QString problemNo = entryNumber(ui_->Combo1->currentText());
    const QString round = currentRound(*DbConn, problemNo);
    const ProblemRound chosen{*DbConn, Value(problemNo).toLong(), Value(round).toInteger()};
    auto results = readRoundResults(chosen);
    const auto state = readRoundState(chosen);
    results.foot = state.footLine(Sheet::columns);
    const auto earlier = earlierRounds(chosen);
    Common::ProblemEntry = ui_->Combo1->currentText();
    ui_->Label5->setText(round);
    showState(state);
    results_ = std::move(results);
    stability_.reset();
    QStringList evaluators;
    for (const auto& evaluator : results_->evaluators)
        evaluators << u"%1:%2"_s.arg(evaluator.number).arg(evaluator.name);
    fill(ui_->Combo3, u"（選ばない）"_s, evaluators);
    QStringList rounds;
    for (const qint16 number : earlier) rounds << QString::number(number);
    fill(ui_->Combo4, u"（比べない）"_s, rounds);
    if (!rounds.isEmpty()) ui_->Combo4->setCurrentIndex(1);
    runEvent([this] { showFigure(); }); // the problem is chosen, also when its figure cannot be drawn
}

void 図::showState(const RoundState& state) {
    QFont font = ui_->results->font();
    font.setBold(!state.isComplete());
    ui_->results->setFont(font);
    ui_->results->setText(state.line());
}

図::Figure 図::figure() const {
    return static_cast<Figure>(ui_->Combo2->currentIndex());
}

std::vector<FigureSheet> 図::drawnAgreement() const {
    if (ui_->Combo4->currentIndex() < 1) return drawAgreement(*results_, nullptr);
    const auto earlier =
        readRoundResults({*DbConn, results_->problemNo, Value(ui_->Combo4->currentText()).toInteger()});
    return drawAgreement(*results_, &earlier);
}

std::vector<FigureSheet> 図::drawn() const {
    const int chosen = ui_->Combo3->currentIndex() - 1;
    switch (figure()) {
        case Figure::Coefficients:
            return drawCoefficients(
                *results_, chosen < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(chosen)));
        case Figure::Agreement:
            return drawnAgreement();
        case Figure::Sensitivity:
            return drawSensitivity(*results_);
        case Figure::Stability:
            break;
    }
    return stability_ ? drawStability(*results_, *stability_) : std::vector<FigureSheet>();
}

void 図::showFigure() {
    // When drawing fails, nothing of the figure before stays beside the choices of this one.
    ui_->view->show(QString());
    showSheets({});
    ui_->Combo3->setEnabled(figure() == Figure::Coefficients);
    ui_->Combo4->setEnabled(figure() == Figure::Agreement);
    ui_->Command1->setEnabled(figure() == Figure::Stability && results_ && !results_->evaluators.empty());
    if (results_ && !results_->evaluators.empty()) showSheets(drawn());
    if (!sheets_.empty()) return;
    if (!results_)
        ui_->view->show(u"課題を選択してください。"_s);
    else if (results_->evaluators.empty())
        ui_->view->show(
            u"選択された課題、評価回数の評価結果が存在しません。\n先に評価計算を行ってください。"_s);
    else
        ui_->view->show(u"「計算」を押すと、比較値を %1 回動かして順位を調べます。"_s.arg(stabilityRuns));
}

void 図::showSheets(std::vector<FigureSheet> sheets) {
    sheets_ = std::move(sheets);
    for (QWidget* output : {ui_->Command7, ui_->Command4, ui_->Command5})
        output->setEnabled(!sheets_.empty());
    if (!sheets_.empty()) ui_->view->show(sheets_);
}

void 図::setRunning(bool running) {
    running_ = running;
    ui_->choices->setEnabled(!running);
    ui_->outputs->setEnabled(!running);
    ui_->progress->setVisible(running);
    ui_->Command3->setVisible(running);
}

bool 図::showRun(int done) {
    if (done % runsBetweenPaints != 0) return true;
    ui_->progress->setValue(done);
    // The work runs on this thread: let the bar be painted, and the stop button be pressed.
    QCoreApplication::processEvents();
    return !stopped_;
}

void 図::Command1_Click() {
    if (refuseStabilityOfOld(readRoundState({*DbConn, results_->problemNo, results_->round}))) return;
    const auto comparisons = readRoundComparisons(*DbConn, *results_);
    stopped_ = false;
    ui_->progress->setRange(0, stabilityRuns);
    ui_->progress->setValue(0);
    {
        setRunning(true);
        const auto finished = qScopeGuard([this] { setRunning(false); });
        ui_->Command3->setFocus();
        stability_ = rankStability(comparisons, stabilityRuns, [this](int done) { return showRun(done); });
    }
    if (stability_->runs < stabilityRuns) say(u"%1 回で中止しました。"_s.arg(stability_->runs));
    showFigure();
    goTo(ui_->Command1);
}

void 図::Command7_Click() {
    makeDocuments(u"%1 ページ："_s.arg(sheets_.size()), [this] {
        printFigures(output_, sheets_, results_->problem);
        return true;
    });
}

void 図::savePictures(PictureType type) {
    makeDocuments({}, [this, type] {
        saveFigures(output_, sheets_, results_->problem, type);
        return true;
    });
}
