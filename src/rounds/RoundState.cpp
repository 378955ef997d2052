#include "rounds/RoundState.h"

#include "core/FactorNames.h"
#include "database/Recordset.h"
#include "rounds/ReportSelection.h"
#include "rounds/RoundSelection.h"

using namespace Qt::StringLiterals;

namespace {

// The number of whoever has no name.
QString nameOrNumber(const QString& name, const QString& number) {
    return name.isEmpty() ? number : name;
}

} // namespace

bool hasResults(const ProblemRound& of, qint32 evaluatorNo) {
    return !Recordset(of.connection,
                      u"select * from 評価結果 where レベル = 2 and 課題番号=? and 比較回数=?"
                      " and 評価者番号=? order by 子要因番号",
                      of.problemNo, of.round, evaluatorNo)
                .eof();
}

QString resultsLine(const ProblemRound& of) {
    QStringList with; // numbers, as text
    for (Recordset rows(
             of.connection,
             u"select distinct 評価者番号 from 評価結果 where レベル=2 and 課題番号=? and 比較回数=?"
             " order by 評価者番号",
             of.problemNo, of.round);
         !rows.eof(); rows.moveNext())
        with << rows[u"評価者番号"_s].toText();

    const QStringList assigned = evaluatorEntries(of.connection, QString::number(of.problemNo));
    QStringList missing;
    for (const auto& entry : assigned)
        if (with.removeAll(entryNumber(entry)) == 0)
            missing << nameOrNumber(entry.section(u':', 1), entryNumber(entry));
    QStringList others;
    for (const auto& number : with)
        others << nameOrNumber(evaluatorName(of.connection, number.toInt()), number);

    QStringList notes;
    if (!missing.isEmpty()) notes << u"なし: "_s + missing.join(u"、"_s);
    if (!others.isEmpty()) notes << u"課題評価者以外: "_s + others.join(u"、"_s);
    const auto line = u"評価結果 %1 / %2 名"_s.arg(assigned.size() - missing.size()).arg(assigned.size());
    return notes.isEmpty() ? line : line + u"（%1）"_s.arg(notes.join(u"／"_s));
}
