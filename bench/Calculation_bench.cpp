// What a calculation costs, beside the least that its rows cost: reading the same comparisons with one
// statement and writing the same results with one prepared statement, in one transaction.
#include <sqlcipher/sqlite3.h>

#include <QFile>
#include <ctime>
#include <limits>

#include "Measured.h"
#include "analysis/VariationGrade.h"
#include "core/Common.h"
#include "core/Database.h"
#include "database/DatabaseEngine.h"
#include "evaluation/LocalWeights.h"
#include "evaluation/Synthesis.h"
#include "hierarchy/NumberHierarchy.h"
#include "judgement/PowerMethod.h"
#include "rounds/EvaluatorRound.h"
#include "rounds/RoundState.h"

using namespace Qt::StringLiterals;
using Common::DbConn;

namespace {

// Processor time: a busy machine does not disturb the ratio of two measurements.
double processorSeconds(const std::function<void()>& work) {
    const auto before = std::clock();
    work();
    return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
}

// The most memory that the program has held since the last call, in megabytes.
double peakMegabytes() {
    double peak = 0;
    if (QFile status(u"/proc/self/status"_s); status.open(QIODevice::ReadOnly))
        for (const auto& line : status.readAll().split('\n'))
            if (line.startsWith("VmHWM:")) peak = line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    if (QFile reset(u"/proc/self/clear_refs"_s); reset.open(QIODevice::WriteOnly)) reset.write("5");
    return peak;
}

using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;
using Row = std::vector<double>; // every column of both tables is a number, but for the date

Statement prepared(const Database& database, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database.get(), sql, -1, &statement, nullptr);
    return {statement, sqlite3_finalize};
}

std::vector<Row> readRows(const Database& database, const char* sql) {
    const auto statement = prepared(database, sql);
    std::vector<Row> rows;
    while (sqlite3_step(statement.get()) == SQLITE_ROW) {
        auto& row = rows.emplace_back();
        for (int column = 0; column < sqlite3_column_count(statement.get()); ++column)
            row.push_back(sqlite3_column_double(statement.get(), column));
    }
    return rows;
}

void writeRows(const Database& database, const std::vector<Row>& rows) {
    sqlite3_exec(database.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    const auto statement = prepared(database, "insert into 評価結果 values(?,?,?,?,?,?,?,?)");
    for (const auto& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column)
            sqlite3_bind_double(statement.get(), static_cast<int>(column) + 1, row[column]);
        sqlite3_step(statement.get());
        sqlite3_reset(statement.get());
    }
    sqlite3_exec(database.get(), "COMMIT", nullptr, nullptr, nullptr);
}

double floorSeconds(const WorkloadDirectory& directory, const std::vector<Row>& results) {
    directory.restore();
    DbConn.reset();
    const auto database = openEncryptedFile(directory.databasePath(), databasePassword);
    return processorSeconds([&] {
        benchmark::DoNotOptimize(readRows(database,
                                          "select * from 一対比較 where 課題番号=1 and 比較回数=1 order by "
                                          "評価者番号,目的要因番号,比較表示順"));
        writeRows(database, results);
    });
}

void calculate(benchmark::State& state) {
    const WorkloadDirectory directory(static_cast<int>(state.range(0)));
    directory.keep();
    double least = std::numeric_limits<double>::max();
    peakMegabytes();
    for (const auto& step : state) {
        static_cast<void>(step);
        state.PauseTiming();
        directory.restore();
        state.ResumeTiming();
        least = std::min(least, processorSeconds([&] { directory.calculate(); }));
    }
    state.counters["MB"] = peakMegabytes();
    DbConn.reset();
    const auto results =
        readRows(openEncryptedFile(directory.databasePath(), databasePassword), "select * from 評価結果");
    double floor = floorSeconds(directory, results);
    for (int again = 0; again < 2; ++again) floor = std::min(floor, floorSeconds(directory, results));
    state.counters["ms/evaluator"] = 1000 * least / directory.evaluators;
    state.counters["floor_ms"] = 1000 * floor;
    state.counters["times_floor"] = least / floor;
}

void synthesis(benchmark::State& state) {
    const WorkloadDirectory directory(1);
    InconsistencyList findings;
    for (const auto& step : state) {
        static_cast<void>(step);
        state.PauseTiming();
        calculateLocalWeights(evaluatorRound(directory.round(), 1), findings);
        state.ResumeTiming();
        synthesise(evaluatorRound(directory.round(), 1));
    }
}

void numbering(benchmark::State& state) {
    const WorkloadDirectory directory(1);
    for (const auto& step : state) {
        static_cast<void>(step);
        NumberHierarchy(*DbConn, QString::number(Workload::problemNo), 1);
    }
}

void grade(benchmark::State& state) {
    const WorkloadDirectory directory(static_cast<int>(state.range(0)));
    directory.calculate();
    for (const auto& step : state) {
        static_cast<void>(step);
        benchmark::DoNotOptimize(VariationGrade(directory.round()));
    }
}

// Whether the results of all belong to the answers: wanted is a tenth of their calculation at most.
void roundState(benchmark::State& state) {
    const WorkloadDirectory directory(static_cast<int>(state.range(0)));
    directory.calculate();
    for (const auto& step : state) {
        static_cast<void>(step);
        benchmark::DoNotOptimize(readRoundState(directory.round()));
    }
}

// A matrix whose judgements contradict each other a little, so that the iteration takes its usual time.
void powerMethod(benchmark::State& state) {
    const auto n = static_cast<qint16>(state.range(0));
    ComparisonMatrix comparison;
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            comparison.value[i][j] = i == j ? 1 : i < j ? 1 + (i + 2 * j) % 5 : 1.0 / (1 + (j + 2 * i) % 5);
    for (const auto& step : state) {
        static_cast<void>(step);
        benchmark::DoNotOptimize(power(comparison, n));
    }
}

} // namespace

BENCHMARK(calculate)->Apply(numbers<10, 30, Workload::mostEvaluators>);
BENCHMARK(synthesis)->Apply(numbers<>);
BENCHMARK(numbering)->Apply(numbers<>);
BENCHMARK(grade)->Apply(numbers<10, 30, Workload::mostEvaluators>);
BENCHMARK(roundState)->Apply(numbers<10, 30, Workload::mostEvaluators>);
BENCHMARK(powerMethod)->Apply(numbers<3, 7, 20>)->Unit(benchmark::kMicrosecond);
