#include "registration/EvaluatorRegistration.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "database/Recordset.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"
#include "ui_EvaluatorRegistration.h"

using namespace Qt::StringLiterals;
using Common::DbConn;
using Common::refuse;

namespace {

// The highest number of an empty table is null, and null has no successor: error 94.
QString proposedNumber() {
    const Recordset highest(*DbConn, u"SELECT MAX(評価者番号) as MAX_評価者番号 FROM 評価者 ");
    if (highest.eof()) return u"001"_s;
    return digitsAfterFirst(1000 + (highest[u"MAX_評価者番号"_s].toLong() + 1LL), 3);
}

QString shownNumber(double number) {
    return formatNumber(number, u"000"_s);
}

} // namespace

評価者登録::評価者登録()
    : RegistrationScreen(u"評価者登録"_s, u"評価者表示"_s),
      ui_(std::make_unique<Ui::EvaluatorRegistration>()) {
    ui_->setupUi(this);
    addStatusLine();
    onAction(ui_->Command1, u"登録"_s, [this] { Command1_Click(); });
    onAction(ui_->Command2, u"変更"_s, [this] { Command2_Click(); });
    onAction(ui_->Command3, u"表示"_s, [this] { Command3_Click(); });
    onEvent(ui_->Command4, &QPushButton::clicked, [this] { Command4_Click(); });
}

評価者登録::~評価者登録() = default;

void 評価者登録::Form_Load() {
    centre();
    Common::MsgTitle = windowTitle();
    Common::EvaluatorLoadFailed = 0;
    try {
        ui_->Text1->setText(proposedNumber());
        ui_->Text3->setFocus(); // the number is there already
        showList();
    } catch (const RuntimeError& error) {
        Common::MsgText = error.description();
        Common::showMessage(MessageStyle::Exclamation,
                            QString::number(error.number()) + u"評価者テーブルエラー"_s);
        Common::EvaluatorLoadFailed = 1;
    }
    // The list tells its own failure; it must not stay open alone when this screen closes again.
    if (Common::EvaluatorLoadFailed != 0) Common::Forms.unload(list());
}

void 評価者登録::Command1_Click() {
    if (!requireNumber(ui_->Text1, u"評価者番号が不正です。"_s)) return;
    if (!requireText(ui_->Text3, u"評価者氏名が不正です。"_s)) return;
    const qint32 number = wholeNumberIn(ui_->Text1);
    const auto isFree = [this, number] { return isFreeNumber(number); };
    if (!isFree() || !mayWrite(u"登録しますか ？"_s, isFree)) return;
    addEvaluator(number);
    const QString next = proposedNumber();
    Common::makeDurable();
    goTo(ui_->Text1);
    Common::Forms.unload(list());
    sayDone(shownNumber(number), ui_->Text3->text(), u"登録しました。次の番号は %1 です。"_s.arg(next));
}

bool 評価者登録::isFreeNumber(qint32 number) {
    const Recordset same(*DbConn, u"SELECT 評価者氏名 FROM 評価者 WHERE 評価者番号 = ?", number);
    if (!same.eof()) refuse(u"評価者番号 '%1' 既に存在します。"_s.arg(ui_->Text1->text()));
    return same.eof();
}

void 評価者登録::addEvaluator(qint32 number) {
    addRecord(*DbConn, u"評価者"_s,
              {{u"評価者番号"_s, number},
               {u"評価者氏名"_s, ui_->Text3->text()},
               {u"所属部門"_s, ui_->Text4->text()}});
}

void 評価者登録::Command2_Click() {
    if (!requireText(ui_->Text3, u"評価者氏名が不正です。"_s)) return;
    const double number = numberIn(ui_->Text1);
    const auto exists = [this, number] {
        const Recordset stored(*DbConn, u"SELECT * FROM 評価者 WHERE 評価者番号 = ?", number);
        if (stored.eof()) refuseMissingEvaluator();
        return !stored.eof();
    };
    if (!exists() || !mayWrite(u"変更しますか ？"_s, exists)) return;
    DbConn->execute(u"UPDATE 評価者 SET 評価者氏名 = ?, 所属部門 = ? WHERE 評価者番号 = ?",
                    ui_->Text3->text(), ui_->Text4->text(), number);
    Common::makeDurable();
    sayDone(shownNumber(leadingNumber(ui_->Text1->text())), ui_->Text3->text(), u"変更しました。"_s);
    clearFields();
    goTo(ui_->Text1);
    Common::Forms.unload(list());
}

void 評価者登録::Command3_Click() {
    const Recordset evaluator(*DbConn, u"SELECT * FROM 評価者 WHERE 評価者番号 = ?", numberIn(ui_->Text1));
    if (evaluator.eof()) return refuseMissingEvaluator();
    fill(ui_->Text3, Common::NullToEmpty(evaluator[u"評価者氏名"_s]));
    fill(ui_->Text4, Common::NullToEmpty(evaluator[u"所属部門"_s]));
    goTo(ui_->Text3);
    sayDone(shownNumber(evaluator[u"評価者番号"_s].toLong()), ui_->Text3->text(), u"表示しました。"_s);
}

void 評価者登録::refuseMissingEvaluator() {
    refuseAt(ui_->Text1, u"評価者番号 '%1' は存在しません。"_s.arg(ui_->Text1->text()));
}
