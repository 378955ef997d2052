#include "Workload.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

#include "database/Recordset.h"

using namespace Qt::StringLiterals;

namespace {

// Factor 1 is the problem; the children of goal factor g follow one another, level by level.
int childOf(int goal, int position) {
    return Workload::children * (goal - 1) + 2 + position;
}

void addFactors(Connection& connection) {
    for (int factor = 1; factor <= Workload::goals + Workload::leaves; ++factor)
        addRecord(
            connection, u"要因"_s,
            {{u"要因番号"_s, factor},
             {u"要因区分"_s, factor == 1 ? 0 : 1},
             {u"要因名"_s, factor == 1 ? u"測定用の課題"_s : u"要因%1"_s.arg(factor, 3, 10, QChar(u'0'))},
             {u"要因内容"_s, u""_s}});
}

void addStructure(Connection& connection) {
    addRecord(connection, u"課題"_s,
              {{u"課題番号"_s, Workload::problemNo},
               {u"課題区分"_s, 0},
               {u"構成レベル"_s, Workload::levels},
               {u"最大分岐数"_s, Workload::children},
               {u"比較回数"_s, Workload::round}});
    for (int goal = 1; goal <= Workload::goals; ++goal)
        for (int position = 0; position < Workload::children; ++position)
            addRecord(connection, u"要因構成"_s,
                      {{u"課題番号"_s, Workload::problemNo},
                       {u"親要因番号"_s, goal},
                       {u"子要因番号"_s, childOf(goal, position)},
                       {u"子要因表示順"_s, position + 1},
                       {u"子作成済"_s, childOf(goal, position) <= Workload::goals ? u"1"_s : u"0"_s}});
}

void addEvaluator(Connection& connection, int number) {
    addRecord(connection, u"評価者"_s,
              {{u"評価者番号"_s, number},
               {u"評価者氏名"_s, u"評価者%1"_s.arg(number, 3, 10, QChar(u'0'))},
               {u"所属部門"_s, u"企画部"_s}});
    addRecord(connection, u"課題評価者"_s,
              {{u"課題番号"_s, Workload::problemNo}, {u"評価者番号"_s, number}, {u"役割"_s, u""_s}});
}

// The step of the scale 9 … 1 … 1/9 nearest to a ratio, as the grid stores it: in single precision.
double judgement(double ratio) {
    const double strength = std::clamp(std::round(std::max(ratio, 1 / ratio)), 1.0, 9.0);
    return static_cast<float>(ratio < 1 ? 1 / strength : strength);
}

void addComparisons(Connection& connection, int evaluator, int goal, std::mt19937& random) {
    // Draws of the generator itself: what the standard distributions make of them differs by library.
    const auto draw = [&random] { return static_cast<double>(random()) / std::mt19937::max(); };
    std::array<double, Workload::children> weights{};
    for (auto& weight : weights) weight = std::exp2(3 * draw());
    int pair = 0;
    for (std::size_t source = 0; source < weights.size(); ++source)
        for (std::size_t target = source + 1; target < weights.size(); ++target)
            addRecord(
                connection, u"一対比較"_s,
                {{u"課題番号"_s, Workload::problemNo},
                 {u"目的要因番号"_s, goal},
                 {u"比較元要因番号"_s, childOf(goal, static_cast<int>(source))},
                 {u"比較対象要因番号"_s, childOf(goal, static_cast<int>(target))},
                 {u"評価者番号"_s, evaluator},
                 {u"比較回数"_s, Workload::round},
                 {u"比較日付"_s, u"2026/04/01"_s},
                 {u"比較表示順"_s, ++pair},
                 {u"比較値"_s, judgement(weights.at(source) / weights.at(target) * (0.8 + 0.4 * draw()))}});
}

} // namespace

void fillWorkload(Connection& connection, int evaluators) {
    addFactors(connection);
    addStructure(connection);
    std::mt19937 random; // its default seed: the same numbers everywhere
    for (int evaluator = 1; evaluator <= evaluators; ++evaluator) {
        addEvaluator(connection, evaluator);
        for (int goal = 1; goal <= Workload::goals; ++goal)
            addComparisons(connection, evaluator, goal, random);
    }
}
