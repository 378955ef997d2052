#include "hierarchy/StructureTables.h"

#include <QSet>
#include <algorithm>
#include <cmath>

#include "core/Common.h"
#include "database/Recordset.h"
#include "text/Numbers.h"
#include "text/TextConversion.h"

using namespace Qt::StringLiterals;

namespace {

constexpr Sql deleteChildren = u"DELETE FROM 要因構成 WHERE 課題番号 = ? AND 親要因番号 = ?";
constexpr Sql nodesWithNames =
    u"SELECT T1.親レベル,T1.親シーケンス,T1.親要因番号,T1.子レベル,T1.子シーケンス,T1.子要因番号,"
    "T1.子作成済,T3.要因名 FROM 構成表示 T1,要因 T3 "
    "WHERE T1.課題番号 = ? AND T1.子要因番号 = T3.要因番号 "
    "ORDER BY 親レベル,親シーケンス,子レベル,子シーケンス ";
constexpr double largestSequence = 9007199254740992; // 2 to the power of 53

qint64 sequenceOf(const Value& field) {
    return static_cast<qint64>(field.toDouble());
}

// The place of the child that the current row of 構成表示 describes.
NodePlace childPlace(const Recordset& row) {
    return {row[u"子要因番号"_s].toLong(), row[u"子レベル"_s].toLong(), sequenceOf(row[u"子シーケンス"_s])};
}

NodePlace parentPlace(const Recordset& row) {
    return {row[u"親要因番号"_s].toLong(), row[u"親レベル"_s].toLong(), sequenceOf(row[u"親シーケンス"_s])};
}

// The factors above `factorNo`, itself included.
QSet<qint32> factorsAbove(Connection& connection, qint32 problemNo, qint32 factorNo) {
    QSet<qint32> above;
    for (Recordset rows(connection,
                        u"WITH RECURSIVE 上位(番号) AS (SELECT ? UNION SELECT 親要因番号 FROM 要因構成,上位 "
                        "WHERE 課題番号 = ? AND 子要因番号 = 番号) SELECT 番号 FROM 上位",
                        factorNo, problemNo);
         !rows.eof(); rows.moveNext())
        above.insert(rows[u"番号"_s].toLong());
    return above;
}

Recordset edgesOf(Connection& connection, qint32 problemNo, qint32 parentNo) {
    return {connection,
            u"SELECT 課題番号,親要因番号,子要因番号,子要因表示順,子作成済 FROM 要因構成  "
            "WHERE 課題番号 = ? AND 親要因番号 = ?",
            problemNo, parentNo};
}

void addNode(Connection& connection, const NodePlace& parent, const Recordset& edge) {
    // An edge without an order comes first, as the engine sorts it: the editor is where it gets one.
    const double order = Common::NullToZero(edge[u"子要因表示順"_s]).toDouble();
    const double sequence =
        parent.level == 0 ? order : (static_cast<double>(parent.sequence) - 1) * mostChildren + order;
    if (std::abs(sequence) > largestSequence) throw RuntimeError(ErrorCode::Overflow);
    addRecord(connection, u"構成表示"_s,
              {{u"課題番号"_s, edge[u"課題番号"_s]},
               {u"親レベル"_s, parent.level},
               {u"親シーケンス"_s, parent.sequence},
               {u"親要因番号"_s, parent.factorNo},
               {u"子レベル"_s, parent.level + 1},
               {u"子シーケンス"_s, static_cast<qint64>(sequence)},
               {u"子要因番号"_s, edge[u"子要因番号"_s]},
               {u"子要因表示順"_s, edge[u"子要因表示順"_s]},
               {u"子作成済"_s, edge[u"子作成済"_s]}});
}

void addChildNodes(Connection& connection, qint32 problemNo, const NodePlace& parent) {
    for (auto edges = edgesOf(connection, problemNo, parent.factorNo); !edges.eof(); edges.moveNext())
        addNode(connection, parent, edges);
}

} // namespace

