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
        expectDurable();
        if (!isQuestion(style)) return MessageAnswer::Ok;
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

void ScreenTest::structure(const QString& tree, int problem) {
    for (const auto& family : tree.split(u' ')) {
        const auto children = family.section(u':', 1).split(u',');
        for (int order = 1; const auto& child : children) {
            const QString number = child.section(u'@', 0, 0);
            const bool filled = tree.contains(u' ' + number + u':');
            run(u"insert into 要因構成 values(%1,%2,%3,%4,'%5')"_s.arg(problem)
                    .arg(family.section(u':', 0, 0), number)
                    .arg(child.contains(u'@') ? child.section(u'@', 1).toInt() : order)
                    .arg(filled ? 1 : 0));
            ++order;
        }
    }
}

void ScreenTest::evaluators(const QList<int>& numbers) {
    for (const int number : numbers) {
        run(u"insert into 評価者 values(%1,'評価者%1','')"_s.arg(number));
        run(u"insert into 課題評価者 values(1,%1,'')"_s.arg(number));
    }
}

double ScreenTest::scaleValue(const QString& text) {
    return static_cast<double>(text.startsWith(u"1/") ? 1.0F / text.mid(2).toFloat() : text.toFloat());
}

void ScreenTest::compare(int goal, const QList<int>& children, const QString& scales, int evaluator,
                         int round) {
    const auto texts = scales.split(u' ');
    for (int source = 0, pair = 0; source < children.size(); ++source)
        for (int target = source + 1; target < children.size(); ++target, ++pair) {
            run(u"insert into 一対比較 values(1,%1,%2,%3,%4,%5,'2026/04/01',%6,%7)"_s.arg(goal)
                    .arg(children[source])
                    .arg(children[target])
                    .arg(evaluator)
                    .arg(round)
                    .arg(pair + 1)
                    .arg(scaleValue(texts[pair]), 0, 'g', 17));
        }
}

void ScreenTest::expectDurable() {
    EXPECT_FALSE(Common::DbConn->isInUnitOfWork()) << "what was written is not on the disk";
}

std::unique_ptr<Connection> ScreenTest::otherProgram(const QStringList& statements) {
    Common::makeDurable();
    Common::DbConn->execute(u"PRAGMA busy_timeout = 0"_s);
    auto other = std::make_unique<Connection>();
    openDatabaseFile(*other, directory() + u"/DB/Hollin.mdb"_s);
    for (const auto& statement : statements) other->execute(statement);
    return other;
}

bool ScreenTest::hasFocus(QStringView screen, QStringView name) {
    return Common::Forms.find(screen.toString())->focusWidget() == control(screen, name);
}

void ScreenTest::click(QStringView screen, QStringView button) {
    QTest::mouseClick(control<QAbstractButton>(screen, button), Qt::LeftButton);
    expectDurable();
}

void ScreenTest::type(QStringView screen, QStringView field, QStringView text) {
    auto* edit = control<QLineEdit>(screen, field);
    edit->selectAll();
    edit->insert(text.toString()); // key events carry one character each, and none outside the basic plane
}

QString ScreenTest::text(QStringView screen, QStringView field) {
    QWidget* found = control(screen, field);
    if (auto* edit = qobject_cast<QLineEdit*>(found)) return edit->text();
    if (auto* combo = qobject_cast<QComboBox*>(found)) return combo->currentText();
    if (auto* button = qobject_cast<QAbstractButton*>(found)) return button->text();
    return qobject_cast<QLabel*>(found)->text();
}

void ScreenTest::choose(QStringView screen, QStringView combo, int index) {
    auto* list = control<QComboBox>(screen, combo);
    list->setCurrentIndex(index);
    emit list->activated(index);
    expectDurable();
}

void ScreenTest::select(QStringView screen, QStringView list, const QList<int>& rows) {
    auto* box = control<QListWidget>(screen, list);
    box->clearSelection();
    for (const int row : rows) box->item(row)->setSelected(true);
}
