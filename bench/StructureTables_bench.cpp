// What choosing a problem and saving a parent cost in the structure editor's tables, by the number of nodes.
#include "hierarchy/StructureTables.h"

#include "Measured.h"
#include "core/Common.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int factors = 5000;
constexpr int childrenOfEach = 10;
constexpr int levels = 5;

// A full tree of `nodes` factors below problem 1.
struct Problem : MeasuredDirectory {
    explicit Problem(int nodes) {
        Common::DbConn->execute(
            u"INSERT INTO 要因 WITH RECURSIVE n(i) AS (SELECT 0 UNION SELECT i + 1 FROM n WHERE i < ?) "
            "SELECT i + 1,1,'要因' || i,'' FROM n",
            factors);
        Common::DbConn->execute(
            u"INSERT INTO 要因構成 WITH RECURSIVE n(i) AS (SELECT 0 UNION SELECT i + 1 FROM n WHERE i < ?1) "
            "SELECT 1,i / ?2 + 1,i + 2,i % ?2 + 1,'1' FROM n",
            nodes - 1, childrenOfEach);
        Common::DbConn->endUnitOfWork();
    }
};

void choose(benchmark::State& state) {
    const Problem problem(static_cast<int>(state.range(0)));
    for (const auto& step : state) {
        static_cast<void>(step);
        rebuildStructureDisplay(*Common::DbConn, 1, levels);
        Common::DbConn->endUnitOfWork();
        benchmark::DoNotOptimize(readParents(*Common::DbConn, 1, u"課題"_s, levels));
        benchmark::DoNotOptimize(readTree(*Common::DbConn, 1));
    }
    state.SetComplexityN(state.range(0));
}

void save(benchmark::State& state) {
    const Problem problem(static_cast<int>(state.range(0)));
    const ChildList children = readChildren(*Common::DbConn, 1, 2);
    for (const auto& step : state) {
        static_cast<void>(step);
        benchmark::DoNotOptimize(refusedChild(*Common::DbConn, 1, 2, savedChildren(children)));
        saveChildren(*Common::DbConn, 1, 2, savedChildren(children));
        removeOrphans(*Common::DbConn, 1);
        rebuildStructureDisplay(*Common::DbConn, 1, levels);
        Common::DbConn->endUnitOfWork();
    }
    state.SetComplexityN(state.range(0));
}

} // namespace

BENCHMARK(choose)->Apply(numbers<750, 1500, 3000>)->Complexity();
BENCHMARK(save)->Apply(numbers<750, 1500, 3000>)->Complexity();
