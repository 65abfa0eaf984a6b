// Auto Turn over the large demo league: 30 managed clubs, every stage on,
// ranked by total skill. The whole run should stay under 200 ms.
#include <benchmark/benchmark.h>

#include "autoturn/autoturn.h"
#include "core/messages.h"
#include "largeleague.h"

using namespace kestrin;

namespace {

void BM_AutoTurnAllClubs(benchmark::State& state) {
    const bench::LargeLeague& league = bench::largeLeague();
    AutoTurnOptions options;
    options.Choices.assign(size_t(league.session().ClubCount()) + 1, PickChoice{});
    const RandomSource rnd = defaultRandomSource(1);
    size_t asked = 0;
    for (auto _ : state) {
        state.PauseTiming();
        Session s = league.session();
        RecordingMessages messages;
        messages.defaultAnswer = false;
        state.ResumeTiming();
        const std::vector<ClubRun> runs = runAutoTurn(s, options, nullptr, messages, rnd);
        benchmark::DoNotOptimize(runs.data());
        asked = messages.entries.size();
    }
    state.counters["clubs"] = league.session().ClubCount();
    state.counters["questions"] = double(asked);
}
BENCHMARK(BM_AutoTurnAllClubs)->Unit(benchmark::kMillisecond);

}  // namespace
