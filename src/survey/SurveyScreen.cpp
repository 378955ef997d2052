#include "survey/SurveyScreen.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QShortcut>

#include "core/Common.h"
#include "core/Messages.h"
#include "files/TextFile.h"
#include "rounds/RoundEntries.h"
#include "rounds/RoundState.h"
#include "sheets/TableFile.h"
#include "survey/SurveyWorks.h"
#include "ui_SurveyScreen.h"
#include "widgets/ElidedLabel.h"

using namespace Qt::StringLiterals;
using Common::confirmDiscard;
using Common::DbConn;
using Common::refuse;

namespace {

enum FileColumn { FileName, Evaluator, ProblemAndRound, Goals, State, fileColumns };

constexpr qsizetype mostNames = 15; // in a question
constexpr int betweenColumns = 16;  // pixels

QString stateOf(const CheckedAnswers& file, bool stored) {
    if (stored) return u"登録しました"_s;
    if (file.hasFault()) return u"誤りがあるため登録できません"_s;
    if (file.complete.isEmpty()) return u"回答が揃った目的要因がありません"_s;
    QStringList remarks{u"登録できます"_s};
    if (file.replaced > 0) remarks << u"以前の回答あり"_s;
    if (file.inconsistent() > 0) remarks << u"要確認 %1"_s.arg(file.inconsistent());
    return remarks.join(u"、"_s);
}

} // namespace

調査票::調査票() : OutputScreen(u"調査票"_s), ui_(std::make_unique<Ui::SurveyScreen>()) {
    ui_->setupUi(this);
    addStatusLine();
    setUpOutput(ui_->Command17, ui_->device, ui_->folder);
    setUpProgress(ui_->Progress1);
    ui_->Table1->setHorizontalHeaderLabels(
        {u"ファイル"_s, u"評価者"_s, u"課題と比較回数"_s, u"揃った目的"_s, u"状態"_s});
    ui_->Table1->horizontalHeader()->setSectionResizeMode(State, QHeaderView::Stretch);
    for (const auto& [column, width] :
         {std::pair{FileName, 170}, {Evaluator, 120}, {ProblemAndRound, 0}, {Goals, 0}}) // 0: as its heading
        ui_->Table1->setColumnWidth(
            column,
            std::max(width, ui_->Table1->horizontalHeader()->sectionSizeHint(column) + betweenColumns));
    ui_->Table1->verticalHeader()->hide();
    auto* takeOffKey = new QShortcut(Qt::Key_Delete, ui_->Table1);
    takeOffKey->setContext(Qt::WidgetShortcut);
    onEvent(takeOffKey, &QShortcut::activated, [this] { takeOff(); });

    onEvent(ui_->Command1, &QPushButton::clicked, [this] { ui_->List1->selectAll(); });
    std::size_t next = 0;
    for (auto* button : {ui_->Command3, ui_->Command4, ui_->Command8, ui_->Command5}) {
        const auto& work = surveyWorks()[next++];
        onAction(button, work.caption, [this, &work] { make(work); });
    }
    onAction(ui_->Command6, u"読み込み"_s, [this] { Command6_Click(); });
    onAction(ui_->Command7, u"登録"_s, [this] { Command7_Click(); });
    onEvent(ui_->Command2, &QPushButton::clicked, [this] { end(); });
    onEvent(ui_->Table1, &QTableWidget::itemSelectionChanged, [this] { showDetails(); });
}

調査票::~調査票() = default;

void 調査票::Form_Load() {
    Common::MsgTitle = windowTitle();
    loadOutput();
    const QStringList problems = problemEntries(*DbConn);
    ui_->Combo1->addItems(problems);
    if (problems.isEmpty()) refuse(u"課題が存在しません。"_s);
    showFiles();
    // The problem that was chosen where the questionnaires were asked for.
    ui_->Combo1->setCurrentIndex(
        Common::ProblemEntry.isEmpty() ? -1 : ui_->Combo1->findText(Common::ProblemEntry));
    if (ui_->Combo1->currentIndex() >= 0) Combo1_Click();
    onChoice(ui_->Combo1, [this] { Combo1_Click(); }); // from the choice that the screen opens with
    centre();
}

