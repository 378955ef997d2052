#include "core/Schema.h"

#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;
using Common::DbConn;

class SchemaTest : public ScreenTest {};

TEST_F(SchemaTest, NamesTheTablesAndColumnsThatAreMissing) {
    EXPECT_EQ(schemaTables().size(), 11U);
    EXPECT_TRUE(missingFromSchema(*DbConn).isEmpty());
    run(u"DROP TABLE 総合係数"_s);
    run(u"DROP TABLE workfac"_s);
    run(u"CREATE TABLE workfac (factor INTEGER, work2 NUMERIC)"_s);
    EXPECT_EQ(missingFromSchema(*DbConn), (QStringList{u"表「総合係数」がありません。"_s,
                                                       u"表「workfac」に列「work1」がありません。"_s}));
}

// The lookups in tables that grow, with the conditions that the program makes them with.
TEST_F(SchemaTest, StatementsFindTheirRowsByAnIndex) {
    const QStringList statements{
        u"SELECT 要因番号,要因名 FROM 要因 WHERE 要因区分 = 0 ORDER BY 要因番号"_s,
        u"SELECT max(要因番号) FROM 要因"_s,
        u"SELECT T1.評価者番号,T2.評価者氏名 FROM 課題評価者 T1,評価者 T2 "
        u"WHERE 課題番号 = 1 AND T1.評価者番号 = T2.評価者番号 ORDER BY T1.評価者番号"_s,
        u"SELECT T1.子要因番号,T3.要因名 FROM 要因構成 T1,要因 T3 WHERE T1.課題番号 = 1 "
        u"AND T1.親要因番号 = 2 AND T1.子要因番号 = T3.要因番号 ORDER BY T1.子要因表示順"_s,
        u"SELECT * FROM 要因構成 WHERE 課題番号 = 1 AND 子要因番号 = 2"_s,
        u"UPDATE 要因構成 SET 子作成済 = '1' WHERE 子要因番号 = 2"_s,
        u"SELECT * FROM 構成表示 WHERE 子レベル = 1 ORDER BY 親レベル,親シーケンス,子レベル,子シーケンス"_s,
        u"select * from 一対比較 where 課題番号=1 and 比較回数=1 and 評価者番号=1 order by 目的要因番号,比較表示順"_s,
        u"DELETE FROM 一対比較 WHERE 課題番号 = 1 AND 目的要因番号 = 2 AND 比較回数 = 1 AND 評価者番号 = 1"_s,
        u"insert into tempfac (parent,child,lev,score2,score) select "
        u"親要因番号,子要因番号,1,評価値,score*評価値 "
        u"from 評価結果,tempfac where 課題番号=1 and lev =0 and child = 親要因番号 and 評価者番号 = 1 "
        u"and 比較回数=1"_s,
        u"update 評価結果 set レベル = 1 where 課題番号=1 and 評価者番号=1 and 比較回数=1 and 親要因番号=2 "
        u"and 子要因番号=3"_s,
        u"select 子要因番号,総合評価値 from 評価結果 where レベル = 2 and 課題番号=1 and 比較回数=1 "
        u"order by 子要因番号"_s,
        u"select 親要因番号,子要因番号,max(子要因表示順),max(tempfac.dno) * 8+max(子要因表示順)+1 "
        u"from 要因構成,tempfac where 課題番号=1 and   tempfac.lev=0 and   tempfac.child = 親要因番号 "
        u"group by 親要因番号,子要因番号"_s,
    };
    for (const auto& statement : statements)
        for (const auto& step : rows(u"EXPLAIN QUERY PLAN "_s + statement))
            EXPECT_FALSE(step.contains(u"|SCAN") || step.contains(u"AUTOMATIC"))
                << statement.toStdString() << "\n"
                << step.toStdString();
}