QString factorText(qint32 factorNo, const QString& name, const QString& separator) {
    return formatNumber(factorNo, u"0000"_s) + separator + joinedLines(name);
}

ChildList freeRows() {
    ChildList rows;
    for (int order = 0; auto& row : rows) row.displayOrder = ++order;
    return rows;
}

QString TreeNode::key() const {
    return u"R%1%2%3"_s.arg(place.factorNo).arg(place.level).arg(place.sequence);
}

std::span<const ChildEntry> savedChildren(const ChildList& children) {
    const auto firstFree = std::ranges::find_if(children, &ChildEntry::isFree);
    return {children.begin(), firstFree};
}

std::optional<RefusedChild> refusedChild(Connection& connection, qint32 problemNo, qint32 parentNo,
                                         std::span<const ChildEntry> children) {
    const auto above = factorsAbove(connection, problemNo, parentNo);
    QSet<qint32> seen;
    for (const auto& child : children) {
        const QString reason = child.factorNo == problemNo      ? u"課題そのもの"_s
                               : child.factorNo == parentNo     ? u"要因（親）自身"_s
                               : above.contains(child.factorNo) ? u"要因（親）より上位の要因"_s
                               : seen.contains(child.factorNo)  ? u"二重に設定されている要因"_s
                                                                : QString();
        if (!reason.isEmpty())
            return RefusedChild{child.displayOrder, u"要因（子） '%1' は%2なので登録できません。"_s.arg(
                                                        factorText(child.factorNo, child.name), reason)};
        seen.insert(child.factorNo);
    }
    return std::nullopt;
}

void saveChildren(Connection& connection, qint32 problemNo, qint32 parentNo,
                  std::span<const ChildEntry> children) {
    connection.execute(deleteChildren, problemNo, parentNo);
    for (const auto& child : children)
        addRecord(connection, u"要因構成"_s,
                  {{u"課題番号"_s, problemNo},
                   {u"親要因番号"_s, parentNo},
                   {u"子要因番号"_s, child.factorNo},
                   {u"子要因表示順"_s, child.displayOrder},
                   {u"子作成済"_s, u"0"_s}});
    connection.execute(u"UPDATE  要因構成 SET 子作成済 = '1' WHERE 子要因番号 = ?", parentNo);
}

int childrenLostAtGap(Connection& connection, qint32 problemNo, qint32 parentNo, const ChildList& children) {
    const auto saved = savedChildren(children);
    const auto behind = std::span(children).subspan(saved.size());
    const auto stands = [](const auto& rows, qint32 factorNo) {
        return std::ranges::any_of(
            rows, [&](const ChildEntry& row) { return !row.isEmpty() && row.factorNo == factorNo; });
    };
    int lost = 0;
    for (auto edges = edgesOf(connection, problemNo, parentNo); !edges.eof(); edges.moveNext()) {
        const auto factorNo = edges[u"子要因番号"_s].toLong();
        lost += stands(behind, factorNo) && !stands(saved, factorNo);
    }
    return lost;
}

void removeOrphans(Connection& connection, qint32 problemNo) {
    for (Recordset parents(
             connection,
             u"SELECT 課題番号,親要因番号 FROM 要因構成  WHERE 課題番号 = ?1 AND 親要因番号 <> ?1"
             " GROUP BY 課題番号,親要因番号 ",
             problemNo);
         !parents.eof(); parents.moveNext()) {
        const auto parentNo = parents[u"親要因番号"_s].toLong();
        const Recordset leading(connection, u"SELECT * FROM 要因構成  WHERE 課題番号 = ? AND 子要因番号 = ?",
                                problemNo, parentNo);
        if (leading.recordCount() == 0) connection.execute(deleteChildren, problemNo, parentNo);
    }
}

