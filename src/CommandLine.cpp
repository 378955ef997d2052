#include "CommandLine.h"

#include <QCommandLineParser>
#include <QTextStream>

#include "files/ApplicationDirectory.h"
#include "help/About.h"

using namespace Qt::StringLiterals;

namespace {

enum ExitCode { done = 0, wrongUsage = 2 };

int print(FILE* stream, const QString& text, ExitCode code) {
    QTextStream(stream) << text << Qt::endl;
    return code;
}

} // namespace

std::optional<int> answerCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(u"一対比較による意思決定支援"_s);
    parser.addOptions({{{u"h"_s, u"help"_s}, u"この説明を表示します"_s},
                       {u"directory"_s, u"データのフォルダー（DB と file のあるところ）"_s, u"DIR"_s},
                       {{u"v"_s, u"version"_s}, u"バージョンを表示します"_s}});
    if (!parser.parse(arguments))
        return print(stderr, parser.errorText() + u'\n' + parser.helpText(), wrongUsage);
    if (!parser.positionalArguments().isEmpty())
        return print(
            stderr,
            u"不明な引数です: %1\n"_s.arg(parser.positionalArguments().join(u' ')) + parser.helpText(),
            wrongUsage);
    if (parser.isSet(u"help"_s)) return print(stdout, parser.helpText(), done);
    if (parser.isSet(u"version"_s)) return print(stdout, programVersion(), done);
    if (parser.isSet(u"directory"_s)) setApplicationDirectory(parser.value(u"directory"_s));
    return std::nullopt;
}

bool asksForTextOnly(int argc, char* argv[]) {
    const QStringList askingForText{u"-h"_s, u"--help"_s, u"-v"_s, u"--version"_s};
    return argc == 2 && askingForText.contains(QString::fromLocal8Bit(argv[1]));
}
