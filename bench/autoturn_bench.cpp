// Auto Turn over the large demo league: 30 managed clubs, every stage on,
// ranked by total skill. The whole run should stay under 200 ms.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include "autoturn/autoturn.h"
#include "core/loader.h"
#include "core/messages.h"
#include "demo/demo.h"

using namespace kestrin;

namespace {

class LargeLeague {
public:
    LargeLeague() : folder_(fs::temp_directory_path() / ("kestrin-autoturn-bench-" + std::to_string(::getpid()))) {
        fs::remove_all(folder_);
        makeDemoLeague(folder_, largeDemoOptions());
        RecordingMessages quiet;
        session_ = loadSession(folder_, quiet);
    }
    ~LargeLeague() {
        std::error_code ec;
        fs::remove_all(folder_, ec);
    }
    const Session& session() const { return session_; }

private:
    fs::path folder_;
    Session session_;
};

void BM_AutoTurnAllClubs(benchmark::State& state) {
    static const LargeLeague league;
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
