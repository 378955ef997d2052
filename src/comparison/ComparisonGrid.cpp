#include "comparison/ComparisonGrid.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <algorithm>

#include "comparison/StoredComparisons.h"
#include "core/AnsweredGoals.h"
#include "judgement/ComparisonScale.h"
#include "judgement/ItemMark.h"
#include "platform/Colours.h"
#include "platform/Numbers.h"
#include "platform/Recordset.h"
#include "platform/TextConversion.h"
#include "ui_ComparisonGrid.h"

using namespace Qt::StringLiterals;
using namespace Common;

namespace {

constexpr int gridSize = 21; // the fixed row and 20 items
constexpr int cellWidth = 64;

// The pairs of n items, row by row over the upper triangle.
template <typename Visit>
void forEachPair(int n, Visit visit) {
    for (int row = 1; row < n; ++row)
        for (int column = row + 1; column <= n; ++column) visit(row, column);
}

} // namespace

比較値設定::比較値設定() : Screen(u"比較値設定"_s), ui_(std::make_unique<Ui::ComparisonGrid>()) {
    ui_->setupUi(this);
    addStatusLine();
    ui_->MSFlexGrid1->setSize(gridSize, gridSize);
    ui_->MSFlexGrid1->horizontalHeader()->setDefaultSectionSize(cellWidth);
    ui_->MSFlexGrid1->setCellAlignment(Qt::AlignCenter);
    ui_->MSFlexGrid1->installEventFilter(this);
    ui_->CmbCell->setParent(ui_->MSFlexGrid1->viewport());
    ui_->CmbCell->view()->window()->installEventFilter(this);
    onAction(ui_->Command1, u"評価開始"_s, [this] { Command1_Click(); });
    onAction(ui_->Command2, u"評価終了"_s, [this] { Command2_Click(); });
    onEvent(ui_->Command3, &QPushButton::clicked, [this] { Command3_Click(); });
    onEvent(ui_->CmbCell, &QComboBox::activated, [this] { CmbCell_Click(ui_->CmbCell->currentIndex()); });
    connect(ui_->MSFlexGrid1, &QTableWidget::cellClicked, this,
            [this](int row, int column) { MSFlexGrid1_Click(row + 1, column + 1); });
}

比較値設定::~比較値設定() = default;

void 比較値設定::Form_Load() {
    MsgTitle = windowTitle();
    for (int position = 0; position < scalePositions; ++position) ui_->CmbCell->addItem(scaleText(position));
    ui_->CmbCell->hide();
    ui_->Label2->setText(u"%1　　評価者 %2　　%3 回目　　%4"_s.arg(CmpProblemName, CmpEvaluatorName,
                                                                   QString::number(CmpRound), CmpDate));
    for (const auto& goal : readGoals(*DbConn, CmpProblemNo)) {
        goals_.push_back(goal.number);
        ui_->Combo1->addItem(formatNumber(goal.number, u"0000"_s) + u' ' + goal.name);
    }
    ui_->MSFlexGrid1->showOnly(1, 1);
    showProgress();
    centre();
}

void 比較値設定::Command1_Click() {
    if (!mayDiscardValues()) return showGoal();
    clearGrid();
    const int chosen = ui_->Combo1->currentIndex();
    if (chosen < 0) return refuseWithoutGoal();
    const auto goalNo = goals_.at(static_cast<std::size_t>(chosen));
    for (const auto& child : readChildren(*DbConn, CmpProblemNo, goalNo))
        showChild(++itemCount_, child.number, child.name);
    goalNo_ = goalNo; // only a goal whose children are all shown can be saved
    ui_->MSFlexGrid1->showOnly(itemCount_ + 1, itemCount_ + 1);
    ui_->MSFlexGrid1->setCurrent(1, 2);
    ui_->MSFlexGrid1->setFocus();
    showProgress();
}

void 比較値設定::refuseWithoutGoal() {
    refuseAt(ui_->Combo1, u"目的要因が選択されてません、目的要因を選択してください。"_s);
}

// What was typed and not saved must not vanish by a slip of the hand.
bool 比較値設定::mayDiscardValues() {
    return !unsaved_ || confirmDiscard(u"保存されていない比較値があります。破棄しますか ？"_s);
}

// The list shows the goal factor whose grid stands below, whatever was looked at in it meanwhile.
void 比較値設定::showGoal() {
    const auto goal = std::ranges::find(goals_, goalNo_);
    if (goal != goals_.end()) ui_->Combo1->setCurrentIndex(static_cast<int>(goal - goals_.begin()));
}

void 比較値設定::clearGrid() {
    hideChooser();
    values_ = {};
    unsaved_ = false;
    itemCount_ = 0;
    goalNo_.reset();
    ui_->MSFlexGrid1->clearTexts();
    ui_->MSFlexGrid1->setText(0, 0, u"   比較元要因／比較先要因"_s);
    ui_->MSFlexGrid1->showOnly(1, 1);
    showProgress();
}

void 比較値設定::showChild(int item, qint32 factorNo, const QString& factorName) {
    auto* grid = ui_->MSFlexGrid1;
    items_[item] = factorNo;
    grid->setText(0, item, u"   "_s + itemMark(item));
    grid->setText(item, 0, itemMark(item) + formatNumber(factorNo, u"0000"_s) + factorName);
    grid->setText(item, item, u"   －"_s);
    for (int column = 1; column <= item; ++column) grid->shade(item, column, closedCell(palette()));
}

