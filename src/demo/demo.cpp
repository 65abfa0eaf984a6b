#include "demo/demo.h"

#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/loader.h"
#include "core/messages.h"
#include "demo/league.h"
#include "files/archive.h"
#include "files/turnsheet.h"
#include "orders/history.h"

namespace kestrin {

namespace {

// Midday of the turn's date, as seconds since 1970, to date the archives' entries.
std::time_t archiveTime(const demo::Date& d) {
    std::tm tm{};
    tm.tm_year = d.year - 1900;
    tm.tm_mon = d.month - 1;
    tm.tm_mday = d.day;
    tm.tm_hour = 12;
    tm.tm_isdst = -1;
    return std::mktime(&tm);
}

// Load New Turn with "overwrite": last week's files go before the new ones come.
void emptyFolder(const GameFolder& game, std::string_view relative) {
    game.ensureFolder(relative);
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(game.resolve(relative), ec))
        if (entry.is_regular_file(ec)) fs::remove(entry.path(), ec);
}

}  // namespace

void makeDemoLeague(const std::filesystem::path& gameFolder, const DemoOptions& options) {
    demo::League league(options);
    fs::create_directories(gameFolder);
    const GameFolder game(gameFolder);

    writeFileAtomic(game.resolve("game.ini"), gameIniBytes(league.gameIni()));
    for (const demo::DemoClub* club : league.managedClubs())
        writeFileAtomic(game.resolve(league.historyFileName(*club)), historyBytes(club->History));

    game.ensureFolder("Archives");
    for (int week = 1; week <= std::max(1, options.weeks); ++week) {
        if (week > 1) league.nextWeek();
        const std::string dir = "Archives/week" + std::to_string(week);
        game.ensureFolder(dir);
        std::vector<ZipEntry> squads;
        for (const demo::DemoClub* club : league.managedClubs()) {
            squads.push_back({league.squadsheetFileName(*club), league.squadsheetText(*club)});
            std::string report = league.matchReportText(*club);
            if (!report.empty()) squads.push_back({league.matchReportFileName(*club), std::move(report)});
        }
        const std::time_t when = archiveTime(league.turnDate());
        writeZip(game.resolve(dir + "/squad.zip"), squads, when);
        std::vector<ZipEntry> weekly{{"clubsqua.txt", league.clubExportText()}};
        for (auto& [name, text] : league.weeklyFiles()) weekly.push_back({name, text});
        writeZip(game.resolve(dir + "/weekly.zip"), weekly, when);
    }

    emptyFolder(game, "Squadsheets");
    emptyFolder(game, "Weekly");
    emptyFolder(game, "Turnsheet");
    game.ensureFolder("Profiles");
    extractZip(game.resolve("Archives/week1/squad.zip"), game.resolve("Squadsheets"));
    extractZip(game.resolve("Archives/week1/weekly.zip"), game.resolve("Weekly"));

    RecordingMessages messages;
    Session session = loadSession(gameFolder, messages);
    demo::giveOrders(session, options.clubsWithOrders, options.seed);
    if (session.ClubCount() > 0) saveTurnsheets(session, messages);
}

DemoOptions largeDemoOptions() {
    DemoOptions o;
    o.clubs = 30;
    o.exportClubs = 2000;
    o.playersPerExportClub = 25;
    return o;
}

}  // namespace kestrin
