// hollin-database: makes, verifies and copies the database file. Exit code 0, 1 when it failed or found
// faults, 2 for wrong usage.
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>
#include <array>
#include <string_view>

#include "core/Database.h"
#include "core/DatabaseBackup.h"
#include "core/Schema.h"
#include "database/Connection.h"
#include "database/Recordset.h"
#include "startup/ProgramDirectory.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

enum ExitCode { success = 0, failure = 1, wrongUsage = 2 };

constexpr std::u16string_view usage =
    u"使い方:\n"
    u"  hollin-database create FILE [--sample]  データベースを作成します。--sample "
    u"を付けると例題を入れます。\n"
    u"  hollin-database check FILE              データベースに誤りがないか調べます。\n"
    u"  hollin-database backup FILE COPY        データベースの控えを作ります。使用中でも作れます。\n"
    u"  hollin-database upgrade FILE COPY       古い版のデータベースから、今の版のものを作ります。\n"
    u"既にあるファイルには上書きしません。";

void say(const QString& text) {
    QTextStream(stdout) << text << Qt::endl;
}

void complain(const QString& text) {
    QTextStream(stderr) << u"hollin-database: "_s << text << Qt::endl;
}

int create(const QStringList& files, bool withSample) {
    createDatabase(files[0], withSample ? Contents::Sample : Contents::Empty);
    say(u"データベースを作成しました: %1"_s.arg(files[0]));
    return success;
}

void sayRowCounts(const QString& file) {
    Connection connection;
    openDatabaseFile(connection, file);
    for (const auto& table : schemaTables()) {
        const Recordset count(connection, SchemaSql{u"SELECT count(*) AS 行数 FROM %1"_s.arg(table.name)});
        say(u"  %1: %2 行"_s.arg(table.name, count[u"行数"_s].toText()));
    }
}

int check(const QStringList& files, bool) {
    requireSoundDatabase(files[0]);
    say(u"データベースに誤りはありません: %1"_s.arg(files[0]));
    sayRowCounts(files[0]);
    return success;
}

int backup(const QStringList& files, bool) {
    backUpDatabase(files[0], files[1]);
    say(u"控えを作成しました: %1"_s.arg(files[1]));
    return success;
}

int upgrade(const QStringList& files, bool) {
    say(upgradeDatabase(files[0], files[1])
            ? u"今の版のデータベースを作成しました: %1"_s.arg(files[1])
            : u"今の版のデータベースです。変えるものはありません: %1"_s.arg(files[0]));
    return success;
}

struct Command {
    std::u16string_view name;
    int files;
    bool takesSample;
    int (*run)(const QStringList& files, bool withSample);
};
constexpr std::array commands{
    Command{u"create", 1, true, create},
    Command{u"check", 1, false, check},
    Command{u"backup", 2, false, backup},
    Command{u"upgrade", 2, false, upgrade},
};

QString text(std::u16string_view view) {
    return QStringView(view).toString();
}

int refuseUsage(const QString& reason) {
    complain(reason);
    complain(text(usage));
    return wrongUsage;
}

int runCommand(QStringList files, bool withSample) {
    if (files.isEmpty()) return refuseUsage(u"コマンドを指定してください。"_s);
    const QString name = files.takeFirst();
    for (const auto& command : commands) {
        if (name != text(command.name)) continue;
        if (files.size() != command.files) return refuseUsage(u"ファイルの数が違います。"_s);
        if (withSample && !command.takesSample) return refuseUsage(u"--sample は create だけで使えます。"_s);
        return command.run(files, withSample);
    }
    return refuseUsage(u"不明なコマンドです: %1"_s.arg(name));
}

int run(const QStringList& arguments) {
    QCommandLineParser parser;
    const QCommandLineOption sample(u"sample"_s);
    const QCommandLineOption help(QStringList{u"h"_s, u"help"_s});
    parser.addOptions({sample, help});
    if (!parser.parse(arguments)) {
        const auto unknown = parser.unknownOptionNames();
        return refuseUsage(unknown.isEmpty() ? u"オプションの書き方が違います。"_s
                                             : u"不明なオプションです: %1"_s.arg(unknown.join(u", "_s)));
    }
    if (!parser.isSet(help)) return runCommand(parser.positionalArguments(), parser.isSet(sample));
    say(text(usage));
    return success;
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    try {
        return run(QCoreApplication::arguments());
    } catch (const RuntimeError& error) {
        complain(error.description());
        return failure;
    }
}
