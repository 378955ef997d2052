#include "hierarchy/StructureEditor.h"

#include <QKeyEvent>
#include <QScopeGuard>
#include <algorithm>

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberedNames.h"
#include "database/Recordset.h"
#include "text/Numbers.h"
#include "ui_StructureEditor.h"
#include "widgets/Controls.h"
#include "widgets/ListSearch.h"

using namespace Qt::StringLiterals;
using Common::confirmDiscard;
using Common::DbConn;
using Common::refuse;

namespace Common {

qint32 StructProblemNo = 0;
std::vector<NumberedName> StructList;

} // namespace Common

namespace {

constexpr int factorColumn = 1;
constexpr int treePage = 1;
constexpr int lastShiftedRow = 10;
// Half-width columns of the factor list: its headings stand above what they head.
constexpr int numberColumn = 3;
constexpr int nameColumn = 14;
constexpr int numberLengthRole = Qt::UserRole + 1;

// An entry of the factor list is number and name joined, which its columns set apart.
class FactorColumns : public NameDelegate {
  public:
    using NameDelegate::NameDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        NameDelegate::initStyleOption(option, index);
        const auto numberLength = index.data(numberLengthRole).toInt();
        const auto between = std::max(nameColumn - numberColumn - numberLength, 1);
        option->text.insert(numberLength, QString(between, u' ')).prepend(QString(numberColumn, u' '));
    }
};

// The controls, laid out on the screen.
std::unique_ptr<Ui::StructureEditor> layOut(QWidget* screen) {
    auto controls = std::make_unique<Ui::StructureEditor>();
    controls->setupUi(screen);
    return controls;
}

} // namespace

要因構成登録::要因構成登録()
    : Screen(u"要因構成登録"_s), ui_(layOut(this)), tree_(ui_->TreeView1, ui_->TreeView2) {
    search_ = new ListSearch(ui_->Text1, ui_->List1);
    ui_->List1->setItemDelegate(new FactorColumns(ui_->List1));
    ui_->headings->setContentsMargins(entryMargin(*ui_->List1), 0, 0, 0);
    setUpGrid();
    addStatusLine(ui_->Label8);
    ui_->Label6->setElideMode(Qt::ElideLeft); // the parent itself stands at the end of its path
    for (QObject* watched : std::initializer_list<QObject*>{ui_->MSFlexGrid1, ui_->List1, ui_->Text1,
                                                            ui_->TreeView1, ui_->TreeView2})
        watched->installEventFilter(this);
    onEvent(ui_->Combo1, &QComboBox::activated, [this] { Combo1_Click(); });
    onEvent(ui_->Combo2, &QComboBox::activated, [this] { Combo2_Click(); });
    onEvent(ui_->List1, &QListWidget::itemDoubleClicked, [this] { List1_DblClick(); });
    onEvent(ui_->SSTab1, &QTabWidget::currentChanged, [this] { SSTab1_Click(); });
    for (QTreeView* view : std::initializer_list<QTreeView*>{ui_->TreeView1, ui_->TreeView2})
        onEvent(view, &QTreeView::doubleClicked, [this] { TreeView1_DblClick(); });
    onAction(ui_->Command1, u"登録"_s, [this] { Command1_Click(); });
    onEvent(ui_->Command2, &QPushButton::clicked, [this] { Command2_Click(); });
    onAction(ui_->Command3, u"行削除"_s, [this] { Command3_Click(); });
    onEvent(ui_->Command4, &QPushButton::clicked, [this] { Command4_Click(); });
}

要因構成登録::~要因構成登録() = default;

void 要因構成登録::setUpGrid() {
    auto* grid = ui_->MSFlexGrid1;
    grid->setSize(mostChildren + 1, factorColumn + 1);
    grid->setText(0, 0, u"No."_s);
    grid->setText(0, factorColumn, u"要因"_s);
    for (int row = 1; row <= mostChildren; ++row) grid->setText(row, 0, u"%1"_s.arg(row, 3));
    grid->horizontalHeader()->setStretchLastSection(true);
    grid->verticalHeader()->setDefaultSectionSize(grid->verticalHeader()->minimumSectionSize());
}

void 要因構成登録::Form_Load() {
    Common::MsgTitle = windowTitle();
    children_ = freeRows();
    fillProblems();
    loadFactors();
    showPosition();
    centre();
}

void 要因構成登録::fillProblems() {
    Recordset rows(*DbConn, configuredProblems);
    if (rows.eof()) {
        refuse(u"課題が未登録です。 課題登録を行ってください。"_s);
        say(u"課題登録の後に、課題構成登録 で段数などを登録すると、ここで課題を選べます。"_s);
    }
    for (; !rows.eof(); rows.moveNext()) {
        const Problem problem{rows[u"課題番号"_s].toLong(), Common::NullToEmpty(rows[u"要因名"_s]),
                              Common::NullToZero(rows[u"構成レベル"_s]).toLong()};
        problems_.push_back(problem);
        ui_->Combo1->addItem(problemEntry({QString::number(problem.number), problem.name}));
    }
}

