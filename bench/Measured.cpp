#include "Measured.h"

#include <QDir>
#include <QFile>

#include "core/Common.h"
#include "core/Database.h"
#include "core/Schema.h"
#include "database/DatabaseFile.h"
#include "evaluation/LocalWeights.h"
#include "evaluation/Synthesis.h"
#include "rounds/EvaluatorRound.h"

using namespace Qt::StringLiterals;
using Common::DbConn;

bool isQuickRun() {
    return qEnvironmentVariableIsSet("HOLLIN_BENCH_QUICK");
}

MeasuredDirectory::MeasuredDirectory() {
    const QDir folder(path());
    folder.mkpath(u"DB"_s);
    folder.mkpath(u"file"_s);
    for (const auto& name : {u"errmsg.txt"_s, u"message.txt"_s})
        QFile::copy(QStringLiteral(HOLLIN_SHARE "/") + name, folder.filePath(u"file/"_s + name));
    createEncryptedDatabase(databasePath(), databasePassword);
    Common::openDatabase(path());
    createSchema(*DbConn);
}

MeasuredDirectory::~MeasuredDirectory() {
    DbConn.reset();
}

void MeasuredDirectory::keep() const {
    DbConn->endUnitOfWork();
    QFile::copy(databasePath(), databasePath() + u".kept"_s);
}

void MeasuredDirectory::restore() const {
    DbConn.reset();
    QFile::remove(databasePath());
    QFile::copy(databasePath() + u".kept"_s, databasePath());
    Common::openDatabase(path());
}

WorkloadDirectory::WorkloadDirectory(int count) : evaluators(count) {
    fillWorkload(*DbConn, evaluators);
    DbConn->endUnitOfWork();
}

ProblemRound WorkloadDirectory::round() const {
    return {*DbConn, Workload::problemNo, Workload::round};
}

void WorkloadDirectory::calculate() const {
    InconsistencyList findings;
    for (int evaluator = 1; evaluator <= evaluators; ++evaluator)
        calculateLocalWeights(evaluatorRound(round(), evaluator), findings);
    for (int evaluator = 1; evaluator <= evaluators; ++evaluator)
        synthesise(evaluatorRound(round(), evaluator));
    DbConn->endUnitOfWork();
}
