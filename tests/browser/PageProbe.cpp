// What the test of the answer page needs of the program: figures to compare with, names that could do harm,
// and what was stored in the end.
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdio>
#include <random>

#include "core/Common.h"
#include "database/Recordset.h"
#include "judgement/AnswerCheck.h"
#include "judgement/ComparisonScale.h"
#include "judgement/PairOrder.h"

using namespace Qt::StringLiterals;

namespace {

void printJson(const QJsonArray& array) {
    std::puts(QJsonDocument(array).toJson(QJsonDocument::Compact).constData());
}

// Answers of 2 to 12 items, every second set near to some weights, so that all verdicts come up.
std::vector<int> someAnswers(int n, bool isNearWeights, std::mt19937& random) {
    std::uniform_int_distribution<int> position(0, scalePositions - 1);
    std::vector<double> weights;
    for (int item = 0; item < n; ++item) weights.push_back(double{scaleValue(position(random))});
    std::vector<int> answers;
    for (const auto& [i, j] : pairsOf(n))
        answers.push_back(
            isNearWeights ? std::clamp(nearestPosition(weights[i] / weights[j]) + position(random) % 3 - 1, 0,
                                       scalePositions - 1)
                          : position(random));
    return answers;
}

void printMatrices(int count) {
    std::mt19937 random(2026);
    QJsonArray matrices;
    for (int number = 0; number < count; ++number) {
        const int n = 2 + number % 11;
        const auto answers = someAnswers(n, number % 2 == 0, random);
        std::vector<double> values;
        QJsonArray positions;
        for (const int position : answers) {
            values.push_back(double{scaleValue(position)});
            positions.append(position);
        }
        const auto check = checkAnswers(values);
        QJsonValue odd = QJsonValue::Null;
        if (const auto& pair = check.oddPair)
            odd = QJsonArray{pairNumber(pair->source, pair->target, n), pair->given, pair->suggested};
        matrices.append(QJsonObject{
            {u"n"_s, n},
            {u"positions"_s, positions},
            {u"index"_s, check.consistency ? QJsonValue(check.consistency->index) : QJsonValue::Null},
            {u"ratio"_s, check.consistency ? QJsonValue(check.consistency->ratio) : QJsonValue::Null},
            {u"consistent"_s, check.consistency && check.consistency->isAcceptable()},
            {u"odd"_s, odd}});
    }
    printJson(matrices);
}

void rename(Connection& connection) {
    const QString names[]{u"</script><script>hacked=1</script>"_s, u"\"引用, 'quoted' & <b>太字</b>"_s,
                          u"{{data}}%1%2{{script}}"_s, QString(400, u'長'), u"<!-- <script>"_s};
    qint32 factor = 1;
    for (const auto& name : names)
        connection.execute(u"update 要因 set 要因名=?, 要因内容=? where 要因番号=?", name, name, factor++);
}

void printRows(Connection& connection, const QString& evaluator) {
    QJsonArray rows;
    for (Recordset row(connection, u"select * from 一対比較 where 課題番号=1 and 比較回数=1 and 評価者番号=?",
                       evaluator.toInt());
         !row.eof(); row.moveNext())
        rows.append(QJsonArray{row[u"目的要因番号"_s].toLong(), row[u"比較元要因番号"_s].toLong(),
                               row[u"比較対象要因番号"_s].toLong(), row[u"比較値"_s].toDouble()});
    printJson(rows);
}

} // namespace

// matrices COUNT | rename DIRECTORY | rows DIRECTORY EVALUATOR
int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    const auto arguments = QCoreApplication::arguments();
    if (arguments.at(1) == u"matrices") {
        printMatrices(arguments.at(2).toInt());
        return 0;
    }
    Common::openDatabase(arguments.at(2));
    if (arguments.at(1) == u"rename")
        rename(*Common::DbConn);
    else
        printRows(*Common::DbConn, arguments.at(3));
    Common::DbConn.reset();
    return 0;
}
