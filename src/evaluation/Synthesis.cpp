#include "evaluation/Synthesis.h"

#include <QString>

#include "database/Connection.h"
#include "database/Recordset.h"
#include "database/SqlText.h"
#include "hierarchy/Descent.h"
#include "rounds/EvaluatorRound.h"

using namespace Qt::StringLiterals;

namespace {

// %1 problem, %2 evaluator, %3 round.
QString filled(const QString& sql, const EvaluatorRound& of) {
    return sql.arg(of.problemNo).arg(of.evaluatorNo).arg(of.round);
}

void execute(const QString& sql, const EvaluatorRound& of) {
    of.connection.execute(filled(sql, of));
}

// Fills tempfac with one row for each occurrence of an edge reached from the problem.
void walkHierarchy(const EvaluatorRound& of) {
    descend(of.connection, of.problemNo,
            {.root = u"insert into tempfac (parent,child,lev,score) values(%1,%1,0,1)"_s.arg(of.problemNo),
             .parents = filled(u"select count(distinct 親要因番号) as ncount from 評価結果"
                               " where 課題番号=%1 and 評価者番号=%2 and 比較回数=%3"_s,
                               of),
             .rows = u"select count(*) as ncount from tempfac"_s,
             .level = [&of](int level) {
                 return u"insert into tempfac (parent,child,lev,score2,score)"
                        " select 親要因番号,子要因番号,%1,評価値,score*評価値 from 評価結果,tempfac"
                        " where 課題番号=%2 and lev =%3 and child = 親要因番号 and 評価者番号 = %4"
                        " and 比較回数=%5"_s.arg(level)
                            .arg(of.problemNo)
                            .arg(level - 1)
                            .arg(of.evaluatorNo)
                            .arg(of.round);
             }});
}

void writeGlobalWeights(const EvaluatorRound& of) {
    execute(u"delete from 評価結果 where 課題番号=%1 and 評価者番号=%2 and 比較回数=%3"_s, of);
    execute(
        u"insert into 評価結果 (課題番号,親要因番号,子要因番号,評価者番号,比較回数,評価値,レベル,総合評価値)"
        " select %1,parent,child,%2,%3,score2,0,sum(score) from tempfac group by parent,child,score2"_s,
        of);
}

void markLeaf(const EvaluatorRound& of, qint32 parentNo, qint32 childNo) {
    of.connection.execute(
        composed(u"update 評価結果 set レベル = 1 where 課題番号=%1 and 評価者番号=%2 and 比較回数=%3"
                 " and 親要因番号=%4 and 子要因番号=%5"_s,
                 of.problemNo, of.evaluatorNo, of.round, parentNo, childNo));
}

void markLeaves(const EvaluatorRound& of) {
    for (Recordset edges(u"select parent,child from tempfac"_s, of.connection); !edges.eof();
         edges.moveNext()) {
        const auto childNo = edges[u"Child"_s].toLong();
        const auto children = readNumber(
            composed(u"select count(*) as cnt from 要因構成 where 課題番号 = %1 and 親要因番号 = %2"_s,
                     of.problemNo, childNo),
            of.connection);
        if (children == 0) markLeaf(of, edges[u"Parent"_s].toLong(), childNo);
    }
}

void totalLeaves(const EvaluatorRound& of) {
    execute(
        u"insert into 評価結果 (課題番号,親要因番号,子要因番号,評価者番号,比較回数,評価値,レベル,総合評価値)"
        " select %1,%1,子要因番号,%2,%3,count(*),2,sum(総合評価値) from 評価結果"
        " where 課題番号=%1 and 評価者番号=%2 and 比較回数=%3 and レベル=1 group by 子要因番号"_s,
        of);
}

} // namespace

void synthesise(const EvaluatorRound& of) {
    walkHierarchy(of);
    writeGlobalWeights(of);
    markLeaves(of);
    totalLeaves(of);
}
