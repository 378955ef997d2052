#include "rounds/RoundEntries.h"

#include "core/Common.h"
#include "database/Recordset.h"
#include "text/Numbers.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;
using Common::NullToEmpty;

namespace {

QStringList entries(Recordset rows, const QString& number, const QString& name) {
    QStringList texts;
    for (; !rows.eof(); rows.moveNext())
        texts << rows[number].toText() + u':' + joinedLines(NullToEmpty(rows[name]));
    return texts;
}

} // namespace

QStringList problemEntries(Connection& connection) {
    return entries(
        Recordset(
            connection,
            u"SELECT T1.課題番号,T1.課題区分,T2.要因名,T1.構成レベル,T1.最大分岐数 FROM 課題 T1,要因 T2 "
            "WHERE T1.課題番号 = T2.要因番号 "),
        u"課題番号"_s, u"要因名"_s);
}

QStringList evaluatorEntries(Connection& connection, const QString& problemNo) {
    return entries(Recordset(connection,
                             u"select t1.評価者番号,t1.評価者氏名 from 評価者 t1,課題評価者 t2"
                             " where 課題番号=? and t2.評価者番号=t1.評価者番号 order by t1.評価者番号",
                             leadingNumber(problemNo)),
                   u"評価者番号"_s, u"評価者氏名"_s);
}

QString currentRound(Connection& connection, const QString& problemNo) {
    const Recordset rows(connection, u"select max(比較回数) as round from 課題 where 課題番号=?",
                         leadingNumber(problemNo));
    const Value& round = rows[u"Round"_s];
    return round.isNull() ? u"1"_s : round.toText();
}

QString entryNumber(const QString& entry) {
    return entry.left(entry.indexOf(u':')).trimmed();
}