void 要因構成登録::loadFactors() {
    Common::StructList =
        readNumberedNames({*DbConn, u"SELECT * FROM 要因 ORDER BY 要因番号 "}, u"要因番号"_s, u"要因名"_s);
    ui_->List1->clear();
    for (const auto& [number, name] : Common::StructList) {
        const auto factorNo = Value(number).toLong();
        auto* item = new QListWidgetItem(factorText(factorNo, name), ui_->List1);
        item->setData(numberLengthRole, factorText(factorNo, {}).size());
    }
    search_->apply();
}

void 要因構成登録::Combo1_Click() {
    // The box names the problem that is shown, also when the user keeps unsaved children or reading fails.
    const auto shown = qScopeGuard([this] { ui_->Combo1->setCurrentIndex(problem_); });
    if (!mayDiscardChildren(u"破棄しますか ？"_s)) return;
    const int chosen = ui_->Combo1->currentIndex();
    auto structure = rebuiltStructure(problems_.at(static_cast<std::size_t>(chosen)));
    problem_ = chosen;
    Common::StructProblemNo = problem().number;
    showParents(std::move(structure.parents));
    chooseParent(-1);
    showTree(structure.nodes);
}

// What is to be shown of the problem once its structure has been rebuilt and is on the disk.
要因構成登録::Structure 要因構成登録::rebuiltStructure(const Problem& problem) {
    rebuildStructureDisplay(*DbConn, problem.number, problem.levels);
    Structure structure{readParents(*DbConn, problem.number, problem.name, problem.levels),
                        readTree(*DbConn, problem.number)};
    Common::makeDurable();
    return structure;
}

void 要因構成登録::showParents(ParentList parents) {
    parents_ = std::move(parents);
    ui_->Combo2->clear();
    for (const auto& parent : parents_.parents)
        ui_->Combo2->addItem(factorText(parent.place.factorNo, parent.name, u" "_s));
    ui_->Combo2->setCurrentIndex(-1);
}

void 要因構成登録::showTree(const std::vector<TreeNode>& nodes) {
    tree_.show(nodes, parents_);
    showPosition();
}

void 要因構成登録::SSTab1_Click() {
    if (ui_->SSTab1->currentIndex() != treePage) return loadFactors();
    if (problem_ >= 0) showTree(readTree(*DbConn, Common::StructProblemNo));
}

void 要因構成登録::Combo2_Click() {
    const auto shown = qScopeGuard([this] { ui_->Combo2->setCurrentIndex(parent_); });
    if (mayDiscardChildren(u"破棄しますか ？"_s)) chooseParent(ui_->Combo2->currentIndex());
}

// Shows a parent of the list with its saved children; −1 for none.
void 要因構成登録::chooseParent(int index) {
    children_ = index < 0 ? freeRows()
                          : readChildren(*DbConn, Common::StructProblemNo,
                                         parents_.parents.at(static_cast<std::size_t>(index)).place.factorNo);
    parent_ = index;
    ui_->Combo2->setCurrentIndex(index);
    unsaved_ = false;
    showChildren();
    showPosition();
    say({});
}

void 要因構成登録::showChildren() {
    for (int row = 1; row <= mostChildren; ++row) showChild(row);
    ui_->MSFlexGrid1->setCurrent(firstFreeRow(1), factorColumn);
}

void 要因構成登録::showChild(int row) {
    const auto& child = childOf(row);
    ui_->MSFlexGrid1->setText(row, factorColumn,
                              child.isEmpty() ? QString() : factorText(child.factorNo, child.name));
}

int 要因構成登録::firstFreeRow(int from) const {
    const auto free = std::find_if(children_.begin() + from - 1, children_.end(),
                                   [](const ChildEntry& child) { return child.isFree(); });
    return free == children_.end() ? 0 : static_cast<int>(free - children_.begin()) + 1;
}

// Where the chosen parent stands, and where work goes on.
void 要因構成登録::showPosition() {
    if (parent_ >= 0) {
        const QString path = tree_.pathTo(chosenParent());
        ui_->Label6->setWholeText(path.isEmpty() ? ui_->Combo2->currentText() : path);
        tree_.select(chosenParent());
    } else {
        ui_->Label6->setWholeText({});
    }
    ui_->Command4->setEnabled(parents_.next.has_value());
    const QString next = parents_.next ? ui_->Combo2->itemText(parentIndex(*parents_.next)) : QString();
    ui_->Label7->setWholeText(problem_ < 0     ? QString()
                              : next.isEmpty() ? u"すべての親要因が設定されています。"_s
                              : parents_.isNextFilled ? u"次に登録し直す親要因： %1"_s.arg(next)
                                                      : u"次に設定する親要因： %1"_s.arg(next));
}

