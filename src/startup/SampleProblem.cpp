#include "startup/SampleProblem.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <vector>

#include "database/Connection.h"
#include "database/Recordset.h"
#include "judgement/ComparisonScale.h"
#include "startup/Resources.h"
#include "text/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

using Children = std::vector<int>;
using Structure = QMap<int, Children>; // parent → children in display order

[[noreturn]] void reject(const QString& what) {
    throw RuntimeError(ErrorCode::TypeMismatch, u"課題のデータが不正です。%1"_s.arg(what));
}

Structure readStructure(const QJsonArray& parents) {
    Structure structure;
    for (const auto parent : parents) {
        auto& children = structure[parent[u"parent"].toInt()];
        for (const auto child : parent[u"children"].toArray()) children.push_back(child.toInt());
    }
    return structure;
}

void addFactors(Connection& connection, const QJsonArray& factors) {
    for (const auto factor : factors)
        addRecord(connection, u"要因"_s,
                  {{u"要因番号"_s, factor[u"number"].toInt()},
                   {u"要因区分"_s, factor[u"class"].toInt()},
                   {u"要因名"_s, factor[u"name"].toString()},
                   {u"要因内容"_s, factor[u"description"].toString()}});
}

void addStructure(Connection& connection, int problemNo, const Structure& structure) {
    for (const auto& [parent, children] : structure.asKeyValueRange()) {
        int order = 0;
        for (const int child : children)
            addRecord(connection, u"要因構成"_s,
                      {{u"課題番号"_s, problemNo},
                       {u"親要因番号"_s, parent},
                       {u"子要因番号"_s, child},
                       {u"子要因表示順"_s, ++order},
                       {u"子作成済"_s, structure.contains(child) ? u"1"_s : u"0"_s}});
    }
}

double scaleValueOf(const QString& text) {
    for (int position = 0; position < scalePositions; ++position)
        if (scaleText(position) == text) return scaleValue(position);
    reject(u"比較値「%1」は尺度にありません。"_s.arg(text));
}

// The values above the diagonal of an n × n matrix, row by row.
std::vector<double> readMatrix(const QJsonArray& rows, qsizetype n) {
    if (rows.size() != n - 1) reject(u"%1 個の要因に %2 行の比較値があります。"_s.arg(n).arg(rows.size()));
    std::vector<double> values;
    qsizetype expected = n - 1;
    for (const auto row : rows) {
        const auto texts = row.toString().split(u' ', Qt::SkipEmptyParts);
        if (texts.size() != expected--) reject(u"比較値の行「%1」の長さが違います。"_s.arg(row.toString()));
        for (const auto& text : texts) values.push_back(scaleValueOf(text));
    }
    return values;
}

void addComparisons(Connection& connection, int problemNo, const QJsonObject& evaluator,
                    const QJsonObject& matrix, const Children& children) {
    const auto values = readMatrix(matrix[u"rows"].toArray(), static_cast<qsizetype>(children.size()));
    int order = 0;
    for (std::size_t source = 0; source + 1 < children.size(); ++source)
        for (std::size_t target = source + 1; target < children.size(); ++target, ++order)
            addRecord(connection, u"一対比較"_s,
                      {{u"課題番号"_s, problemNo},
                       {u"目的要因番号"_s, matrix[u"goal"].toInt()},
                       {u"比較元要因番号"_s, children[source]},
                       {u"比較対象要因番号"_s, children[target]},
                       {u"評価者番号"_s, evaluator[u"number"].toInt()},
                       {u"比較回数"_s, 1},
                       {u"比較日付"_s, evaluator[u"date"].toString()},
                       {u"比較表示順"_s, order + 1},
                       {u"比較値"_s, values[static_cast<std::size_t>(order)]}});
}

void addEvaluators(Connection& connection, int problemNo, const QJsonArray& evaluators,
                   const Structure& structure) {
    for (const auto entry : evaluators) {
        const auto evaluator = entry.toObject();
        const int number = evaluator[u"number"].toInt();
        addRecord(connection, u"評価者"_s,
                  {{u"評価者番号"_s, number},
                   {u"評価者氏名"_s, evaluator[u"name"].toString()},
                   {u"所属部門"_s, evaluator[u"department"].toString()}});
        addRecord(connection, u"課題評価者"_s,
                  {{u"課題番号"_s, problemNo}, {u"評価者番号"_s, number}, {u"役割"_s, u""_s}});
        for (const auto matrix : evaluator[u"comparisons"].toArray())
            addComparisons(connection, problemNo, evaluator, matrix.toObject(),
                           structure[matrix[u"goal"].toInt()]);
    }
}

} // namespace

QByteArray sampleProblem() {
    loadStartupResources();
    QFile file(u":/startup/sample.json"_s);
    if (!file.open(QIODevice::ReadOnly)) throw RuntimeError(ErrorCode::FileNotFound);
    return file.readAll();
}

void addProblem(Connection& connection, const QByteArray& json) {
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(json, &error);
    if (document.isNull()) reject(error.errorString());
    const auto problem = document[u"problem"];
    const int problemNo = problem[u"number"].toInt();
    const auto structure = readStructure(document[u"structure"].toArray());
    addFactors(connection, document[u"factors"].toArray());
    addRecord(connection, u"課題"_s,
              {{u"課題番号"_s, problemNo},
               {u"課題区分"_s, problem[u"class"].toInt()},
               {u"構成レベル"_s, problem[u"levels"].toInt()},
               {u"最大分岐数"_s, problem[u"branches"].toInt()},
               {u"比較回数"_s, problem[u"rounds"].toInt()}});
    addStructure(connection, problemNo, structure);
    addEvaluators(connection, problemNo, document[u"evaluators"].toArray(), structure);
}
