#include "hierarchy/NumberHierarchy.h"

#include "platform/RuntimeError.h"
#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;

class NumberHierarchyTest : public ScreenTest {
  protected:
    void problem(int levels, int branches) {
        run(u"INSERT INTO 課題 VALUES (1,0,%1,%2,1)"_s.arg(levels).arg(branches));
    }
    // {parent, child, display order} each.
    void edges(const std::vector<std::array<int, 3>>& all, int problemNo = 1) {
        for (const auto& [parent, child, order] : all)
            run(u"INSERT INTO 要因構成 VALUES (%1,%2,%3,%4,'0')"_s.arg(problemNo).arg(parent).arg(child).arg(
                order));
    }
    // "parent|child|level|display order|key" in the order of the key.
    QStringList numbered(qint16 grouped) {
        NumberHierarchy(*Common::DbConn, u"1"_s, grouped);
        return rows(u"SELECT parent,child,lev,seq,dno FROM tempfac ORDER BY dno,parent"_s);
    }

    const std::vector<std::array<int, 3>> threeLevels{
        {1, 11, 1},  {1, 12, 2},  {1, 13, 3},  {11, 21, 1}, {11, 22, 2}, {11, 23, 3},
        {12, 22, 1}, {12, 24, 3}, {22, 31, 1}, {22, 32, 2}, {31, 41, 3},
    };
};

TEST_F(NumberHierarchyTest, groupedKeysListTheTreeLevelByLevel) {
    problem(3, 3);
    edges(threeLevels);
    edges({{1, 99, 1}, {11, 98, 2}}, 2);
    run(u"INSERT INTO tempfac (parent,child,lev) VALUES (7,7,1)"_s);
    run(u"INSERT INTO workfac VALUES (7,7,7)"_s);
    // Factor 22 stands under 11 and 12: its children are listed once, by the larger of its keys.
    EXPECT_EQ(numbered(1),
              (QStringList{u"1|11|1|1|2"_s, u"1|12|1|2|3"_s, u"1|13|1|3|4"_s, u"11|21|2|1|10"_s,
                           u"11|22|2|2|11"_s, u"11|23|2|3|12"_s, u"12|22|2|1|14"_s, u"12|24|2|3|16"_s,
                           u"22|31|3|1|58"_s, u"22|32|3|2|59"_s, u"31|41|4|3|236"_s}));
    copyToWorkfac(*Common::DbConn);
    EXPECT_EQ(rows(u"SELECT factor,work1,work2 FROM workfac ORDER BY work2"_s),
              rows(u"SELECT parent,child,dno FROM tempfac ORDER BY dno"_s));
}

TEST_F(NumberHierarchyTest, pathKeysListTheTreeDepthFirst) {
    problem(2, 3);
    edges(threeLevels);
    // Below the structure level the digits go on behind the point.
    EXPECT_EQ(numbered(0),
              (QStringList{u"1|11|1|1|16"_s, u"11|21|2|1|20"_s, u"11|22|2|2|24"_s, u"22|31|3|1|25"_s,
                           u"31|41|4|3|25.75"_s, u"22|32|3|2|26"_s, u"11|23|2|3|28"_s, u"1|12|1|2|32"_s,
                           u"12|22|2|1|36"_s, u"22|31|3|1|37"_s, u"31|41|4|3|37.75"_s, u"22|32|3|2|38"_s,
                           u"12|24|2|3|44"_s, u"1|13|1|3|48"_s}));
}

TEST_F(NumberHierarchyTest, aDisplayOrderAboveTheBranchesRunsIntoTheNextParent) {
    problem(0, 2);
    edges({{1, 12, 1}, {1, 13, 2}, {12, 21, 6}, {13, 22, 1}});
    EXPECT_EQ(numbered(1),
              (QStringList{u"1|12|1|1|2"_s, u"1|13|1|2|3"_s, u"13|22|2|1|11"_s, u"12|21|2|6|13"_s}));
}

TEST_F(NumberHierarchyTest, anEmptyTreeLeavesNoRows) {
    problem(3, 3);
    run(u"INSERT INTO tempfac (parent,child,lev) VALUES (7,7,1)"_s);
    EXPECT_EQ(numbered(1), QStringList());
    EXPECT_EQ(numbered(0), QStringList());
}

TEST_F(NumberHierarchyTest, aProblemWithoutConfigurationIsAnErrorAndKeepsTheWorkTable) {
    run(u"INSERT INTO tempfac (parent,child,lev) VALUES (7,8,1)"_s);
    EXPECT_THROW(NumberHierarchy(*Common::DbConn, u"1"_s, 1), RuntimeError);
    EXPECT_EQ(rows(u"SELECT parent,child FROM tempfac"_s), QStringList{u"7|8"_s});
}

TEST_F(NumberHierarchyTest, aHierarchyThatRunsInACircleEndsWithAnError) {
    problem(3, 3);
    const std::vector<std::vector<std::array<int, 3>>> circles{
        {{1, 1, 1}},
        {{1, 11, 1}, {11, 12, 1}, {12, 1, 1}}, // the problem deeper in its own tree
        {{1, 11, 1}, {11, 12, 1}, {12, 11, 1}, {1, 13, 2}},
    };
    for (const auto& circle : circles)
        for (const qint16 grouped : {0, 1}) {
            run(u"DELETE FROM 要因構成"_s);
            edges(circle);
            try {
                NumberHierarchy(*Common::DbConn, u"1"_s, grouped);
                ADD_FAILURE() << "numbered a circle of " << circle.size();
            } catch (const RuntimeError& error) {
                EXPECT_TRUE(error.description().contains(u"課題 1 の要因構成が循環"_s));
            }
        }
}
