#include "comparison/ComparisonGrid.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QScreen>
#include <QStyledItemDelegate>
#include <algorithm>

#include "comparison/ComparisonSession.h"
#include "comparison/StoredComparisons.h"
#include "core/Common.h"
#include "core/Messages.h"
#include "database/Recordset.h"
#include "judgement/AnswerCheck.h"
#include "judgement/ComparisonScale.h"
#include "judgement/Limits.h"
#include "judgement/PairOrder.h"
#include "text/ItemMark.h"
#include "text/Numbers.h"
#include "text/TextConversion.h"
#include "ui_ComparisonGrid.h"
#include "widgets/ElidedLabel.h"
#include "widgets/ListMark.h"

using namespace Qt::StringLiterals;
using Common::confirmDiscard;
using Common::DbConn;

namespace {

constexpr int gridSize = mostChildren + 1; // the fixed row and the items
constexpr double cellWidth = 3;            // in heights of a line of text
constexpr double rowHeight = 1.6;
constexpr int listMargin = 16; // pixels beside the entries of the chooser's list

// The words of the odd steps of the scale, "1 同じくらい重要　3 やや重要 …", in a line that the window has
// room for at its first size; the longer word for quality stands at its end alone.
QString scaleLegend(Aspect aspect) {
    QString legend;
    for (int position = equalPosition; position >= 0; position -= 2)
        legend += scaleText(position) + u' ' +
                  (aspect == Aspect::Importance ? scaleWords(position)
                                                : scaleWords(position, aspect).remove(aspectWord(aspect))) +
                  u"　"_s;
    return legend + u"（1/3 は列が"_s + scaleWords(nearestPosition(3), aspect) + u"）"_s;
}

// Children of the goal factor that has the most.
int mostSiblings(qint32 problemNo) {
    return readNumber(
        *DbConn,
        u"SELECT coalesce(max(children),0) AS most FROM (SELECT count(*) AS children FROM 要因構成 "
        "WHERE 課題番号 = ? GROUP BY 親要因番号)",
        problemNo);
}

// The text that a key types, without those that are commands.
QString typedText(const QKeyEvent& key) {
    const bool isCommand = key.modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier);
    return isCommand ? QString() : key.text();
}

// The entries of the chooser's list with what each means: the list may lie over the sentence under the grid.
class ScaleEntries : public QStyledItemDelegate {
  public:
    ScaleEntries(QObject* parent, std::function<QString(int position)> meaning)
        : QStyledItemDelegate(parent), meaning_(std::move(meaning)) {}

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text += u"　"_s + meaning_(index.row());
    }

  private:
    std::function<QString(int position)> meaning_;
};

} // namespace

比較値設定::比較値設定() : Screen(u"比較値設定"_s), ui_(std::make_unique<Ui::ComparisonGrid>()) {
    ui_->setupUi(this);
    addStatusLine();
    auto* grid = ui_->MSFlexGrid1;
    grid->setCellAlignment(Qt::AlignCenter);
    grid->setSize(gridSize, gridSize);
    for (int row = 1; row < gridSize; ++row)
        for (int column = 1; column <= row; ++column) grid->setClosed(row, column);
    grid->horizontalHeader()->setDefaultSectionSize(static_cast<int>(cellWidth * fontMetrics().height()));
    grid->verticalHeader()->setDefaultSectionSize(static_cast<int>(rowHeight * fontMetrics().height()));
    grid->installEventFilter(this);
    ui_->CmbCell->setParent(grid->viewport());
    ui_->CmbCell->setItemDelegate(new ScaleEntries(ui_->CmbCell, [this](int position) {
        const auto [row, column] = keyboard_.current();
        return entry().isPair({row, column})
                   ? comparisonMeaning(itemMark(row), itemMark(column), position, aspect())
                   : QString();
    }));
    ui_->CmbCell->view()->installEventFilter(this);
    ui_->CmbCell->view()->window()->installEventFilter(this);
    onChoice(ui_->Combo1, [this] { Combo1_Click(); });
    onAction(ui_->Command1, u"評価開始"_s, [this] { Command1_Click(); });
    onAction(ui_->Command2, u"評価終了"_s, [this] { Command2_Click(); });
    onEvent(ui_->Command3, &QPushButton::clicked, [this] { Command3_Click(); });
    onAction(ui_->Command4, u"評価開始"_s, [this] { Command4_Click(); });
    onAction(ui_->Command5, u"登録済の値を入れる"_s, [this] { Command5_Click(); });
    onEvent(ui_->CmbCell, &QComboBox::activated, [this] { CmbCell_Click(ui_->CmbCell->currentIndex()); });
    connect(grid, &QTableWidget::cellClicked, this,
            [this](int row, int column) { MSFlexGrid1_Click(row + 1, column + 1); });
    connect(grid, &QTableWidget::currentCellChanged, this, [this] {
        keyboard_.goTo({ui_->MSFlexGrid1->row(), ui_->MSFlexGrid1->column()});
        showSentence();
    });
    connect(ui_->CmbCell->view()->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { showSentence(); });
}

