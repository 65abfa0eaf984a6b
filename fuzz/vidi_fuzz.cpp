// Arbitrary text as a weekly file of the Vidiprinter: a league table, the
// group tables, the qualifying tables or a results file. The first byte picks
// the reader. A reader may refuse the file with GameFileError and must do
// nothing worse; what it gives back keeps to its widths.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "results/vidiprinter.h"

using namespace kestrin;
using namespace kestrin::results;

namespace {

void checkPlaces(const std::vector<VidiPlace>& table, size_t most) {
    if (table.size() > most) __builtin_trap();
    for (const VidiPlace& p : table)
        if (p.name.empty() || p.name.size() > 20) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1) return 0;
    const std::vector<std::string> lines =
        splitLines(std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1));
    try {
        switch (data[0] % 4) {
            case 0: checkPlaces(readVidiLeagueTable(lines, "Weekly/ENGTABS.TXT"), 20); break;
            case 1:
                for (const auto& g : readVidiGroupTables(lines, "Weekly/CL_TABLE.TXT")) checkPlaces(g, 4);
                break;
            case 2:
                for (const auto& g : readVidiInternationalTables(lines, "Weekly/INT_TABL.TXT")) checkPlaces(g, 4);
                break;
            default:
                for (const VidiMatch& m : readVidiResults(lines, "Weekly/ENG.TXT", "Eng Prem")) {
                    if (m.home.empty() || m.home.size() > 20 || m.away.empty() || m.away.size() > 20) __builtin_trap();
                    if (m.homeGoals < 0 || m.awayGoals < 0 || m.aggHome < 0 || m.aggAway < 0) __builtin_trap();
                    for (const auto* side : {&m.homeScorers, &m.awayScorers})
                        for (const VidiGoal& g : *side)
                            if (g.scorer.size() > 12 || g.minute < 0) __builtin_trap();
                }
        }
    } catch (const GameFileError& e) {
        if (e.file.empty()) __builtin_trap();
    }
    return 0;
}
