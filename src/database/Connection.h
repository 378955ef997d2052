// The connection to the password-protected database file.
#pragma once

#include <QString>
#include <initializer_list>
#include <memory>
#include <unordered_map>

#include "database/DatabaseEngine.h"
#include "database/Sql.h"
#include "text/Value.h"

struct sqlite3_stmt;

class Connection {
  public:
    static constexpr int clientSideCursors = 3;

    Connection() = default;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    void setCursorLocation(int location) { cursorLocation_ = location; }
    void setProvider(const QString& provider) { provider_ = provider; }
    void setConnectionString(const QString& text) { connectionString_ = text; }
    const QString& connectionString() const { return connectionString_; }

    // Opens the existing file named by "Data Source" with the password of the connection string, after cursor
    // location (client-side) and provider were set. User and password arguments must be empty, options −1
    // (unspecified). Raises a database error when the file is missing, is no database, is damaged, or the
    // password is wrong.
    void open(const QString& user, const QString& password, int options);
    bool isOpen() const { return database_ != nullptr; }
    // Ends the unit of work and releases the file.
    void close();

    // Runs one statement with a value for each "?". The first statement that writes opens a unit of work; its
    // rows are seen by every later statement at once and stay when a later statement fails.
    template <typename... Values>
    void execute(Sql sql, const Values&... values) {
        run(sql, {Value(values)...});
    }
    void execute(const SchemaSql& sql) { run(StatementText(sql.text), {}); }

    // Opens the unit of work before anything is written: what is looked up from here on, no other program
    // changes until it ends.
    void beginUnitOfWork();
    // Makes durable, all together, what was written since the last call; nothing to do is no error. When it
    // fails the database is as it was before the unit of work, and the error is raised.
    void endUnitOfWork();
    // Whether something has been written that is not durable yet.
    bool isInUnitOfWork() const;

  private:
    friend class Recordset;
    friend class RowReader;
    friend qint32 readNumber(Connection& connection, Sql sql, std::initializer_list<Value> values);
    friend void addRecord(Connection& connection, const QString& table, const NamedValues& fields);
    struct StatementCloser {
        void operator()(sqlite3_stmt* statement) const;
    };
    // Compiled statements by their text.
    using Statements = std::unordered_map<StatementText, std::unique_ptr<sqlite3_stmt, StatementCloser>,
                                          StatementText::Hash>;

    // A compiled statement in use; afterwards it goes back among those that wait.
    class Statement {
      public:
        Statement(Connection& connection, Statements::node_type compiled)
            : connection_(connection), compiled_(std::move(compiled)) {}
        Statement(Statement&&) = default;
        ~Statement();

        sqlite3_stmt* get() const { return compiled_.mapped().get(); }
        void bind(int parameter, const Value& value) const;

      private:
        Connection& connection_;
        Statements::node_type compiled_;
    };

    void run(const StatementText& sql, std::initializer_list<Value> values);
    // The statement with its values bound.
    Statement prepare(const StatementText& sql, std::initializer_list<Value> values);
    // The statement, compiled unless it waits, with `parameters` values to be bound.
    Statement take(const StatementText& sql, qsizetype parameters);
    Statements::node_type compile(const StatementText& sql) const;
    // One step; true while there is a row. Opens the unit of work before a statement that writes.
    bool step(const Statement& statement);
    static void endUnitOfWork(sqlite3* database);
    [[noreturn]] void fail(const QString& what) const;

    int cursorLocation_ = 0;
    QString provider_;
    QString connectionString_;
    Database database_;
    Statements waiting_;
};
