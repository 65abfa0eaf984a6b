// Arbitrary text as a match report, a weekly league file or a Squadsheet,
// loaded into an in-memory Stats database. The first byte picks the reader.
// Nothing may crash, throw or read out of bounds; each input is rolled back.
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Transaction.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/gamefolder.h"
#include "stats/matchreport.h"
#include "stats/squad.h"
#include "stats/store.h"
#include "stats/weekly.h"

using namespace kestrin;
using namespace kestrin::stats;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static SQLite::Database db(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    static const bool made = (createSchema(db), true);
    static StatsStore store(db, "2026-05-16");
    (void)made;
    if (size < 1) return 0;
    const std::vector<std::string> lines =
        splitLines(std::string_view(reinterpret_cast<const char*>(data) + 1, size - 1));
    SQLite::Transaction transaction(db);
    store.clubs.clear();
    store.clubs.add("KEST", "Kestrel Rovers");
    store.clubs.add("PORT", "Port Elm Athletic");
    switch (data[0] % 10) {
        case 0: loadMatchReports(store, lines); break;
        case 1: loadClubs(store, lines); break;
        case 2: loadManagers(store, lines); break;
        case 3: loadCoaching(store, lines); break;
        case 4: loadTables(store, "ENGTABS.TXT", lines); break;
        case 5: loadTrades(store, "TRANSFER.TXT", lines); break;
        case 6: loadCoachingNews(store, "NEWSINC.TXT", lines); break;
        case 7: loadSquadReportTrades(store, lines); break;
        case 8:
            loadSquadSkills(store, "KESTSQUA.TXT", lines);
            loadMatchSummaries(store, "KESTSQUA.TXT", lines);
            break;
        default:
            // A report twice over: the second load meets its own rows.
            loadMatchReports(store, lines);
            loadMatchReports(store, lines);
            break;
    }
    return 0;  // the transaction rolls back
}