void 調査票::Combo1_Click() {
    const QString problemNo = entryNumber(ui_->Combo1->currentText());
    const QStringList evaluators = evaluatorEntries(*DbConn, problemNo);
    const QString round = currentRound(*DbConn, problemNo);
    ui_->List1->clear();
    ui_->List1->addItems(evaluators);
    ui_->Label5->setText(round);
    answers_.clear();
    files_.clear(); // they were set against the problem chosen before
    showFiles();
}

void 調査票::make(const Work& work) {
    const auto hideProgress = progressGuard();
    const auto chosen = chosenRound(ui_->Combo1, ui_->List1, ui_->Label5);
    if (!chosen) return;
    makeDocuments(u"%1 %2 名："_s.arg(work.caption).arg(chosen->evaluators.size()),
                  [&] { return work.run(output_, *chosen, {}, progress()); });
}

std::optional<RoundSelection> 調査票::problemRound() {
    return checkedSelection(*DbConn, {ui_->Combo1->currentText(), {}, ui_->Label5->text()}, false);
}

void 調査票::Command6_Click() {
    if (!problemRound()) return ui_->Combo1->setFocus();
    static QString folder; // where the files were last, as long as the program runs
    if (folder.isEmpty()) folder = nativePath(output_.FileDir);
    const auto paths =
        QFileDialog::getOpenFileNames(this, u"回答の入った調査票を選ぶ"_s, folder,
                                      u"調査票 (%1);;すべてのファイル (*)"_s.arg(tableFilePatterns()));
    if (paths.isEmpty()) return;
    folder = QFileInfo(paths.constFirst()).path();
    readFiles(paths);
}

void 調査票::readFiles(const QStringList& paths) {
    const auto hideProgress = progressGuard();
    const auto tell = progress();
    const auto round = problemRound();
    if (!round) return;
    const auto questionnaire = questionnaireOf(*round);
    QList<Answers> all;
    std::ranges::copy_if(answers_, std::back_inserter(all), [&](const Answers& shown) {
        return !stored_.contains(shown.path) && !paths.contains(shown.path);
    });
    const auto kept = all.size();
    readAnswers(paths, [&](const Answers& answers) {
        tell(static_cast<int>(all.size() - kept), static_cast<int>(paths.size()),
             QFileInfo(answers.path).fileName());
        all.append(answers);
    });
    hold(questionnaire, std::move(all));
    ui_->Table1->selectRow(static_cast<int>(kept));
    ui_->Table1->setFocus();
    const auto storable = std::ranges::count_if(files_, &CheckedAnswers::canBeStored);
    say(u"%1 件を読み込みました。一覧の %2 件のうち登録できるもの %3 件。"_s.arg(files_.size() - kept)
            .arg(files_.size())
            .arg(storable),
        storable < files_.size());
}

// All are checked anew: what they are held against, the database and one another, may have changed.
void 調査票::hold(const Questionnaire& questionnaire, QList<Answers> all) {
    QList<CheckedAnswers> files;
    for (const auto& answers : all) files.append(checkedAnswers(*DbConn, questionnaire, answers));
    checkAgainstEachOther(files);
    const QStringList leftOut = pathsLeftOut();
    answers_ = std::move(all);
    files_ = std::move(files);
    stored_.clear();
    showFiles();
    for (int row = 0; row < files_.size(); ++row)
        if (leftOut.contains(files_[row].path))
            ui_->Table1->item(row, FileName)->setCheckState(Qt::Unchecked);
}

// Of two files that answer the same, the user takes one off the list.
void 調査票::takeOff() {
    const int row = ui_->Table1->currentRow();
    const auto round = problemRound();
    if (row < 0 || row >= answers_.size() || !round) return;
    auto others = answers_;
    others.removeAt(row);
    others.removeIf([this](const Answers& answers) { return stored_.contains(answers.path); });
    hold(questionnaireOf(*round), std::move(others));
    say(u"一覧から外しました。"_s);
}

