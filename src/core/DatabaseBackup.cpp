#include "core/DatabaseBackup.h"

#include <QFileInfo>
#include <functional>

#include "core/Database.h"
#include "core/DatabaseVersion.h"
#include "core/Schema.h"
#include "database/Connection.h"
#include "database/DatabaseFile.h"
#include "files/NewFile.h"
#include "files/TextFile.h"

using namespace Qt::StringLiterals;

namespace {

// Empty when the file is sound. The first fault tells most: the engine lists page by page what follows from
// it.
QString faultIn(const QString& file) {
    if (const QStringList faults = databaseFaults(file, databasePassword); !faults.isEmpty())
        return faults.constFirst();
    Connection connection;
    openDatabaseFile(connection, file);
    return missingFromSchema(connection).join(u'\n');
}

// The engine's words on copying do not say where the file is damaged.
QString whyUnreadable(const QString& file, const RuntimeError& error) {
    try {
        const QString fault = faultIn(file);
        return fault.isEmpty() ? error.description() : fault;
    } catch (const RuntimeError&) {
        return error.description();
    }
}

// Copies the file, changes the copy, and looks whether it is sound before it gets its name.
void makeCopy(const QString& file, const QString& copy, const std::function<void(Connection&)>& change) {
    removeAbandonedFiles(QFileInfo(nativePath(copy)).path());
    NewFile target(nameOfNewDatabase(copy));
    const auto failed = [&](const QString& why) {
        return RuntimeError(ErrorCode::Database,
                            u"データベースの控えを作れません。\n%1 → %2\n%3"_s.arg(file, copy, why));
    };
    try {
        copyDatabase(file, target, databasePassword);
        Connection made;
        openDatabaseFile(made, target.temporaryPath());
        change(made);
        made.close();
    } catch (const RuntimeError& error) {
        throw failed(whyUnreadable(file, error));
    }
    if (const QString fault = faultIn(target.temporaryPath()); !fault.isEmpty()) throw failed(fault);
    target.publish();
}

} // namespace

void requireSoundDatabase(const QString& file) {
    removeColdJournal(file, databasePassword);
    if (const QString fault = faultIn(file); !fault.isEmpty())
        throw RuntimeError(ErrorCode::Database, u"データベースに誤りがあります: %1\n%2"_s.arg(file, fault));
}

void backUpDatabase(const QString& file, const QString& copy) {
    makeCopy(file, copy, [](Connection&) {});
}

bool upgradeDatabase(const QString& file, const QString& copy) {
    Connection connection;
    openDatabaseFile(connection, file);
    if (databaseVersion(connection) == newestVersion) return false;
    connection.close();
    makeCopy(file, copy, upgradeTables);
    return true;
}
