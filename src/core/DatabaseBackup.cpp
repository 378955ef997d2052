#include "core/DatabaseBackup.h"

#include "core/Database.h"
#include "core/Schema.h"
#include "platform/Connection.h"
#include "platform/DatabaseFile.h"
#include "platform/RuntimeError.h"

QStringList faultsOfDatabase(const QString& file) {
    QStringList faults = databaseFaults(file, databasePassword);
    if (!faults.isEmpty()) return faults;
    Connection connection;
    openDatabaseFile(connection, file);
    return missingFromSchema(connection);
}

void backUpDatabase(const QString& file, const QString& copy) {
    NewFile target(copy);
    copyDatabase(file, target.temporaryPath(), databasePassword);
    const QStringList faults = faultsOfDatabase(target.temporaryPath());
    if (!faults.isEmpty()) throw RuntimeError(ErrorCode::FileAccess, faults.join(u'\n'));
    target.publish();
}