比較値設定::~比較値設定() = default;

void 比較値設定::Form_Load() {
    Common::MsgTitle = windowTitle();
    for (int position = 0; position < scalePositions; ++position) ui_->CmbCell->addItem(scaleText(position));
    ui_->CmbCell->hide();
    ui_->Label2->setWholeText(Common::CmpProblemName);
    ui_->Label8->setWholeText(scaleLegend(Aspect::Importance));
    ui_->Label9->setWholeText(u"評価者 "_s + Common::CmpEvaluatorName);
    ui_->Label10->setText(u"%1 回目　　%2"_s.arg(Common::CmpRound).arg(Common::CmpDate));
    goals_ = readGoals(*DbConn, Common::CmpProblemNo);
    for (const auto& goal : goals_) {
        ui_->Combo1->addItem(formatNumber(goal.number, u"0000"_s) + u' ' + joinedLines(goal.name));
        ui_->Combo1->setItemData(ui_->Combo1->count() - 1, plainToolTip(goal.name), Qt::ToolTipRole);
    }
    answered_ = readAnsweredGoals(session());
    showStored();
    ui_->MSFlexGrid1->setText(0, 0, u"   比較元要因／比較先要因"_s);
    const int largest = mostSiblings(Common::CmpProblemNo) + 1;
    ui_->MSFlexGrid1->showOnly(largest, largest);
    ui_->MSFlexGrid1->claimNeededSize();
    centre();
    clearGrid();
    readAspects();
}

// Without the choices that users have written down the grid can be filled all the same.
void 比較値設定::readAspects() {
    try {
        aspects_ = readGoalAspects(*DbConn, Common::CmpProblemNo, Common::AppDir + u"\\file"_s);
    } catch (const RuntimeError& error) {
        say(joinedLines(error.description()), true);
    }
}

EvaluatorRound 比較値設定::session() const {
    return {*DbConn, Common::CmpProblemNo, Common::CmpEvaluatorNo, Common::CmpRound};
}

void 比較値設定::Combo1_Click() {
    if (!goalNo_ || goals_.at(static_cast<std::size_t>(ui_->Combo1->currentIndex())).number == *goalNo_)
        return;
    if (!mayDiscardValues()) return showGoal();
    clearGrid();
    askForStart();
}

void 比較値設定::Command1_Click() {
    if (!mayDiscardValues()) return showGoal();
    startGoal();
}

void 比較値設定::Command4_Click() {
    const auto next = nextOpenGoal();
    if (!next) return say(u"すべての目的要因が登録されています。"_s);
    if (!mayDiscardValues()) return;
    ui_->Combo1->setCurrentIndex(*next);
    startGoal();
}

void 比較値設定::Command5_Click() {
    const auto earlier = EarlierRounds(session()).of(*goalNo_, items());
    if (!earlier) return say(u"この目的要因には、この回にも前の回にも登録済の値がありません。"_s);
    if (!mayDiscardValues()) return;
    hideChooser();
    keyboard_.takeEarlier(earlier->positions, earlier->round == Common::CmpRound);
    for (const auto& [row, column] : pairsOf(entry().items())) showCell({row + 1, column + 1});
    goTo(entry().nextOpen().value_or(PairCell{1, 2}));
    ui_->MSFlexGrid1->setFocus();
    showState();
    sayTaken(*earlier);
}

// Whose values stand in the grid now, and which of them do not.
void 比較値設定::sayTaken(const EarlierAnswers& earlier) {
    QString text = earlier.round == Common::CmpRound
                       ? u"この回に登録した値を %1 組入れました。"_s.arg(earlier.count())
                       : u"この回にはまだありません。前の回（%1 回目）の値を %2 組入れました。"_s.arg(
                             QString::number(earlier.round), QString::number(earlier.count()));
    if (earlier.dropped > 0) text += u"いまの構成にない要因の %1 組は除きました。"_s.arg(earlier.dropped);
    if (earlier.offScale > 0)
        text += u"1/9 〜 9 の目盛りにない値の %1 組は空のままです。"_s.arg(earlier.offScale);
    say(text, earlier.dropped > 0 || earlier.offScale > 0);
}