void 比較値設定::MSFlexGrid1_Click(int row, int column) {
    hideChooser();
    if (!isEntryCell(row, column)) return;
    auto* chooser = ui_->CmbCell;
    chooser->setGeometry(ui_->MSFlexGrid1->cellRect(row, column));
    chooser->setCurrentIndex(chooser->findText(ui_->MSFlexGrid1->text(row, column)));
    chooser->show();
    chooser->setFocus();
    chooser->showPopup();
    // Enter on a cell without a value must not choose the first entry, "9".
    if (chooser->currentIndex() < 0) chooser->view()->setCurrentIndex({});
}

bool 比較値設定::isEntryCell(int row, int column) const {
    return column > row && row >= 1 && row != gridSize - 1 && column <= itemCount_;
}

void 比較値設定::CmbCell_Click(int position) {
    auto* grid = ui_->MSFlexGrid1;
    if (position < 0 || !isEntryCell(grid->row(), grid->column())) return;
    setCell(grid->row(), grid->column(), position);
    hideChooser();
    grid->setFocus();
}

void 比較値設定::setCell(int row, int column, int position) {
    ui_->MSFlexGrid1->setText(row, column, scaleText(position));
    ui_->MSFlexGrid1->setText(column, row, scaleText(mirrorPosition(position)));
    ui_->MSFlexGrid1->shade(column, row, closedCell(palette()));
    values_[row - 1][column - 1] = scaleValue(position);
    unsaved_ = true;
    showProgress();
}

void 比較値設定::Command2_Click() {
    if (!goalNo_) return refuseWithoutGoal();
    if (const auto unset = firstUnset()) {
        refuseAt(ui_->MSFlexGrid1, u"比較値の未設定があります、全てを設定してください"_s);
        return ui_->MSFlexGrid1->setCurrent(unset->first, unset->second);
    }
    replaceComparisons();
    makeDurable(); // only what is on the disk counts as saved
    unsaved_ = false;
    showGoal();
    showProgress(u"登録しました。"_s);
}

std::optional<std::pair<int, int>> 比較値設定::firstUnset() const {
    std::optional<std::pair<int, int>> unset;
    forEachPair(itemCount_, [&](int row, int column) {
        if (!unset && values_[row - 1][column - 1] == 0) unset = {row, column};
    });
    return unset;
}

void 比較値設定::replaceComparisons() {
    std::vector<qint32> items;
    for (int item = 1; item <= itemCount_; ++item) items.push_back(items_[item]);
    std::vector<float> values;
    forEachPair(itemCount_, [&](int row, int column) { values.push_back(values_[row - 1][column - 1]); });
    saveComparisons({*DbConn, CmpProblemNo, CmpEvaluatorNo, CmpRound}, *goalNo_, CmpDate, items, values);
}

void 比較値設定::Command3_Click() {
    if (unsaved_ && !confirmDiscard(u"保存されていない比較値があります。終了しますか ？"_s)) return;
    leaveTo(u"メニュー"_s);
}

// "12 / 21 組" and what was done last, under the grid.
void 比較値設定::showProgress(const QString& note) {
    int set = 0;
    forEachPair(itemCount_, [&](int row, int column) { set += values_[row - 1][column - 1] != 0; });
    const int pairs = itemCount_ * (itemCount_ - 1) / 2;
    ui_->Label3->setText(itemCount_ == 0 ? note : u"入力済 %1 / %2 組　　%3"_s.arg(set).arg(pairs).arg(note));
}

void 比較値設定::hideChooser() {
    reciprocalTyped_ = false;
    ui_->CmbCell->hidePopup();
    ui_->CmbCell->hide();
}

bool 比較値設定::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->MSFlexGrid1 && event->type() == QEvent::KeyPress)
        return gridKey(static_cast<QKeyEvent*>(event));
    // A chooser whose list was closed without a choice must not stay: the wheel or an arrow would choose.
    if (watched == ui_->CmbCell->view()->window() && event->type() == QEvent::Hide) {
        ui_->CmbCell->hide();
        ui_->MSFlexGrid1->setFocus();
    }
    return Screen::eventFilter(watched, event);
}

// The whole grid can be filled without the mouse: arrows move, Enter and F2 open the chooser, a digit
// chooses, and "/" before the digit chooses its reciprocal ("1/3" may be typed as it is read).
bool 比較値設定::gridKey(QKeyEvent* key) {
    const int row = ui_->MSFlexGrid1->row();
    const int column = ui_->MSFlexGrid1->column();
    switch (key->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_F2:
            MSFlexGrid1_Click(row, column);
            return true;
        case Qt::Key_Left:
        case Qt::Key_Right:
            return moveOn(row, column, key->key());
        default:
            return typeScale(row, column, toHalfWidth(key->text()));
    }
}

bool 比較値設定::typeScale(int row, int column, const QString& typed) {
    if (typed.isEmpty()) return false; // Shift alone
    const bool reciprocal = std::exchange(reciprocalTyped_, typed == u"/"_s);
    if (reciprocalTyped_) return true;
    const auto position = ui_->CmbCell->findText(reciprocal ? u"1/"_s + typed : typed);
    if (!isEntryCell(row, column)) return false;
    if (reciprocal && typed == u"1"_s) {
        setCell(row, column, ui_->CmbCell->findText(typed));
    } else if (position >= 0) {
        setCell(row, column, position);
    } else {
        return false;
    }
    return true;
}

// At the end of a row the arrow goes on to the next pair, at its beginning back to the pair before.
bool 比較値設定::moveOn(int row, int column, int key) {
    reciprocalTyped_ = false;
    auto* grid = ui_->MSFlexGrid1;
    if (key == Qt::Key_Right && column == itemCount_ && row + 1 < itemCount_) {
        grid->setCurrent(row + 1, row + 2);
    } else if (key == Qt::Key_Left && column == row + 1 && row > 1) {
        grid->setCurrent(row - 1, itemCount_);
    } else {
        return false;
    }
    return true;
}
