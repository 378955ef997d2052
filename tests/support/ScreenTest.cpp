#include "support/ScreenTest.h"

#include <sqlcipher/sqlite3.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QTest>
#include <set>

#include "ScreenTable.h"
#include "core/Database.h"
#include "core/Schema.h"
#include "database/DatabaseFile.h"
#include "database/Recordset.h"
#include "files/ApplicationDirectory.h"

using namespace Qt::StringLiterals;

std::ostream& operator<<(std::ostream& stream, const ShownMessage& message) {
    return stream << '[' << message.title.toStdString() << "] " << message.text.toStdString() << " ("
                  << static_cast<int>(message.style) << ')';
}

void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

namespace {

// The statements that screens ran by going through a whole table, or through an index made for the purpose,
// or that empty a table, while a watch stands. Tests write and read rows of their own without one.
class StatementWatch {
  public:
    StatementWatch() { ++watches; }
    StatementWatch(const StatementWatch&) = delete;
    StatementWatch& operator=(const StatementWatch&) = delete;
    ~StatementWatch() { --watches; }

    static void begin() { sqlite3_auto_extension(reinterpret_cast<void (*)()>(follow)); }
    static std::set<QString> taken() { return std::exchange(scanning, {}); }

  private:
    static int follow(sqlite3* database, char** /*error*/, const sqlite3_api_routines* /*routines*/) {
        return sqlite3_trace_v2(database, SQLITE_TRACE_PROFILE, look, nullptr);
    }
    static int look(unsigned /*event*/, void* /*context*/, void* finished, void* /*nanoseconds*/) {
        auto* statement = static_cast<sqlite3_stmt*>(finished);
        const bool scans = sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_FULLSCAN_STEP, 1) +
                               sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_AUTOINDEX, 1) >
                           0;
        const auto text = QString::fromUtf8(sqlite3_sql(statement)).trimmed();
        const bool empties = text.startsWith(u"delete", Qt::CaseInsensitive) &&
                             !text.contains(u"where", Qt::CaseInsensitive); // takes no steps
        if ((scans || empties) && watches > 0) scanning.insert(text);
        return SQLITE_OK;
    }

    static inline int watches = 0;
    static inline std::set<QString> scanning;
};

// A list that is shown whole, or the work tables and the displayed structure, which are read or emptied
// whole.
bool mayScan(const QString& statement) {
    static const QRegularExpression whole(
        u"^select .* from (要因|評価者)( +order by .*)?$|WHERE T1.課題番号 = T2.要因番号|^delete from "
        u"構成表示$|"
        "from (tempfac|workfac)( t1)?+( (where child|order|group)|$)"_s,
        QRegularExpression::CaseInsensitiveOption);
    return whole.match(statement).hasMatch();
}

} // namespace

ScreenTest::ScreenTest() {
    StatementWatch::begin();
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
        if (!writtenMeanwhile.isEmpty()) otherProgram(std::exchange(writtenMeanwhile, {}));
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
    for (const auto& statement : StatementWatch::taken())
        EXPECT_TRUE(mayScan(statement)) << "goes through a whole table: " << statement.toStdString();
}

// Left to the next action of a screen to make durable: waiting for the disk at each row would make up most of
// the time that the tests take.
void ScreenTest::run(const QString& sql) {
    Common::DbConn->execute(SchemaSql{sql});
}

QStringList ScreenTest::rows(const QString& sql) {
    QStringList texts;
    for (Recordset records(*Common::DbConn, SchemaSql{sql}); !records.eof(); records.moveNext()) {
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
    Common::DbConn->execute(u"PRAGMA busy_timeout = 0");
    auto other = std::make_unique<Connection>();
    openDatabaseFile(*other, directory() + u"/DB/Hollin.mdb"_s);
    for (const auto& statement : statements) other->execute(SchemaSql{statement});
    return other;
}

bool ScreenTest::hasFocus(QStringView screen, QStringView name) {
    return Common::Forms.find(screen.toString())->focusWidget() == control(screen, name);
}

void ScreenTest::click(QStringView screen, QStringView button) {
    const StatementWatch watch;
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
    const StatementWatch watch;
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
