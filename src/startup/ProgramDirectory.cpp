#include "startup/ProgramDirectory.h"

#include <QDir>
#include <QFile>

#include "core/Database.h"
#include "core/Schema.h"
#include "database/Connection.h"
#include "database/DatabaseFile.h"
#include "files/NewFile.h"
#include "startup/Resources.h"
#include "startup/SampleProblem.h"

using namespace Qt::StringLiterals;

namespace {

QString databaseOf(const QString& directory) {
    return directory + u"/DB/Hollin.mdb"_s;
}

void createFolder(const QString& path) {
    if (!QDir().mkpath(path))
        throw RuntimeError(ErrorCode::FileAccess, u"フォルダーを作成できません。\n%1"_s.arg(path));
}

void createMessageFile(const QString& path, const QString& resource) {
    if (QFile::exists(path)) return;
    QFile source(resource);
    if (!source.copy(path))
        throw RuntimeError(ErrorCode::FileAccess,
                           u"ファイルを作成できません。(%1)\n%2"_s.arg(source.errorString(), path));
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
}

} // namespace

void createDatabase(const QString& file, Contents contents) {
    NewFile created(nameOfNewDatabase(file));
    createEncryptedDatabase(created.temporaryPath(), databasePassword);
    Connection connection;
    openDatabaseFile(connection, created.temporaryPath());
    createSchema(connection);
    if (contents == Contents::Sample)
        addProblem(connection, sampleProblem());
    else // the evaluator screen proposes the number after the greatest one, so there has to be one
        connection.execute(u"INSERT INTO 評価者 (評価者番号,評価者氏名,所属部門) VALUES (1,'評価者１','')");
    connection.close();
    created.publish();
}

bool hasDatabase(const QString& directory) {
    return QFile::exists(databaseOf(directory));
}

void createMessageFiles(const QString& directory) {
    loadStartupResources();
    createFolder(directory + u"/file"_s);
    for (const auto& name : {u"errmsg.txt"_s, u"message.txt"_s, u"questions.txt"_s, u"survey.txt"_s})
        createMessageFile(directory + u"/file/"_s + name, u":/startup/"_s + name);
}

void createProgramDirectory(const QString& directory, Contents contents) {
    createFolder(directory + u"/DB"_s);
    createMessageFiles(directory);
    createDatabase(databaseOf(directory), contents);
}
