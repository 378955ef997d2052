#include "core/DatabaseVersion.h"

#include <array>

#include "database/Connection.h"
#include "database/Recordset.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

// One statement on the way to a version; the last of each writes the version itself.
struct Step {
    int version;
    Sql statement;
};

constexpr std::array steps{
    // Copies of files with a later cipher lost their version; they have the tables of the first.
    Step{1, u"PRAGMA user_version = 1"},
};

} // namespace

const int newestVersion = steps.back().version;

int databaseVersion(Connection& connection) {
    return readNumber(connection, u"PRAGMA user_version");
}

void requireKnownVersion(Connection& connection, const QString& file) {
    if (databaseVersion(connection) <= newestVersion) return;
    throw RuntimeError(
        ErrorCode::Database,
        u"このデータベースは、もっと新しい版の Hollin のものです。新しい版のプログラムで開いてください。\n%1"_s
            .arg(file));
}

void upgradeTables(Connection& connection) {
    const int version = databaseVersion(connection);
    for (const auto& step : steps)
        if (step.version > version) connection.execute(step.statement);
}
