#include "registration/ProblemEvaluators.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberedNames.h"
#include "database/Recordset.h"
#include "text/Numbers.h"
#include "ui_ProblemEvaluators.h"

using namespace Qt::StringLiterals;
using Common::confirm;
using Common::DbConn;
using Common::refuse;

namespace {

void showEntries(QListWidget* list, const std::vector<Common::NumberedName>& evaluators) {
    QStringList entries;
    for (const auto& [number, name] : evaluators) entries << number + u' ' + name;
    list->clear();
    list->addItems(entries);
}

} // namespace

課題評価者登録::課題評価者登録()
    : RegistrationScreen(u"課題評価者登録"_s), ui_(std::make_unique<Ui::ProblemEvaluators>()) {
    ui_->setupUi(this);
    addStatusLine();
    onChoice(ui_->Combo1, [this] { Combo1_Click(); });
    onAction(ui_->Command1, u"登録"_s, [this] { Command1_Click(); });
    onAction(ui_->Command2, u"追加"_s, [this] { Command2_Click(); });
    onAction(ui_->Command3, u"削除"_s, [this] { Command3_Click(); });
    onEvent(ui_->Command4, &QPushButton::clicked, [this] { Command4_Click(); });
}

課題評価者登録::~課題評価者登録() = default;

void 課題評価者登録::Form_Load() {
    Common::MsgTitle = windowTitle();
    problems_ = readProblems();
    for (const auto& problem : problems_) ui_->Combo1->addItem(problemEntry(problem));
    centre();
}

const QString& 課題評価者登録::problem() const {
    return problems_.at(static_cast<std::size_t>(ui_->Combo1->currentIndex())).number;
}

void 課題評価者登録::Combo1_Click() {
    auto evaluators =
        readNumberedNames({*DbConn, u"SELECT 評価者番号,評価者氏名   FROM 評価者    ORDER BY 評価者番号 "},
                          u"評価者番号"_s, u"評価者氏名"_s);
    const auto assigned = assignedEvaluators();
    if (evaluators.empty()) refuse(u"評価者が登録されてません。"_s);
    evaluators_ = std::move(evaluators);
    showEntries(ui_->List1, evaluators_);
    showEntries(ui_->List2, assigned);
}

std::vector<Common::NumberedName> 課題評価者登録::assignedEvaluators() const {
    return readNumberedNames(
        {*DbConn,
         u"SELECT T1.評価者番号,T2.評価者氏名   FROM 課題評価者 T1,評価者 T2 "
         "WHERE T1.課題番号 = ? AND T1.評価者番号 = T2.評価者番号  ORDER BY T1.評価者番号 ",
         leadingNumber(problem())},
        u"評価者番号"_s, u"評価者氏名"_s);
}

QStringList 課題評価者登録::selectedEvaluators() const {
    QStringList numbers;
    for (int row = 0; row < ui_->List1->count(); ++row)
        if (ui_->List1->item(row)->isSelected())
            numbers << evaluators_.at(static_cast<std::size_t>(row)).number;
    return numbers;
}

bool 課題評価者登録::isChosen(const QString& noSelection) {
    if (ui_->Combo1->currentIndex() < 0) return refusedAt(ui_->Combo1, u"課題が未選択です。"_s);
    return !selectedEvaluators().isEmpty() || refusedAt(ui_->List1, noSelection);
}

void 課題評価者登録::Command1_Click() {
    if (!isChosen(u"評価者が選択されてません。"_s)) return;
    if (!confirm(u"当該課題に選択された評価者を登録しますか ？"_s)) return;
    DbConn->execute(u"DELETE FROM 課題評価者 WHERE 課題番号 = ?", leadingNumber(problem()));
    assign(selectedEvaluators());
    finishChange(u"登録しました。"_s);
}

void 課題評価者登録::Command2_Click() {
    if (!isChosen(u"評価者が選択されてません"_s)) return;
    const QStringList evaluators = selectedEvaluators();
    const auto stillNew = [&] { return isNew(evaluators); };
    if (!stillNew() || !mayWrite(u"当該課題に選択された評価者を追加登録しますか ？"_s, stillNew)) return;
    assign(evaluators);
    finishChange(u"追加しました。"_s);
}

bool 課題評価者登録::isNew(const QStringList& evaluators) {
    for (const auto& evaluator : evaluators) {
        const Recordset assigned(
            *DbConn, u"SELECT *   FROM 課題評価者 WHERE 課題番号 = ? AND 評価者番号 = ? ORDER BY 課題番号 ",
            leadingNumber(problem()), leadingNumber(evaluator));
        if (!assigned.eof()) return refusedAt(ui_->List1, u"選択された評価者は登録済です。"_s + evaluator);
    }
    return true;
}

void 課題評価者登録::Command3_Click() {
    if (!isChosen(u"評価者が選択されてません"_s)) return;
    if (!confirm(u"当該課題から選択された評価者を削除しますか ？"_s)) return;
    for (const auto& evaluator : selectedEvaluators())
        DbConn->execute(u"DELETE FROM 課題評価者 WHERE 課題番号 = ? AND 評価者番号 = ?",
                        leadingNumber(problem()), leadingNumber(evaluator));
    finishChange(u"削除しました。"_s);
}

void 課題評価者登録::assign(const QStringList& evaluators) {
    for (const auto& evaluator : evaluators)
        addRecord(*DbConn, u"課題評価者"_s,
                  {{u"課題番号"_s, leadingNumber(problem())},
                   {u"評価者番号"_s, leadingNumber(evaluator)},
                   {u"役割"_s, u""_s}});
}

void 課題評価者登録::finishChange(const QString& done) {
    const auto assigned = assignedEvaluators();
    Common::makeDurable();
    showEntries(ui_->List2, assigned);
    say(u"%1この課題の評価者は %2 名です。"_s.arg(done).arg(assigned.size()));
    ui_->List1->clearSelection();
    ui_->List1->setFocus();
}
