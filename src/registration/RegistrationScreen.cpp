#include "registration/RegistrationScreen.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "text/Numbers.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;
using Common::confirm;

RegistrationScreen::RegistrationScreen(const QString& name, QString list)
    : Screen(name), list_(std::move(list)) {}

void RegistrationScreen::Command4_Click() {
    Common::Forms.show(u"登録メニュー"_s);
    Common::Forms.unload(list_);
    Common::Forms.unload(name());
}

void RegistrationScreen::showList() {
    Common::Forms.show(list_);
    if (const Form* list = Common::Forms.find(list_)) stepAside(*list);
}

bool RegistrationScreen::refusedAt(QWidget* field, const QString& text) {
    refuseAt(field, text);
    return false;
}

bool RegistrationScreen::requireNumber(QLineEdit* field, const QString& text) {
    return isNumeric(field->text()) || refusedAt(field, text);
}

bool RegistrationScreen::requireNumberOrBlank(QLineEdit* field, const QString& text) {
    return field->text().trimmed().isEmpty() || requireNumber(field, text);
}

bool RegistrationScreen::requireText(QLineEdit* field, const QString& text) {
    return !field->text().trimmed().isEmpty() || refusedAt(field, text);
}

bool RegistrationScreen::mayWrite(const QString& question, const std::function<bool()>& check) {
    if (!confirm(question)) return false;
    Common::DbConn->beginUnitOfWork();
    return check();
}

void RegistrationScreen::sayDone(const QString& number, const QString& name, const QString& done) {
    for (auto* field : findChildren<QLineEdit*>()) field->setModified(false);
    sayOf({name}, [=](const QStringList& names) { return u"%1 '%2' を%3"_s.arg(number, names[0], done); });
}

void RegistrationScreen::clearFields() {
    for (auto* field : findChildren<QLineEdit*>()) {
        field->clear();
        field->setModified(false);
    }
}

void RegistrationScreen::fill(QLineEdit* field, const QString& text) {
    field->setText(joinedLines(text));
    field->home(false);
}

double RegistrationScreen::numberIn(const QLineEdit* field) {
    return leadingNumber(field->text());
}

qint32 RegistrationScreen::wholeNumberIn(const QLineEdit* field) {
    return toLong(leadingNumber(field->text()));
}
