// hollin_workload FILE [EVALUATORS]: makes a database file with the large problem of the benchmarks.
#include <QString>
#include <cstdio>

#include "Workload.h"
#include "core/Database.h"
#include "core/Schema.h"
#include "database/Connection.h"
#include "database/DatabaseFile.h"
#include "files/NewFile.h"

int main(int argc, char* argv[]) {
    if (argc < 2 || argc > 3) {
        std::fputs("hollin_workload FILE [EVALUATORS]\n", stderr);
        return 2;
    }
    const auto path = QString::fromLocal8Bit(argv[1]);
    const int evaluators = argc > 2 ? QString::fromLocal8Bit(argv[2]).toInt() : Workload::mostEvaluators;
    try {
        NewFile file(path);
        createEncryptedDatabase(file.temporaryPath(), databasePassword);
        Connection connection;
        openDatabaseFile(connection, file.temporaryPath());
        createSchema(connection);
        fillWorkload(connection, evaluators);
        connection.close();
        file.publish();
        return 0;
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "%s\n", error.description().toLocal8Bit().constData());
        return 1;
    }
}