void 比較値設定::startGoal() {
    clearGrid();
    const int chosen = ui_->Combo1->currentIndex();
    if (chosen < 0) return refuseWithoutGoal();
    const auto goalNo = goals_.at(static_cast<std::size_t>(chosen)).number;
    auto children = readGoalChildren(*DbConn, Common::CmpProblemNo, goalNo);
    const int n = static_cast<int>(children.size());
    for (int item = 1; item <= n; ++item) showChild(item, children[static_cast<std::size_t>(item - 1)]);
    goalNo_ = goalNo; // only a goal whose children are all shown can be saved
    children_ = std::move(children);
    keyboard_ = PairKeyboard(n);
    ui_->Label8->setWholeText(scaleLegend(aspect()));
    ui_->MSFlexGrid1->showOnly(n + 1, n + 1);
    fitWindow();
    goTo({1, 2});
    ui_->MSFlexGrid1->setFocus();
    showState();
}

void 比較値設定::refuseWithoutGoal() {
    refuseAt(ui_->Combo1, u"目的要因が選択されてません、目的要因を選択してください。"_s);
}

// The goal factor in the list is chosen, and its grid is not there yet.
void 比較値設定::askForStart() {
    say(u"評価開始(S) を押すと、比較値を入力できます。"_s);
}

// What was typed and not saved must not vanish by a slip of the hand.
bool 比較値設定::mayDiscardValues() {
    return !entry().isUnsaved() || confirmDiscard(u"保存されていない比較値があります。破棄しますか ？"_s);
}

// The list shows the goal factor whose grid stands below.
void 比較値設定::showGoal() {
    const auto goal = std::ranges::find(goals_, goalNo_, &Factor::number);
    if (goal != goals_.end()) ui_->Combo1->setCurrentIndex(static_cast<int>(goal - goals_.begin()));
}

void 比較値設定::clearGrid() {
    hideChooser();
    keyboard_ = PairKeyboard();
    children_.clear();
    goalNo_.reset();
    ui_->MSFlexGrid1->clearTexts();
    ui_->MSFlexGrid1->setText(0, 0, u"   比較元要因／比較先要因"_s);
    ui_->MSFlexGrid1->showOnly(1, 1);
    showState();
}

void 比較値設定::showChild(int item, const Factor& child) {
    auto* grid = ui_->MSFlexGrid1;
    grid->setText(0, item, u"   "_s + itemMark(item));
    grid->setHint(0, item, itemMark(item) + child.name);
    grid->setText(item, 0, itemMark(item) + formatNumber(child.number, u"0000"_s) + child.name);
    grid->setText(item, item, u"   －"_s);
}

// As large as the grid needs; the window never shrinks under the user's hand, and stays on the screen.
void 比較値設定::fitWindow() {
    ui_->MSFlexGrid1->claimNeededSize();
    fitToScreen(size().expandedTo(sizeHint()));
    const QRect free = screen()->availableGeometry();
    const QPoint lowest = free.bottomRight() - QPoint(width(), height()) - (geometry().topLeft() - pos());
    move(std::clamp(x(), free.left(), std::max(free.left(), lowest.x())),
         std::clamp(y(), free.top(), std::max(free.top(), lowest.y())));
}

void 比較値設定::goTo(PairCell cell) {
    keyboard_.goTo(cell);
    ui_->MSFlexGrid1->setCurrent(cell.row, cell.column);
    ui_->MSFlexGrid1->showCurrent();
}

void 比較値設定::MSFlexGrid1_Click(int row, int column) {
    hideChooser();
    keyboard_.dropHalfTyped(); // what is typed next belongs to the pair whose list opens
    if (!entry().isPair({row, column})) return;
    auto* chooser = ui_->CmbCell;
    ui_->MSFlexGrid1->showCurrent();
    chooser->setGeometry(ui_->MSFlexGrid1->cellRect(row, column));
    chooser->setCurrentIndex(chooser->findText(ui_->MSFlexGrid1->text(row, column)));
    chooser->show();
    chooser->setFocus();
    chooser->view()->setMinimumWidth(chooser->view()->sizeHintForColumn(0) + listMargin);
    chooser->showPopup();
    // Without a value the list opens in its middle: as far from 9 as from 1/9.
    if (chooser->currentIndex() < 0)
        chooser->view()->setCurrentIndex(chooser->model()->index(equalPosition, chooser->modelColumn()));
}

