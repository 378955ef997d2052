#include "core/Schema.h"

#include "database/Recordset.h"
#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;
using Common::DbConn;

class SchemaTest : public ScreenTest {};

TEST_F(SchemaTest, NamesTheTablesAndColumnsThatAreMissing) {
    EXPECT_EQ(schemaTables().size(), 11U);
    for (const auto& table : schemaTables()) // as the engine read the same statements
        EXPECT_EQ(table.columns,
                  Recordset(*DbConn, SchemaSql{u"SELECT * FROM "_s + table.name}).fieldNames());
    EXPECT_TRUE(missingFromSchema(*DbConn).isEmpty());
    run(u"DROP TABLE 総合係数"_s);
    run(u"DROP TABLE workfac"_s);
    run(u"CREATE TABLE workfac (factor INTEGER, work2 NUMERIC)"_s);
    EXPECT_EQ(missingFromSchema(*DbConn), (QStringList{u"表「総合係数」がありません。"_s,
                                                       u"表「workfac」に列「work1」がありません。"_s}));
}
