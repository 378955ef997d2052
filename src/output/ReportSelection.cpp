#include "output/ReportSelection.h"

#include "core/Common.h"
#include "platform/Recordset.h"

using namespace Qt::StringLiterals;
using namespace Common;

namespace {

QStringList entries(Recordset rows, const QString& number, const QString& name) {
    QStringList texts;
    for (; !rows.eof(); rows.moveNext()) texts << rows[number].toText() + u':' + NullToEmpty(rows[name]);
    return texts;
}

void handOver(const ReportSelection& selection) {
    ProblemEntry = selection.problemEntry;
    RoundEntry = selection.roundEntry;
    EvaluatorEntry = selection.evaluatorEntries.value(0);
}

constexpr qsizetype mostEvaluators = decltype(EvaluatorNos)::size();

void takeEvaluators(const QStringList& evaluatorEntries) {
    if (evaluatorEntries.size() > mostEvaluators)
        throw RuntimeError(
            ErrorCode::SubscriptOutOfRange,
            u"インデックスが有効範囲にありません。\n評価者は一度に %1 名まで選択できます。"_s.arg(
                mostEvaluators));
    EvaluatorCount = 0;
    for (const auto& entry : evaluatorEntries) {
        EvaluatorNos[EvaluatorCount] = Value(entryNumber(entry)).toLong();
        ++EvaluatorCount;
    }
}

} // namespace

QStringList problemEntries(Connection& connection) {
    return entries(
        Recordset(
            u"SELECT T1.課題番号,T1.課題区分,T2.要因名,T1.構成レベル,T1.最大分岐数 FROM 課題 T1,要因 T2 "
            "WHERE T1.課題番号 = T2.要因番号 "_s,
            connection),
        u"課題番号"_s, u"要因名"_s);
}

QStringList evaluatorEntries(Connection& connection, const QString& problemNo) {
    return entries(
        Recordset(
            u"select t1.評価者番号,t1.評価者氏名 from 評価者 t1,課題評価者 t2"
            " where 課題番号=%1 and t2.評価者番号=t1.評価者番号 order by t1.評価者番号"_s.arg(problemNo),
            connection),
        u"評価者番号"_s, u"評価者氏名"_s);
}

QString currentRound(Connection& connection, const QString& problemNo) {
    const Recordset rows(u"select max(比較回数) as round from 課題 where 課題番号=%1"_s.arg(problemNo),
                         connection);
    const Value& round = rows[u"Round"_s];
    return round.isNull() ? u"1"_s : round.toText();
}

QString entryNumber(const QString& entry) {
    return entry.left(entry.indexOf(u':')).trimmed();
}

bool takeSelection(const ReportSelection& selection) {
    handOver(selection);
    if (!CheckProblemChosen() || !CheckRoundAndEvaluator()) return false;
    takeEvaluators(selection.evaluatorEntries);
    return true;
}

bool takeProblemAndRound(const ReportSelection& selection) {
    handOver(selection);
    return CheckProblemChosen() && CheckRoundChosen();
}

bool allHaveResults(const ReportSelection& selection, const std::function<bool(qint32)>& hasResults) {
    for (int index = 0; index < EvaluatorCount; ++index) {
        if (hasResults(EvaluatorNos[index])) continue;
        refuseMissing(selection, selection.evaluatorEntries[index], u"評価回数"_s, u"評価結果"_s);
        return false;
    }
    return true;
}

void refuseMissing(const ReportSelection& selection, const QString& evaluatorEntry, const QString& roundWord,
                   const QString& tableName) {
    refuse(u"設定された条件、課題：%1 %2:%3 評価者:%4は%5に存在しません"_s.arg(
        selection.problemEntry, roundWord, selection.roundEntry, evaluatorEntry, tableName));
}
