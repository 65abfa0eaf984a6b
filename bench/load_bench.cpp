// Start-up on the large demo league: 30 Squadsheets and a club export of
// 2,000 clubs. The whole session load should stay under 10 ms.
#include <benchmark/benchmark.h>

#include "core/gamefolder.h"
#include "core/loader.h"
#include "core/messages.h"
#include "demo/demo.h"
#include "files/clubexport.h"
#include "files/squadsheet.h"
#include "orders/harvest.h"
#include "largeleague.h"

using namespace kestrin;

namespace {

const bench::LargeLeague& league() { return bench::largeLeague(); }

void BM_LoadSession(benchmark::State& state) {
    const fs::path& folder = league().folder();
    size_t clubs = 0;
    for (auto _ : state) {
        RecordingMessages messages;
        Session s = loadSession(folder, messages);
        clubs = s.Clubs.size() + s.ExportClubs.size();
        benchmark::DoNotOptimize(s);
    }
    state.counters["clubs"] = double(clubs);
}
BENCHMARK(BM_LoadSession)->Unit(benchmark::kMillisecond);

// The reader keeps the bytes it is given, so each round reads the file again.
void BM_ClubExportReader(benchmark::State& state) {
    const fs::path path = GameFolder(league().folder()).resolve("Weekly/clubsqua.txt");
    size_t clubs = 0;
    for (auto _ : state) {
        const ClubExport e = readClubExport(readFileBytes(path), "Weekly/clubsqua.txt");
        clubs = e.size();
        benchmark::DoNotOptimize(e);
    }
    state.counters["clubs"] = double(clubs);
}
BENCHMARK(BM_ClubExportReader)->Unit(benchmark::kMillisecond);

void BM_SquadsheetReader(benchmark::State& state) {
    const GameFolder game(league().folder());
    std::vector<std::pair<std::string, std::vector<std::string>>> sheets;
    for (const std::string& name : game.list("Squadsheets", "*sq*.txt"))
        sheets.emplace_back(name, readLines(game.resolve("Squadsheets/" + name)));
    for (auto _ : state)
        for (const auto& [name, lines] : sheets) {
            std::string stamp;
            benchmark::DoNotOptimize(readSquadsheet(lines, name, clubFileFromName(name), stamp));
        }
    state.counters["sheets"] = double(sheets.size());
}
BENCHMARK(BM_SquadsheetReader)->Unit(benchmark::kMillisecond);

// Last week's reports of the 30 clubs: memos, ticker and Last Week's boxes,
// as every start of the same week rebuilds them.
void BM_HarvestSameWeek(benchmark::State& state) {
    RecordingMessages quiet;
    Session s = loadSession(league().folder(), quiet);
    size_t memos = 0;
    for (auto _ : state) {
        RecordingMessages messages;
        s.NewTurn = false;
        harvestReports(s, messages);
        for (const Club& c : s.Clubs) benchmark::DoNotOptimize(lastWeekBoxes(s, c));
        memos = s.Memos.size();
    }
    state.counters["memos"] = double(memos);
}
BENCHMARK(BM_HarvestSameWeek)->Unit(benchmark::kMillisecond);

void BM_ReadBytesOfClubExport(benchmark::State& state) {
    const fs::path path = GameFolder(league().folder()).resolve("Weekly/clubsqua.txt");
    for (auto _ : state) benchmark::DoNotOptimize(readFileBytes(path));
}
BENCHMARK(BM_ReadBytesOfClubExport)->Unit(benchmark::kMillisecond);

}  // namespace
