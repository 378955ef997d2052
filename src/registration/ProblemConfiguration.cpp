#include "registration/ProblemConfiguration.h"

#include <QEvent>

#include "core/Common.h"
#include "core/Messages.h"
#include "database/Recordset.h"
#include "registration/ListDialogs.h"
#include "text/Numbers.h"
#include "ui_ProblemConfiguration.h"

using namespace Qt::StringLiterals;
using Common::DbConn;

課題構成登録::課題構成登録()
    : RegistrationScreen(u"課題構成登録"_s, u"課題候補表示"_s),
      ui_(std::make_unique<Ui::ProblemConfiguration>()) {
    ui_->setupUi(this);
    addStatusLine();
    ui_->Text1->installEventFilter(this);
    connect(ui_->Text1, &QLineEdit::textChanged, this, [this] { ui_->Label6->setWholeText({}); });
    onAction(ui_->Command1, u"登録"_s, [this] { Command1_Click(); });
    onAction(ui_->Command2, u"変更"_s, [this] { Command2_Click(); });
    onAction(ui_->Command3, u"表示"_s, [this] { Command3_Click(); });
    onEvent(ui_->Command4, &QPushButton::clicked, [this] { Command4_Click(); });
}

課題構成登録::~課題構成登録() = default;

void 課題構成登録::Form_Load() {
    centre();
    Common::MsgTitle = u"課題登録"_s; // users know the messages about problems under this title
    showList();
}

bool 課題構成登録::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui_->Text1 && event->type() == QEvent::MouseButtonDblClick)
        runEvent([this] { Text1_DblClick(); });
    return RegistrationScreen::eventFilter(watched, event);
}

// Takes over what was last picked in a list of problems.
void 課題構成登録::Text1_DblClick() {
    if (Common::PickCount == -1) return;
    Common::PickList.resize(static_cast<std::size_t>(Common::PickCount) + 1);
    ui_->Text1->setText(Common::PickList.back().number);
    ui_->Label6->setWholeText(Common::PickList.back().name);
}

void 課題構成登録::Command1_Click() {
    if (!problemCanBeConfigured() || !settingsAreNumbers()) return;
    const auto isFree = [this] {
        const Recordset same(*DbConn, u"SELECT * FROM 課題 WHERE 課題番号 = ?", numberIn(ui_->Text1));
        return same.eof() || refusedAt(ui_->Text1, u"'%1' は既に存在します。"_s.arg(ui_->Text1->text()));
    };
    // The factor may have become no problem meanwhile.
    if (!isFree() || !mayWrite(u"登録しますか ？"_s, [&] { return problemCanBeConfigured() && isFree(); }))
        return;
    addProblem();
    const QString name = problemName();
    Common::makeDurable();
    goTo(ui_->Text1);
    sayDone(shownNumber(), name, u"登録しました。"_s);
}

bool 課題構成登録::problemCanBeConfigured() {
    if (!requireNumber(ui_->Text1, u"課題番号が不正です。"_s)) return false;
    const double number = numberIn(ui_->Text1);
    if (Recordset(*DbConn, u"SELECT * FROM 要因 WHERE 要因番号 = ?", number).eof())
        return refusedAt(ui_->Text1,
                         u"課題番号 '%1' は要因テーブルに存在しません。"_s.arg(ui_->Text1->text()));
    if (Recordset(*DbConn, u"SELECT * FROM 要因 WHERE 要因番号 = ? AND 要因区分 = 0 ", number).eof())
        return refusedAt(ui_->Text1, u"課題番号 '%1' は課題要因として要因テーブルに存在しません。"_s.arg(
                                         ui_->Text1->text()));
    return true;
}

// Levels and branches may be left empty, which stores 0.
bool 課題構成登録::settingsAreNumbers() {
    return requireNumber(ui_->Text2, u"課題区分が不正です。"_s) &&
           requireNumberOrBlank(ui_->Text3, u"構成レベルが不正です。"_s) &&
           requireNumberOrBlank(ui_->Text4, u"最大分岐数が不正です。"_s) &&
           requireNumber(ui_->Text5, u"比較回数が不正です。"_s);
}

void 課題構成登録::addProblem() {
    addRecord(*DbConn, u"課題"_s,
              {{u"課題番号"_s, wholeNumberIn(ui_->Text1)},
               {u"課題区分"_s, wholeNumberIn(ui_->Text2)},
               {u"構成レベル"_s, wholeNumberIn(ui_->Text3)},
               {u"最大分岐数"_s, wholeNumberIn(ui_->Text4)},
               {u"比較回数"_s, wholeNumberIn(ui_->Text5)}});
}

// A configured problem can be changed whatever has become of its factor, so only its own row is looked for.
void 課題構成登録::Command2_Click() {
    if (!settingsAreNumbers()) return;
    const double number = numberIn(ui_->Text1);
    const auto exists = [this, number] {
        const Recordset stored(*DbConn, u"SELECT * FROM 課題 WHERE 課題番号 = ?", number);
        if (stored.eof()) refuseMissingProblem();
        return !stored.eof();
    };
    if (!exists()) return;
    const qint32 problemClass = wholeNumberIn(ui_->Text2);
    const qint32 levels = wholeNumberIn(ui_->Text3);
    const qint32 branches = wholeNumberIn(ui_->Text4);
    const qint32 round = wholeNumberIn(ui_->Text5);
    if (!mayWrite(u"変更しますか ？"_s, exists)) return;
    DbConn->execute(
        u"UPDATE 課題 SET 課題区分 = ?, 構成レベル = ?, 最大分岐数 = ?, 比較回数 = ? WHERE 課題番号 = ?",
        problemClass, levels, branches, round, number);
    const QString name = problemName();
    Common::makeDurable();
    sayDone(shownNumber(), name, u"変更しました。"_s);
    clearFields();
    goTo(ui_->Text1);
}

void 課題構成登録::Command3_Click() {
    const Recordset problem(
        *DbConn,
        u"SELECT T1.課題番号,T1.課題区分,T2.要因名,T1.構成レベル,T1.最大分岐数,T1.比較回数 "
        "FROM 課題 T1,要因 T2 WHERE T1.課題番号 = ? AND T1.課題番号 = T2.要因番号 ",
        numberIn(ui_->Text1));
    if (problem.eof()) return refuseMissingProblem();
    fill(ui_->Text2, Common::NullToZero(problem[u"課題区分"_s]).toText());
    fill(ui_->Text3, Common::NullToZero(problem[u"構成レベル"_s]).toText());
    fill(ui_->Text4, Common::NullToZero(problem[u"最大分岐数"_s]).toText());
    ui_->Label6->setWholeText(Common::NullToEmpty(problem[u"要因名"_s]));
    fill(ui_->Text5, Common::NullToZero(problem[u"比較回数"_s]).toText());
    goTo(ui_->Text2);
    sayDone(shownNumber(), ui_->Label6->text(), u"表示しました。"_s);
}

// A configured problem may have lost its factor.
QString 課題構成登録::problemName() const {
    const Recordset factor(*DbConn, u"SELECT 要因名 FROM 要因 WHERE 要因番号 = ?", numberIn(ui_->Text1));
    return factor.eof() ? QString() : Common::NullToEmpty(factor[u"要因名"_s]);
}

QString 課題構成登録::shownNumber() const {
    return formatNumber(leadingNumber(ui_->Text1->text()), u"0000"_s);
}

void 課題構成登録::refuseMissingProblem() {
    refuseAt(ui_->Text1, u"課題番号 '%1' は存在しません。"_s.arg(ui_->Text1->text()));
}
