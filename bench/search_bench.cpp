// The player search over the large demo league's club export: 2,000 clubs of
// 25 players. A band search and a name search should each stay under 5 ms.
#include <benchmark/benchmark.h>

#include "core/messages.h"
#include "orders/search.h"
#include "largeleague.h"

using namespace kestrin;

namespace {

const Session& league() { return bench::largeLeague().session(); }

size_t players(const Session& s) {
    size_t n = 0;
    for (const ExportClub& c : s.ExportClubs) n += c.Players.size();
    return n;
}

void run(benchmark::State& state, const SearchFilter& filter, bool rows) {
    const Session& s = league();
    const int64_t balance = s.Clubs.empty() ? 0 : s.Clubs.front().Balance;
    size_t found = 0;
    for (auto _ : state) {
        std::vector<SearchHit> hits = searchExport(s.ExportClubs, filter, balance);
        found = hits.size();
        if (rows) benchmark::DoNotOptimize(searchRows(s.ExportClubs, hits));
        benchmark::DoNotOptimize(hits);
    }
    state.counters["players"] = double(players(s));
    state.counters["found"] = double(found);
}

// Every band box set, so each player passes through as many tests as it can.
const SearchFilter kBands{.Pos = "Any Defender", .Perf = "30", .Value = "Within my bank balance",
                          .Age = "20 to 29", .Sign = "3", .Managed = "No"};
const SearchFilter kName{.Name = "son"};

void BM_SearchBands(benchmark::State& state) { run(state, kBands, false); }
BENCHMARK(BM_SearchBands)->Unit(benchmark::kMillisecond);

void BM_SearchName(benchmark::State& state) { run(state, kName, false); }
BENCHMARK(BM_SearchName)->Unit(benchmark::kMillisecond);

// The same with the screen's rows made for every player found.
void BM_SearchBandsWithRows(benchmark::State& state) { run(state, kBands, true); }
BENCHMARK(BM_SearchBandsWithRows)->Unit(benchmark::kMillisecond);

void BM_SearchNameWithRows(benchmark::State& state) { run(state, kName, true); }
BENCHMARK(BM_SearchNameWithRows)->Unit(benchmark::kMillisecond);

}  // namespace
