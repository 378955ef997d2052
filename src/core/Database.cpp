#include "core/Database.h"

#include "core/DatabaseVersion.h"
#include "database/Connection.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

void openDatabaseFile(Connection& connection, const QString& file, const QString& password) {
    connection.setCursorLocation(Connection::clientSideCursors);
    connection.setProvider(u"MSDataShape"_s);
    connection.setConnectionString(u"Data Provider=Microsoft.Jet.OLEDB.4.0; "_s + u"Data Source="_s + file +
                                   u";Persist Security Info=False;"_s + u"Jet OLEDB:Database Password="_s +
                                   password);
    connection.open({}, {}, -1);
    try {
        requireKnownVersion(connection, file);
    } catch (const RuntimeError&) {
        connection.close();
        throw;
    }
}
