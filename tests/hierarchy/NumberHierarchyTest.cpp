#include "hierarchy/NumberHierarchy.h"

#include "support/Helpers.h"
#include "support/ScreenTest.h"

using namespace Qt::StringLiterals;

class NumberHierarchyTest : public ScreenTest {
  protected:
    NumberHierarchyTest() { run(u"INSERT INTO 課題 VALUES (2,0,9,9,1)"_s); }
    void problem(int levels, int branches) {
        run(u"INSERT INTO 課題 VALUES (1,0,%1,%2,1)"_s.arg(levels).arg(branches));
        run(u"INSERT INTO tempfac (parent,child,lev) VALUES (7,8,1)"_s); // of an earlier run
    }
    // "parent|child|level|display order|key" in the order of the key.
    QString numbered(qint16 grouped) {
        NumberHierarchy(*Common::DbConn, u"1"_s, grouped);
        return stored(u"SELECT parent,child,lev,seq,dno FROM tempfac ORDER BY dno,parent"_s);
    }

    const QString threeLevels = u"1:11,12,13 11:21,22,23 12:22,24@3 22:31,32 31:41@3"_s;
};

TEST_F(NumberHierarchyTest, GroupedKeysListTheTreeLevelByLevel) {
    problem(3, 3);
    structure(threeLevels);
    structure(u"1:99 11:98"_s, 2);
    run(u"INSERT INTO workfac VALUES (7,7,7)"_s);
    // Factor 22 stands under 11 and 12: its children are listed once, by the larger of its keys.
    EXPECT_EQ(numbered(1),
              u"1|11|1|1|2 1|12|1|2|3 1|13|1|3|4 "
              "11|21|2|1|10 11|22|2|2|11 11|23|2|3|12 12|22|2|1|14 12|24|2|3|16 "
              "22|31|3|1|58 22|32|3|2|59 31|41|4|3|236"_s);
    copyToWorkfac(*Common::DbConn);
    EXPECT_EQ(rows(u"SELECT factor,work1,work2 FROM workfac ORDER BY work2"_s),
              rows(u"SELECT parent,child,dno FROM tempfac ORDER BY dno"_s));
}

TEST_F(NumberHierarchyTest, PathKeysListTheTreeDepthFirst) {
    problem(2, 3);
    structure(threeLevels);
    // Below the structure level the digits go on behind the point.
    EXPECT_EQ(numbered(0),
              u"1|11|1|1|16 11|21|2|1|20 11|22|2|2|24 22|31|3|1|25 31|41|4|3|25.75 "
              "22|32|3|2|26 11|23|2|3|28 1|12|1|2|32 12|22|2|1|36 22|31|3|1|37 "
              "31|41|4|3|37.75 22|32|3|2|38 12|24|2|3|44 1|13|1|3|48"_s);
}

TEST_F(NumberHierarchyTest, ADisplayOrderAboveTheBranchesRunsIntoTheNextParent) {
    problem(0, 2);
    EXPECT_EQ(numbered(1), QString()); // no structure yet
    structure(u"1:12,13 12:21@6 13:22"_s);
    EXPECT_EQ(numbered(1), u"1|12|1|1|2 1|13|1|2|3 13|22|2|1|11 12|21|2|6|13"_s);
}

TEST_F(NumberHierarchyTest, WhatCannotBeNumberedEndsWithAnError) {
    EXPECT_NE(raisedBy([this] { numbered(1); }).number, 0); // no configuration
    problem(3, 3);
    for (const auto& circle : {u"1:1"_s, u"1:11 11:12 12:1"_s, u"1:11,13 11:12 12:11"_s})
        for (const qint16 grouped : {0, 1}) {
            run(u"DELETE FROM 要因構成"_s);
            structure(circle);
            EXPECT_TRUE(raisedBy([&] { numbered(grouped); }).description.contains(u"課題 1 の要因構成が循環"))
                << circle.toStdString();
        }
}