// Files that could be stored and are not to be.
QStringList 調査票::pathsLeftOut() const {
    QStringList paths;
    for (int row = 0; row < files_.size(); ++row) {
        const auto* item = ui_->Table1->item(row, FileName);
        if (item->flags().testFlag(Qt::ItemIsUserCheckable) && item->checkState() == Qt::Unchecked)
            paths << files_[row].path;
    }
    return paths;
}

void 調査票::showFiles() {
    ui_->Table1->setRowCount(static_cast<int>(files_.size()));
    for (int row = 0; row < ui_->Table1->rowCount(); ++row) showRow(row);
    ui_->Command7->setEnabled(std::ranges::any_of(files_, &CheckedAnswers::canBeStored));
    showDetails();
}

void 調査票::showRow(int row) {
    const auto& file = files_[row];
    const bool stored = stored_.contains(file.path);
    const auto set = [&](FileColumn column, const QString& text) {
        auto* item = new QTableWidgetItem(text);
        item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        item->setToolTip(plainToolTip(text));
        ui_->Table1->setItem(row, column, item);
        return item;
    };
    auto* name = set(FileName, QFileInfo(file.path).fileName());
    if (file.canBeStored() && !stored) {
        name->setFlags(name->flags() | Qt::ItemIsUserCheckable);
        name->setCheckState(Qt::Checked);
    }
    set(Evaluator, file.evaluator.number == 0
                       ? QString()
                       : u"%1 %2"_s.arg(file.evaluator.number).arg(file.evaluator.name));
    set(ProblemAndRound, file.problemAndRound);
    set(Goals, u"%1 / %2"_s.arg(file.complete.size()).arg(file.goals));
    set(State, stateOf(file, stored));
}

void 調査票::showDetails() {
    const int row = ui_->Table1->currentRow();
    if (row < 0 || row >= files_.size()) return ui_->Text1->clear();
    const auto& file = files_[row];
    ui_->Text1->setPlainText(
        (QStringList{file.path, completeLine(file)} + findingLines(file) + consistencyLines(file, false))
            .join(u'\n'));
}

QList<qsizetype> 調査票::checkedFiles() const {
    QList<qsizetype> files;
    for (int row = 0; row < files_.size(); ++row) {
        const auto* item = ui_->Table1->item(row, FileName);
        if (item->flags().testFlag(Qt::ItemIsUserCheckable) && item->checkState() == Qt::Checked)
            files.append(row);
    }
    return files;
}

// Answers given before are gone afterwards: the question names whose.
bool 調査票::mayReplace(const QList<qsizetype>& files) {
    QStringList names;
    for (const auto index : files)
        if (const auto& file = files_[index]; file.replaced > 0)
            names << u"%1 %2（%3 目的）"_s.arg(QString::number(file.evaluator.number), file.evaluator.name,
                                               QString::number(file.replaced));
    if (names.isEmpty()) return true;
    const auto count = names.size();
    if (count > mostNames) names = names.first(mostNames) << u"ほか %1 名"_s.arg(count - mostNames);
    return confirmDiscard(u"次の評価者の以前の回答を置き換えます。よろしいですか ？\n"_s + names.join(u'\n'));
}

void 調査票::Command7_Click() {
    const auto chosen = checkedFiles();
    if (chosen.isEmpty()) return refuseAt(ui_->Table1, u"登録する調査票が選ばれていません。"_s);
    if (!mayReplace(chosen)) return;
    const auto hideProgress = progressGuard();
    const auto tell = progress();
    const auto round = problemRound();
    if (!round) return;
    int done = 0;
    for (const auto index : chosen) {
        tell(done, static_cast<int>(chosen.size()), files_[index].evaluator.name);
        storeAnswers(*round, files_[index]);
        stored_ << files_[index].path;
        showRow(static_cast<int>(index));
        setDone(u"%1 件の調査票は登録しました。"_s.arg(++done));
    }
    ui_->Command7->setEnabled(!checkedFiles().isEmpty());
    const auto state = readRoundState(*round);
    say(u"%1 件の調査票を登録しました。"_s.arg(done) + state.line(), !state.isComplete());
}