void rebuildStructureDisplay(Connection& connection, qint32 problemNo, int levels) {
    connection.execute(u"DELETE FROM 構成表示");
    addChildNodes(connection, problemNo, {problemNo, 0, 0});
    for (int level = 1; level <= levels; ++level) {
        Recordset nodes(
            connection,
            u"SELECT 課題番号,親レベル,親シーケンス,親要因番号,子レベル,子シーケンス,子要因番号,子要因表示順,"
            "子作成済 FROM 構成表示 WHERE 子レベル = ? ORDER BY 親レベル,親シーケンス,子レベル,子シーケンス ",
            level);
        if (nodes.eof()) break; // deeper levels are empty too, however many the problem allows
        for (; !nodes.eof(); nodes.moveNext()) addChildNodes(connection, problemNo, childPlace(nodes));
    }
}

std::vector<TreeNode> readTree(Connection& connection, qint32 problemNo) {
    std::vector<TreeNode> nodes;
    const Recordset root(
        connection,
        u"SELECT T1.親レベル,T1.親シーケンス,T1.親要因番号,T3.要因名 FROM 構成表示 T1,要因 T3 "
        "WHERE T1.課題番号 = ? AND T1.課題番号 = T1.親要因番号 AND T1.親要因番号 = T3.要因番号 "
        "ORDER BY 親レベル,親シーケンス,子レベル,子シーケンス ",
        problemNo);
    if (root.eof()) return nodes;
    nodes.push_back({parentPlace(root), std::nullopt, Common::NullToEmpty(root[u"要因名"_s])});
    for (Recordset rows(connection, nodesWithNames, problemNo); !rows.eof(); rows.moveNext())
        nodes.push_back({childPlace(rows), parentPlace(rows), Common::NullToEmpty(rows[u"要因名"_s])});
    return nodes;
}

ParentList readParents(Connection& connection, qint32 problemNo, const QString& problemName, int levels) {
    const NodePlace problem{problemNo, 0, 0};
    ParentList list;
    list.parents.push_back({problem, std::nullopt, problemName});
    Recordset rows(connection, nodesWithNames, problemNo);
    if (rows.eof()) list.next = problem;
    QSet<qint32> filled; // factors that have children in this problem
    std::vector<NodePlace> places;
    for (bool ended = false; !rows.eof(); rows.moveNext()) {
        filled.insert(parentPlace(rows).factorNo);
        const NodePlace place = childPlace(rows);
        if (place.level >= levels) continue;
        places.push_back(place);
        if (ended) continue;
        list.parents.push_back({place, parentPlace(rows), Common::NullToEmpty(rows[u"要因名"_s])});
        ended = Common::NullToEmpty(rows[u"子作成済"_s]) == u"0"_s;
    }
    // 子作成済 tells of all problems together: only the tree says whether this one lacks anything. What is
    // not on offer yet, also because its own parent has been saved again, will be when the last parent on
    // offer has been saved.
    const auto offered = std::span(places).first(list.parents.size() - 1); // all but the problem
    const auto unfilled = std::ranges::find_if(
        offered, [&](const NodePlace& place) { return !filled.contains(place.factorNo); });
    if (unfilled != offered.end())
        list.next = *unfilled;
    else if (offered.size() < places.size())
        list.next = list.parents.back().place;
    list.isNextFilled = list.next && filled.contains(list.next->factorNo);
    return list;
}

ChildList readChildren(Connection& connection, qint32 problemNo, qint32 parentNo) {
    auto children = freeRows();
    std::size_t row = 0;
    for (Recordset rows(connection,
                        u"SELECT T1.課題番号,T1.親要因番号,T1.子要因番号,T1.子要因表示順,T3.要因名 "
                        "FROM 要因構成 T1,要因 T3 WHERE T1.課題番号 = ? AND T1.親要因番号 = ? "
                        "AND T1.子要因番号 = T3.要因番号 ORDER BY 子要因表示順 ",
                        problemNo, parentNo);
         !rows.eof(); rows.moveNext(), ++row) {
        if (row == children.size()) throw RuntimeError(ErrorCode::SubscriptOutOfRange);
        children[row].factorNo = rows[u"子要因番号"_s].toLong();
        children[row].name = Common::NullToEmpty(rows[u"要因名"_s]);
    }
    return children;
}
