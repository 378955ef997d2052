#include "evaluation/Synthesis.h"

#include <QString>

#include "database/Connection.h"
#include "database/Recordset.h"
#include "hierarchy/Descent.h"
#include "rounds/EvaluatorRound.h"

using namespace Qt::StringLiterals;

namespace {

// ?1 problem, ?2 evaluator, ?3 round.
void execute(Sql sql, const EvaluatorRound& of) {
    of.connection.execute(sql, of.problemNo, of.evaluatorNo, of.round);
}

// Fills tempfac with one row for each occurrence of an edge reached from the problem.
void walkHierarchy(const EvaluatorRound& of) {
    of.connection.execute(u"delete from tempfac");
    of.connection.execute(u"insert into tempfac (parent,child,lev,score) values(?1,?1,0,1)", of.problemNo);
    const auto parents = readNumber(of.connection,
                                    u"select count(distinct 親要因番号) as ncount from 評価結果"
                                    " where 課題番号=? and 評価者番号=? and 比較回数=?",
                                    of.problemNo, of.evaluatorNo, of.round);
    descend(of.connection, of.problemNo, parents, [&of](int level) {
        of.connection.execute(
            u"insert into tempfac (parent,child,lev,score2,score)"
            " select 親要因番号,子要因番号,?4,評価値,score*評価値 from 評価結果,tempfac"
            " where 課題番号=?1 and lev = ?4-1 and child = 親要因番号 and 評価者番号 = ?2 and 比較回数=?3",
            of.problemNo, of.evaluatorNo, of.round, level);
    });
}

void writeGlobalWeights(const EvaluatorRound& of) {
    execute(u"delete from 評価結果 where 課題番号=?1 and 評価者番号=?2 and 比較回数=?3", of);
    execute(
        u"insert into 評価結果 (課題番号,親要因番号,子要因番号,評価者番号,比較回数,評価値,レベル,総合評価値)"
        " select ?1,parent,child,?2,?3,score2,0,sum(score) from tempfac group by parent,child,score2",
        of);
}

void markLeaf(const EvaluatorRound& of, qint32 parentNo, qint32 childNo) {
    of.connection.execute(
        u"update 評価結果 set レベル = 1 where 課題番号=? and 評価者番号=? and 比較回数=?"
        " and 親要因番号=? and 子要因番号=?",
        of.problemNo, of.evaluatorNo, of.round, parentNo, childNo);
}

void markLeaves(const EvaluatorRound& of) {
    for (Recordset edges(of.connection, u"select parent,child from tempfac"); !edges.eof();
         edges.moveNext()) {
        const auto childNo = edges[u"Child"_s].toLong();
        const auto children = readNumber(
            of.connection, u"select count(*) as cnt from 要因構成 where 課題番号 = ? and 親要因番号 = ?",
            of.problemNo, childNo);
        if (children == 0) markLeaf(of, edges[u"Parent"_s].toLong(), childNo);
    }
}

void totalLeaves(const EvaluatorRound& of) {
    execute(
        u"insert into 評価結果 (課題番号,親要因番号,子要因番号,評価者番号,比較回数,評価値,レベル,総合評価値)"
        " select ?1,?1,子要因番号,?2,?3,count(*),2,sum(総合評価値) from 評価結果"
        " where 課題番号=?1 and 評価者番号=?2 and 比較回数=?3 and レベル=1 group by 子要因番号",
        of);
}

} // namespace

void synthesise(const EvaluatorRound& of) {
    walkHierarchy(of);
    writeGlobalWeights(of);
    markLeaves(of);
    totalLeaves(of);
}