// The parent at the place, or another node of the same factor: its children are the same. −1 when there is
// none.
int 要因構成登録::parentIndex(const NodePlace& place) const {
    const auto& parents = parents_.parents;
    auto found = std::ranges::find(parents, place, &TreeNode::place);
    if (found == parents.end())
        found = std::ranges::find(parents, place.factorNo,
                                  [](const TreeNode& node) { return node.place.factorNo; });
    return found == parents.end() ? -1 : static_cast<int>(found - parents.begin());
}

void 要因構成登録::List1_DblClick() {
    const int chosen = ui_->List1->currentRow();
    if (ui_->Combo1->currentIndex() < 0 || ui_->Combo2->currentIndex() < 0 || chosen < 0) return;
    const int row = ui_->MSFlexGrid1->row();
    if (row < 1)
        return refuseAt(ui_->MSFlexGrid1, firstFreeRow(1) > 0
                                              ? u"設定する行を選択して下さい"_s
                                              : u"空いた行がありません。置き換える行を選択して下さい"_s);
    auto& child = childOf(row);
    const bool wasFree = child.isFree();
    const auto& factor = Common::StructList.at(static_cast<std::size_t>(chosen));
    child.factorNo = Value(factor.number).toLong();
    child.name = factor.name;
    showChild(row);
    unsaved_ = true;
    say({});
    // Whoever fills free rows goes on to the next one, and after the last to none: what was just set must not
    // be replaced by the next choice. A row that was filled already is being corrected.
    if (wasFree) ui_->MSFlexGrid1->setCurrent(firstFreeRow(row + 1), factorColumn);
}

void 要因構成登録::Command1_Click() {
    if (ui_->Combo1->currentIndex() < 0) return refuseAt(ui_->Combo1, u"課題を選択して下さい"_s);
    if (ui_->Combo2->currentIndex() < 0) return refuseAt(ui_->Combo2, u"要因（親）を選択して下さい"_s);
    const auto children = savedChildren(children_);
    if (children.empty()) return refuseAt(ui_->MSFlexGrid1, u"要因（子）が設定されてません"_s);
    const auto parentNo = chosenParent().factorNo;
    // What is looked at is what will be replaced: another program may write while a question stands.
    int agreed = 0;
    for (;;) {
        DbConn->beginUnitOfWork();
        if (const auto refused = refusedChild(*DbConn, Common::StructProblemNo, parentNo, children))
            return refuseChild(*refused);
        const int lost = childrenLostAtGap(*DbConn, Common::StructProblemNo, parentNo, children_);
        if (lost <= agreed) break;
        if (!mayLose(lost)) return;
        agreed = lost;
    }
    saveChildren(*DbConn, Common::StructProblemNo, parentNo, children);
    removeOrphans(*DbConn, Common::StructProblemNo);
    finishSave(rebuiltStructure(problem()), children.size());
}

// A row left free by a slip of the hand must not take stored children, and what stands below them, away.
bool 要因構成登録::mayLose(int lost) {
    if (confirmDiscard(u"空いた行より下の要因（子）は登録されません。\n登録済みの要因（子） %1 件が"
                       "その下の構成とともに削除されます。登録しますか ？"_s.arg(lost)))
        return true;
    ui_->MSFlexGrid1->setFocus();
    ui_->MSFlexGrid1->setCurrent(firstFreeRow(1), factorColumn);
    return false;
}

// The saved parent stays chosen, and the children as they are: those behind a free row have not been saved.
void 要因構成登録::finishSave(Structure structure, std::size_t saved) {
    const auto notSaved =
        std::ranges::count(children_, false, &ChildEntry::isFree) - static_cast<std::ptrdiff_t>(saved);
    unsaved_ = notSaved > 0;
    const NodePlace place = chosenParent();
    showParents(std::move(structure.parents));
    parent_ = parentIndex(place);
    ui_->Combo2->setCurrentIndex(parent_);
    showTree(structure.nodes);
    tree_.revealNext();
    // The Enter that follows a save out of habit goes on, or leaves; it never adds the marked factor again.
    if (unsaved_) {
        ui_->MSFlexGrid1->setFocus();
        ui_->MSFlexGrid1->setCurrent(firstFreeRow(1), factorColumn);
        return say(u"空いた行より下の要因（子） %1 件は登録されていません。"_s.arg(notSaved), true);
    }
    say(u"%1 件の要因（子）を登録しました。"_s.arg(saved));
    (parents_.next ? ui_->Command4 : ui_->Command2)->setFocus();
}

