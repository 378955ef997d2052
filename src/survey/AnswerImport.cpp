#include "survey/AnswerImport.h"

#include "rounds/RoundSelection.h"
#include "survey/CheckedAnswers.h"

using namespace Qt::StringLiterals;

namespace {

QString refusal(const CheckedAnswers& file, bool replace) {
    if (file.hasFault()) return u"誤りがあるため登録しませんでした。"_s;
    if (file.complete.isEmpty()) return u"回答が揃った目的要因がないため、登録するものがありません。"_s;
    if (file.replaced > 0 && !replace)
        return u"評価者 %1 %2 の以前の回答（%3 目的）があるため登録しませんでした。"
               "置き換えるには --replace を指定してください。"_s.arg(QString::number(file.evaluator.number),
                                                                     file.evaluator.name,
                                                                     QString::number(file.replaced));
    return {};
}

} // namespace

bool importAnswers(const ProblemRound& round, const QStringList& paths, bool replace,
                   const std::function<void(const QString& path)>& stored,
                   const std::function<void(const QString& line)>& told) {
    const auto questionnaire = questionnaireOf(round);
    QList<CheckedAnswers> files;
    readAnswers(paths, [&](const Answers& answers) {
        files.append(checkedAnswers(round.connection, questionnaire, answers));
    });
    checkAgainstEachOther(files);
    bool all = true;
    for (const auto& file : files) {
        const auto tell = [&](const QString& line) { told(file.path + u": "_s + line); };
        for (const auto& line : findingLines(file)) tell(line);
        if (!file.hasFault()) tell(completeLine(file));
        if (const auto why = refusal(file, replace); !why.isEmpty()) {
            tell(why);
            all = false;
            continue;
        }
        for (const auto& line : consistencyLines(file, true)) tell(line);
        storeAnswers(round, file);
        stored(file.path);
    }
    return all;
}
