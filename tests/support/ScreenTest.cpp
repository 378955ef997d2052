#include "support/ScreenTest.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

#include "ScreenTable.h"
#include "core/Database.h"
#include "core/Schema.h"
#include "platform/ApplicationDirectory.h"
#include "platform/DatabaseFile.h"
#include "platform/Recordset.h"

using namespace Qt::StringLiterals;

std::ostream& operator<<(std::ostream& stream, const ShownMessage& message) {
    return stream << '[' << message.title.toStdString() << "] " << message.text.toStdString() << " ("
                  << static_cast<int>(message.style) << ')';
}

void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

ScreenTest::ScreenTest() {
    QDir(directory()).mkpath(u"DB"_s);
    QDir(directory()).mkpath(u"file"_s);
    createEncryptedDatabase(directory() + u"/DB/Hollin.mdb"_s, databasePassword);
    setApplicationDirectory(directory());
    Common::openDatabase(directory());
    createSchema(*Common::DbConn);
    Common::DbConn->endUnitOfWork();
    Common::Presenter = [this](const QString& text, const QString& title, MessageStyle style) {
        shown_.push_back({title, text, style});
        if (style != MessageStyle::Question) return MessageAnswer::Ok;
        if (answers.empty()) return MessageAnswer::Yes;
        const auto answer = answers.front();
        answers.pop_front();
        return answer;
    };
    fillScreenTable(Common::Forms);
}

ScreenTest::~ScreenTest() {
    Common::Forms.unloadAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Common::DbConn.reset();
}

// Left to the next action of a screen to make durable: waiting for the disk at each row would make up most of
// the time that the tests take.
void ScreenTest::run(const QString& sql) {
    Common::DbConn->execute(sql);
}

QStringList ScreenTest::rows(const QString& sql) {
    QStringList texts;
    for (Recordset records(sql, *Common::DbConn); !records.eof(); records.moveNext()) {
        QStringList fields;
        for (const auto& name : records.fieldNames())
            fields << (records[name].isNull() ? u"NULL"_s : records[name].toText());
        texts << fields.join(u'|');
    }
    return texts;
}

bool ScreenTest::hasFocus(const QString& screen, const QString& name) {
    return Common::Forms.find(screen)->focusWidget() == control(screen, name);
}

void ScreenTest::click(const QString& screen, const QString& button) {
    QTest::mouseClick(control<QAbstractButton>(screen, button), Qt::LeftButton);
}

void ScreenTest::type(const QString& screen, const QString& field, const QString& text) {
    auto* edit = control<QLineEdit>(screen, field);
    edit->selectAll();
    edit->insert(text); // key events carry one character each, and none outside the basic plane
}

QString ScreenTest::text(const QString& screen, const QString& field) {
    QWidget* found = control(screen, field);
    if (auto* edit = qobject_cast<QLineEdit*>(found)) return edit->text();
    if (auto* combo = qobject_cast<QComboBox*>(found)) return combo->currentText();
    if (auto* button = qobject_cast<QAbstractButton*>(found)) return button->text();
    return qobject_cast<QLabel*>(found)->text();
}

void ScreenTest::choose(const QString& screen, const QString& combo, int index) {
    auto* list = control<QComboBox>(screen, combo);
    list->setCurrentIndex(index);
    emit list->activated(index);
}

void ScreenTest::select(const QString& screen, const QString& list, const QList<int>& rows) {
    auto* box = control<QListWidget>(screen, list);
    box->clearSelection();
    for (const int row : rows) box->item(row)->setSelected(true);
}