void 要因構成登録::Command3_Click() {
    auto* grid = ui_->MSFlexGrid1;
    const int current = grid->row();
    if (current < 1) return refuseAt(grid, u"削除行を選択して下さい"_s);
    if (grid->text(current, factorColumn).isEmpty()) return refuseAt(grid, u"要因（子）が設定されてません"_s);
    // Rows below the tenth do not take part: the shift always frees row 10.
    const QString removed = grid->text(std::min(current, lastShiftedRow), factorColumn);
    if (removed.isEmpty()) return say(u"11 行目から下の行は削除できません。"_s, true);
    for (int row = std::min(current, lastShiftedRow); row <= lastShiftedRow; ++row) {
        auto& child = childOf(row);
        const ChildEntry next = row < lastShiftedRow ? childOf(row + 1) : ChildEntry{};
        child = {child.displayOrder, next.factorNo, next.name};
        showChild(row);
    }
    unsaved_ = true;
    sayOf({removed}, [](const QStringList& names) {
        return u"'%1' を一覧から外しました（登録するまで構成は変わりません）。"_s.arg(names[0]);
    });
}

void 要因構成登録::Command4_Click() {
    if (!parents_.next || !mayDiscardChildren(u"破棄しますか ？"_s)) return;
    ui_->SSTab1->setCurrentIndex(0);
    const bool isFilled = parents_.isNextFilled;
    chooseParent(parentIndex(*parents_.next));
    if (isFilled) return ui_->Command1->setFocus();
    goTo(ui_->Text1);
}

// A node that is on offer as parent can be chosen in the tree.
void 要因構成登録::TreeView1_DblClick() {
    const auto* node = ui_->TreeView1->currentItem();
    const auto place = tree_.placeOf(node);
    if (!place) return;
    const int offered = parentIndex(*place);
    if (offered < 0)
        return sayOf(
            {node->text(0)},
            [](const QStringList& names) { return u"'%1' は今は要因（親）に選べません。"_s.arg(names[0]); },
            true);
    if (!mayDiscardChildren(u"破棄しますか ？"_s)) return;
    ui_->SSTab1->setCurrentIndex(0);
    chooseParent(offered);
    ui_->Text1->setFocus();
}

void 要因構成登録::Command2_Click() {
    if (mayDiscardChildren(u"終了しますか ？"_s)) leaveTo(u"登録メニュー"_s);
}

// What was chosen and not saved must not vanish by a slip of the hand.
bool 要因構成登録::mayDiscardChildren(const QString& question) {
    return !unsaved_ || confirmDiscard(u"登録されていない要因（子）があります。"_s + question);
}

void 要因構成登録::refuseChild(const RefusedChild& refused) {
    refuseAt(ui_->MSFlexGrid1, refused.reason);
    ui_->MSFlexGrid1->setCurrent(refused.row, factorColumn);
}

bool 要因構成登録::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return Screen::eventFilter(watched, event);
    const auto* pressed = static_cast<QKeyEvent*>(event);
    const int key = pressed->key();
    const bool done = watched == ui_->MSFlexGrid1 ? gridKey(key, pressed->modifiers() == Qt::AltModifier)
                      : watched == ui_->List1 || watched == ui_->Text1 ? searchKey(key)
                                                                       : treeKey(key);
    return done || Screen::eventFilter(watched, event);
}

bool 要因構成登録::treeKey(int key) {
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    runEvent([this] { TreeView1_DblClick(); });
    return true;
}

bool 要因構成登録::gridKey(int key, bool alt) {
    switch (key) {
        case Qt::Key_Delete:
            ui_->Command3->click();
            return true;
        case Qt::Key_Up:
        case Qt::Key_Down:
            if (alt) moveRow(key == Qt::Key_Up ? -1 : 1);
            return alt;
        default:
            return false;
    }
}

// Exchanges the current row with the one above or below: the order is changed, or a free row closed up.
void 要因構成登録::moveRow(int by) {
    auto* grid = ui_->MSFlexGrid1;
    const int row = grid->row();
    const int other = row + by;
    if (row < 1 || other < 1 || other > mostChildren) return;
    std::swap(childOf(row).factorNo, childOf(other).factorNo);
    std::swap(childOf(row).name, childOf(other).name);
    for (const int changed : {row, other}) showChild(changed);
    grid->setCurrent(other, factorColumn);
    unsaved_ = true;
    clearStatus();
}

// In the search field and the list Enter takes the marked factor.
bool 要因構成登録::searchKey(int key) {
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    runEvent([this] { List1_DblClick(); });
    ui_->Text1->selectAll();
    return true;
}