void 比較値設定::CmbCell_Click(int position) {
    hideChooser();
    ui_->MSFlexGrid1->setFocus();
    if (position >= 0) follow([&] { keyboard_.choose(position); });
}

void 比較値設定::follow(const std::function<void()>& rules) {
    const PairCell before = keyboard_.current();
    rules();
    for (const PairCell cell : {before, keyboard_.current()})
        if (entry().isPair(cell)) showCell(cell);
    goTo(keyboard_.current());
    // The grid has gone on to the next pair; the status line keeps what was entered.
    if (const auto completed = keyboard_.takeCompleted())
        sayOf(namesOf(*completed),
              [position = entry().position(*completed).value(), by = aspect()](const QStringList& names) {
                  return comparisonSentence(names[0], names[1], position, by);
              });
    showState();
}

void 比較値設定::showCell(PairCell cell) {
    const auto position = entry().position(cell);
    auto* grid = ui_->MSFlexGrid1;
    grid->setText(cell.row, cell.column, position ? scaleText(*position) : QString());
    grid->setText(cell.column, cell.row, position ? scaleText(mirrorPosition(*position)) : QString());
    grid->setMarked(cell.row, cell.column,
                    entry().isEarlier(cell) ? scaleText(*position) + u"（前回のまま）"_s : QString());
}

void 比較値設定::Command2_Click() {
    if (!goalNo_) {
        refuseWithoutGoal();
        if (ui_->Combo1->currentIndex() < 0) return;
        ui_->Command1->setFocus();
        return askForStart();
    }
    if (const auto open = entry().nextOpen()) {
        refuseAt(ui_->MSFlexGrid1, u"比較値の未設定があります、全てを設定してください"_s);
        return goTo(*open);
    }
    if (keyboard_.isHalfTyped()) {
        ui_->MSFlexGrid1->setFocus();
        return say(
            u"打ちかけの値「1/ …」があります。2 〜 9 を続けて打つか、Delete キーで取り消してください。"_s,
            true);
    }
    saveComparisons(session(), *goalNo_, Common::CmpDate, items(), entry().values());
    auto answered = readAnsweredGoals(session());
    Common::makeDurable(); // only what is on the disk counts as saved
    answered_ = std::move(answered);
    keyboard_.markSaved();
    for (const auto& [row, column] : pairsOf(entry().items())) showCell({row + 1, column + 1});
    showState();
    keyboard_.dropHalfTyped();
    showStored();
    const auto next = nextOpenGoal();
    if (next)
        sayOf({ui_->Combo1->itemText(*next)},
              [](const QStringList& names) { return u"登録しました。次は %1 です。"_s.arg(names[0]); });
    else
        say(u"登録しました。すべての目的要因が登録されています。"_s);
    (next ? ui_->Command4 : ui_->Command3)->setFocus();
}

void 比較値設定::Command3_Click() {
    if (entry().isUnsaved() && !confirmDiscard(u"保存されていない比較値があります。終了しますか ？"_s))
        return;
    leaveTo(u"メニュー"_s);
}

// Behind the chosen goal factor in the list, else from its beginning.
std::optional<int> 比較値設定::nextOpenGoal() const {
    const int count = static_cast<int>(goals_.size());
    for (int step = 1; step <= count; ++step) {
        const int entry = (ui_->Combo1->currentIndex() + step) % count;
        const auto goalNo = goals_[static_cast<std::size_t>(entry)].number;
        if (answered_.goals.contains(goalNo) && !answered_.isAnswered(Common::CmpEvaluatorNo, goalNo))
            return entry;
    }
    return std::nullopt;
}

void 比較値設定::hideChooser() {
    ui_->CmbCell->hidePopup();
    ui_->CmbCell->hide();
}

bool 比較値設定::eventFilter(QObject* watched, QEvent* event) {
    auto* chooser = ui_->CmbCell;
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (watched == ui_->MSFlexGrid1) return gridKey(key);
        if (watched == chooser->view() && listKey(key)) return true;
    }
    // A chooser whose list was closed without a choice must not stay: the wheel or an arrow would choose.
    if (watched == chooser->view()->window() && event->type() == QEvent::Hide) {
        chooser->hide();
        ui_->MSFlexGrid1->setFocus();
        showSentence();
    }
    return Screen::eventFilter(watched, event);
}

