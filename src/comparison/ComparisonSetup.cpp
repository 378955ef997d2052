#include "comparison/ComparisonSetup.h"

#include "comparison/ComparisonSession.h"
#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberedNames.h"
#include "database/Recordset.h"
#include "rounds/AnsweredGoals.h"
#include "text/Dates.h"
#include "text/Numbers.h"
#include "text/TextConversion.h"
#include "ui_ComparisonSetup.h"
#include "widgets/ElidedLabel.h"
#include "widgets/ListMark.h"

using namespace Qt::StringLiterals;
using Common::DbConn;
using Common::inform;
using Common::refuse;

比較者設定::比較者設定() : Screen(u"比較者設定"_s), ui_(std::make_unique<Ui::ComparisonSetup>()) {
    ui_->setupUi(this);
    addStatusLine();
    onChoice(ui_->Combo1, [this] { Combo1_Click(); });
    for (const auto signal : {&QTreeWidget::itemClicked, &QTreeWidget::itemActivated})
        connect(ui_->List1, signal, this,
                [this] { ui_->Combo2->setCurrentIndex(ui_->List1->currentIndex().row()); });
    ui_->List1->header()->setStretchLastSection(false);
    ui_->List1->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    ui_->List1->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    onAction(ui_->Command1, u"開始"_s, [this] { Command1_Click(); });
    onEvent(ui_->Command2, &QPushButton::clicked, [this] { Command2_Click(); });
    onEvent(ui_->Command3, &QPushButton::clicked, [this] { Command3_Click(); });
}

比較者設定::~比較者設定() = default;

void 比較者設定::Form_Load() {
    Common::MsgTitle = windowTitle();
    problems_ = readProblems();
    for (const auto& problem : problems_) ui_->Combo1->addItem(problemEntry(problem));
    ui_->Text2->setText(formatDate(QDate::currentDate()));
    centre();
}

void 比較者設定::Combo1_Click() {
    const auto& problem = problems_.at(static_cast<std::size_t>(ui_->Combo1->currentIndex()));
    const Recordset round(*DbConn, u"SELECT 比較回数 FROM 課題 WHERE 課題番号 = ?",
                          leadingNumber(problem.number));
    auto evaluators =
        readNumberedNames({*DbConn,
                           u"SELECT T1.評価者番号,T2.評価者氏名   FROM 課題評価者 T1,評価者 T2  "
                           "WHERE 課題番号 = ? AND T1.評価者番号 = T2.評価者番号  ORDER BY T1.評価者番号 ",
                           leadingNumber(problem.number)},
                          u"評価者番号"_s, u"評価者氏名"_s);
    const QString roundText = Common::NullToEmpty(round[u"比較回数"_s]);
    const auto shown = shownRound(*DbConn, problem.number, roundText);
    const auto answered = shown ? std::optional(readAnsweredGoals(*shown)) : std::nullopt;
    ui_->Label5->setText(roundText);
    ui_->List1->clear();
    for (int entry = 0; entry < ui_->Combo2->count(); ++entry) ui_->Combo2->setItemIcon(entry, {});
    if (evaluators.empty())
        return refuse(u" '%1' の課題評価者は登録されてません。"_s.arg(ui_->Combo1->currentText()));
    evaluators_ = std::move(evaluators);
    ui_->Combo2->clear();
    for (const auto& [number, name] : evaluators_) ui_->Combo2->addItem(number + u' ' + joinedLines(name));
    showAnswers(answered);
}

// Who has answered how much of the round, beside the list to choose from; nothing of a round that cannot be.
void 比較者設定::showAnswers(const std::optional<AnsweredGoals>& answered) {
    for (int entry = 0; entry < ui_->Combo2->count(); ++entry) {
        const QString text = ui_->Combo2->itemText(entry);
        const auto evaluatorNo = Value(evaluators_[static_cast<std::size_t>(entry)].number).toLong();
        const auto mark =
            listMark(*ui_->List1, answered && !answered->goals.empty() && answered->isComplete(evaluatorNo));
        const QString state =
            answered ? u"%1 / %2 目的要因"_s.arg(answered->count(evaluatorNo)).arg(answered->goals.size())
                     : QString();
        auto* row = new QTreeWidgetItem(ui_->List1, {text, state});
        row->setIcon(0, mark);
        row->setToolTip(0, plainToolTip(text));
        ui_->Combo2->setItemIcon(entry, mark);
    }
}

void 比較者設定::Command1_Click() {
    if (!takeProblem()) return;
    Common::CmpRound = toInteger(leadingNumber(ui_->Label5->text()));
    if (!takeEvaluator() || !takeDate()) return;
    tellExistingRound();
    Common::Forms.show(u"比較値設定"_s);
    Common::Forms.unload(name());
}

bool 比較者設定::takeProblem() {
    const int chosen = ui_->Combo1->currentIndex();
    if (chosen < 0) {
        refuseAt(ui_->Combo1, u"評価対象課題が未選択です。"_s);
        return false;
    }
    Common::CmpProblemNo = Value(problems_.at(static_cast<std::size_t>(chosen)).number).toLong();
    Common::CmpProblemName = problems_.at(static_cast<std::size_t>(chosen)).name;
    const Recordset structure(*DbConn, u"SELECT 課題番号 FROM 要因構成 WHERE 課題番号 = ?",
                              Common::CmpProblemNo);
    if (!structure.eof()) return true;
    refuseAt(ui_->Combo1, u"選択された評価対象課題は要因構成に存在しません"_s);
    return false;
}

bool 比較者設定::takeEvaluator() {
    const int chosen = ui_->Combo2->currentIndex();
    if (chosen < 0) {
        refuseAt(ui_->Combo2, u"評価者が未選択です。"_s);
        return false;
    }
    Common::CmpEvaluatorNo = Value(evaluators_.at(static_cast<std::size_t>(chosen)).number).toLong();
    Common::CmpEvaluatorName = evaluators_.at(static_cast<std::size_t>(chosen)).name;
    return true;
}

bool 比較者設定::takeDate() {
    const auto date = parseDate(ui_->Text2->text());
    if (!date) {
        refuseAt(ui_->Text2, u"評価日付が不正です。"_s);
        return false;
    }
    Common::CmpDate = formatDate(*date);
    return true;
}

// Entering a round again is allowed; the evaluator should only know of it.
void 比較者設定::tellExistingRound() {
    const Recordset values(
        *DbConn, u"SELECT 比較回数 FROM 一対比較 WHERE 課題番号 = ? AND 比較回数 = ? AND 評価者番号 = ?",
        Common::CmpProblemNo, Common::CmpRound, Common::CmpEvaluatorNo);
    if (!values.eof()) inform(u"指定された比較回数は一対比較に存在します"_s);
}

void 比較者設定::Command3_Click() {
    const int chosen = ui_->Combo1->currentIndex();
    Common::ProblemEntry.clear();
    if (chosen >= 0) {
        const auto& [number, problem] = problems_.at(static_cast<std::size_t>(chosen));
        Common::ProblemEntry = number + u':' + problem;
    }
    Common::Forms.show(u"調査票"_s);
    Common::Forms.unload(name());
}

void 比較者設定::Command2_Click() {
    Common::CmpProblemNo = 0;
    Common::CmpProblemName.clear();
    Common::CmpEvaluatorNo = 0;
    Common::CmpEvaluatorName.clear();
    leaveTo(u"メニュー"_s);
}
