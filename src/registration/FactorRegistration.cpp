#include "registration/FactorRegistration.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "database/Recordset.h"
#include "text/Numbers.h"
#include "ui_FactorRegistration.h"

using namespace Qt::StringLiterals;
using Common::DbConn;
using Common::refuse;

namespace {

constexpr FactorScreenKind factors{u"要因登録", u"要因番号", u"要因表示",
                                   u"1 以上の数（ふつうは 1）。0 は課題です", false};
constexpr FactorScreenKind problems{u"課題登録", u"課題要因番号", u"課題要因表示", u"課題は 0 です", true};

// One past the highest number of all factors, problems or not.
QString proposedNumber() {
    if (Recordset(*DbConn, u"SELECT * FROM 要因 ").eof()) return u"0001"_s;
    const Recordset highest(*DbConn, u"SELECT MAX(要因番号) as MAX_要因番号 FROM 要因 ");
    return digitsAfterFirst(10000 + (highest[u"MAX_要因番号"_s].toLong() + 1LL), 4);
}

QString shownNumber(double number) {
    return formatNumber(number, u"0000"_s);
}

// Both screens close the list of all factors, so that it is rebuilt when it is next opened. The list of
// problems stays as it is until its screen is left.
void closeFactorList() {
    Common::Forms.unload(factors.list.toString());
}

} // namespace

FactorRegistration::FactorRegistration(const FactorScreenKind& kind)
    : RegistrationScreen(kind.name.toString(), kind.list.toString()),
      kind_(kind),
      ui_(std::make_unique<Ui::FactorRegistration>()) {
    ui_->setupUi(this);
    addStatusLine();
    setWindowTitle(name());
    ui_->Label1->setText(kind.numberLabel.toString());
    ui_->Hint2->setText(kind.classHint.toString());
    onAction(ui_->Command1, u"登録"_s, [this] { Command1_Click(); });
    onAction(ui_->Command2, u"変更"_s, [this] { Command2_Click(); });
    onAction(ui_->Command3, u"表示"_s, [this] { Command3_Click(); });
    onEvent(ui_->Command4, &QPushButton::clicked, [this] { Command4_Click(); });
}

FactorRegistration::~FactorRegistration() = default;

void FactorRegistration::Form_Load() {
    Common::MsgTitle = windowTitle();
    centre();
    ui_->Text1->setText(proposedNumber());
    ui_->Text2->setFocus(); // the number is there already
    showList();
}

void FactorRegistration::Command1_Click() {
    if (!canRegister()) return;
    const qint16 number = toInteger(leadingNumber(ui_->Text1->text()));
    const auto isFree = [this, number] { return isFreeNumber(number); };
    if (!isFree() || !mayWrite(u"登録しますか ？"_s, isFree)) return;
    addFactor(number);
    const QString next = proposedNumber();
    Common::makeDurable();
    goTo(ui_->Text1);
    closeFactorList();
    sayDone(shownNumber(number), ui_->Text3->text(), u"登録しました。次の番号は %1 です。"_s.arg(next));
}

bool FactorRegistration::isFreeNumber(qint16 number) {
    const Recordset same(*DbConn, u"SELECT 要因名 FROM 要因 WHERE 要因番号 = ?", number);
    if (!same.eof()) refuse(u"要因番号 '%1' 既に存在します。"_s.arg(ui_->Text1->text()));
    return same.eof();
}

bool FactorRegistration::canRegister() {
    if (!requireNumber(ui_->Text1, u"要因番号が不正です。"_s)) return false;
    if (!requireNumber(ui_->Text2, u"要因区分が不正です。"_s)) return false;
    return !kind_.registersProblems || leadingNumber(ui_->Text2->text()) == 0 ||
           refusedAt(ui_->Text2, u"要因区分が不正です。"_s);
}

void FactorRegistration::addFactor(qint16 number) {
    addRecord(*DbConn, u"要因"_s,
              {{u"要因番号"_s, number},
               {u"要因区分"_s, wholeNumberIn(ui_->Text2)},
               {u"要因名"_s, ui_->Text3->text()},
               {u"要因内容"_s, ui_->Text4->text()}});
}

// A problem may become an ordinary factor here, so its class is not looked at.
void FactorRegistration::Command2_Click() {
    if (!requireNumber(ui_->Text2, u"要因区分が不正です。"_s)) return;
    if (!requireText(ui_->Text3, u"要因名が不正です。"_s)) return;
    const auto exists = [this] { return factorExists(); };
    if (!exists()) return;
    const qint32 factorClass = wholeNumberIn(ui_->Text2);
    if (!mayWrite(u"変更しますか ？"_s, exists)) return;
    DbConn->execute(u"UPDATE 要因 SET 要因区分 = ?, 要因名 = ?, 要因内容 = ? WHERE 要因番号 = ?", factorClass,
                    ui_->Text3->text(), ui_->Text4->text(), numberIn(ui_->Text1));
    Common::makeDurable();
    sayDone(shownNumber(leadingNumber(ui_->Text1->text())), ui_->Text3->text(), u"変更しました。"_s);
    clearFields();
    goTo(ui_->Text1);
    closeFactorList();
}

void FactorRegistration::Command3_Click() {
    const Recordset factor(*DbConn, u"SELECT * FROM 要因 WHERE 要因番号 = ?", numberIn(ui_->Text1));
    if (factor.eof()) return refuseMissingFactor();
    fill(ui_->Text2, Common::NullToEmpty(factor[u"要因区分"_s]));
    fill(ui_->Text3, Common::NullToEmpty(factor[u"要因名"_s]));
    fill(ui_->Text4, Common::NullToEmpty(factor[u"要因内容"_s]));
    goTo(ui_->Text3);
    sayDone(shownNumber(factor[u"要因番号"_s].toLong()), ui_->Text3->text(), u"表示しました。"_s);
}

bool FactorRegistration::factorExists() {
    const Recordset stored(*DbConn, u"SELECT * FROM 要因 WHERE 要因番号 = ?", numberIn(ui_->Text1));
    if (stored.eof()) refuseMissingFactor();
    return !stored.eof();
}

void FactorRegistration::refuseMissingFactor() {
    refuseAt(ui_->Text1, u"要因番号 '%1' は存在しません。"_s.arg(ui_->Text1->text()));
}

要因登録::要因登録() : FactorRegistration(factors) {}

課題登録::課題登録() : FactorRegistration(problems) {}