bool 比較値設定::gridKey(const QKeyEvent& key) {
    if (key.matches(QKeySequence::Undo)) {
        clearStatus();
        follow([&] { keyboard_.undo(); });
        return true;
    }
    if (key.key() == Qt::Key_Delete || key.key() == Qt::Key_Backspace) clearStatus();
    auto pressed = PairKeyboard::Press::Ignored;
    follow([&] { pressed = keyboard_.press(key.key(), typedText(key)); });
    const auto [row, column] = keyboard_.current();
    if (pressed == PairKeyboard::Press::OpensList) MSFlexGrid1_Click(row, column);
    return pressed != PairKeyboard::Press::Ignored;
}

bool 比較値設定::listKey(const QKeyEvent& key) {
    auto pressed = PairKeyboard::Press::Ignored;
    follow([&] {
        pressed = keyboard_.type(typedText(key));
        if (pressed == PairKeyboard::Press::Done) hideChooser();
    });
    return pressed != PairKeyboard::Press::Ignored;
}

std::vector<qint32> 比較値設定::items() const {
    std::vector<qint32> items;
    for (const auto& child : children_) items.push_back(child.number);
    return items;
}

QStringList 比較値設定::namesOf(PairCell cell) const {
    QStringList names;
    for (const int item : {cell.row, cell.column})
        names << itemMark(item) + u' ' + children_.at(static_cast<std::size_t>(item - 1)).name;
    return names;
}

void 比較値設定::showState() {
    QString state;
    if (entry().items() > 0) state = u"入力済 %1 / %2 組"_s.arg(entry().setPairs()).arg(entry().pairs());
    if (const int earlier = entry().earlierPairs()) state += u"　前回のまま %1 組"_s.arg(earlier);
    ui_->Label3->setText(state);
    ui_->Command5->setEnabled(goalNo_ && entry().pairs() > 0);
    showSentence();
    showConsistency();
}

// What the value of the current pair says, while the list is open the marked one.
void 比較値設定::showSentence() {
    const auto cell = keyboard_.current();
    if (!entry().isPair(cell)) return ui_->Label4->setWholeText({});
    auto* chooser = ui_->CmbCell;
    const auto marked = chooser->view()->currentIndex();
    auto position = entry().position(cell);
    if (chooser->isVisible() && marked.isValid()) position = marked.row();
    const bool isHalfTyped = keyboard_.isHalfTyped();
    ui_->Label4->setSentence(namesOf(cell), [=, by = aspect()](const QStringList& names) {
        if (position && !isHalfTyped) return comparisonSentence(names[0], names[1], *position, by);
        return u"%1 は %2 に比べて %3"_s.arg(names[0], names[1], isHalfTyped ? u"1/ …"_s : u"…"_s);
    });
}

// Once all pairs are set; nothing is refused or changed, the evaluator can be asked back.
void 比較値設定::showConsistency() {
    ui_->Label5->setWholeText({});
    ui_->Label6->setWholeText({});
    if (entry().items() < 3 || entry().nextOpen()) return;
    const auto values = entry().values();
    const auto check = checkAnswers({values.begin(), values.end()});
    ui_->Label5->setWholeText(consistencyText(check));
    if (!check.oddPair) return;
    const auto& odd = *check.oddPair;
    ui_->Label6->setSentence(namesOf({odd.source + 1, odd.target + 1}), [odd](const QStringList& names) {
        return u"ほかの答えと最も離れた組: %1 は %2 に比べて %3（ほかの答えからは %4）"_s.arg(
            names[0], names[1], scaleText(odd.given), scaleText(odd.suggested));
    });
}

void 比較値設定::showStored() {
    const int count = static_cast<int>(answered_.goals.size());
    ui_->Label7->setText(u"登録済 %1 / %2"_s.arg(answered_.count(Common::CmpEvaluatorNo)).arg(count));
    for (int entry = 0; entry < ui_->Combo1->count(); ++entry)
        ui_->Combo1->setItemIcon(
            entry,
            listMark(*ui_->Combo1, answered_.isAnswered(Common::CmpEvaluatorNo,
                                                        goals_[static_cast<std::size_t>(entry)].number)));
    ui_->Command4->setEnabled(nextOpenGoal().has_value());
}
