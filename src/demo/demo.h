#pragma once
// The demo league: a believable game folder in the game's own formats, made
// from a seed, for trying the program and for the tests.
#include <cstdint>
#include <filesystem>

namespace kestrin {

struct DemoOptions {
    int clubs = 3;                  // managed clubs, one Squadsheet each
    int exportClubs = 200;          // clubs of the whole game in clubsqua.txt
    int playersPerExportClub = 22;  // squad size of the clubs that are not managed
    uint64_t seed = 1;
    int weeks = 1;                  // successive weeks of archives
    int clubsWithOrders = 2;        // the first clubs of the session get orders in every group
};

// Writes game.ini and the two archives of each week (under Archives/), then
// unpacks the first week into the game folder as Load New Turn would, and
// saves Turnsheets with orders for some clubs. The same options always give
// the same bytes.
void makeDemoLeague(const std::filesystem::path& gameFolder, const DemoOptions& options);

// The large league of the benchmarks: 30 managed clubs, 2,000 export clubs of 25 players.
DemoOptions largeDemoOptions();

}  // namespace kestrin
