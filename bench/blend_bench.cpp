// Blend analysis against the Stats database of a whole demo season: thirty
// managed clubs played to the end of the league, refreshed week by week as
// the manager would. The pitch grid's button, and the walk over all of a
// club's matches when no line is ever met, should each stay under 20 ms.
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <benchmark/benchmark.h>
#include <unistd.h>

#include "autoturn/autoturn.h"
#include "core/gamefolder.h"
#include "core/loader.h"
#include "core/messages.h"
#include "demo/demo.h"
#include "demo/league.h"
#include "files/archive.h"
#include "match/blend.h"
#include "stats/refresh.h"

using namespace kestrin;

namespace {

// The season is made once per run and removed at exit.
class Season {
public:
    Season() : folder_(fs::temp_directory_path() / ("kestrin-blend-bench-" + std::to_string(::getpid()))) {
        fs::remove_all(folder_);
        DemoOptions o;
        o.clubs = 30;
        demo::League league(o);
        league.playToSeasonEnd();
        o.weeks = league.week();
        makeDemoLeague(folder_, o);
        settings_ = defaultSettings(folder_);
        settings_.StatsFile = (folder_ / "stats.db").string();
        for (int week = 1; week <= o.weeks; ++week) {
            const fs::path archive = folder_ / "Archives" / ("week" + std::to_string(week));
            for (const char* f : {"Squadsheets", "Weekly"}) {
                fs::remove_all(folder_ / f);
                extractZip(archive / (f[0] == 'S' ? "squad.zip" : "weekly.zip"), folder_ / f);
            }
            RecordingMessages quiet;
            stats::RefreshOptions options;
            options.showDone = false;
            if (stats::refreshStats(GameFolder(folder_), settings_, quiet, options).status != stats::RefreshStatus::Done)
                throw std::runtime_error("refresh of week " + std::to_string(week) + " failed");
        }
        weeks_ = o.weeks;
        RecordingMessages quiet;
        const Session s = loadSession(folder_, quiet);
        club_ = s.Clubs.at(0).ClubFile;
        lineUp_ = blendLineUp(s.Clubs.at(0).Fixtures.at(0));
    }
    ~Season() {
        std::error_code ec;
        fs::remove_all(folder_, ec);
    }
    const Settings& settings() const { return settings_; }
    const std::string& club() const { return club_; }
    const BlendLineUp& lineUp() const { return lineUp_; }
    int weeks() const { return weeks_; }
    const fs::path& folder() const { return folder_; }

private:
    fs::path folder_;
    Settings settings_;
    std::string club_;
    BlendLineUp lineUp_;
    int weeks_ = 0;
};

const Season& season() {
    static const Season s;
    return s;
}

int64_t count(const std::string& sql, const std::string& club = {}) {
    SQLite::Database db(season().settings().StatsFile);
    SQLite::Statement q(db, sql);
    if (!club.empty()) q.bind(1, club);
    return q.executeStep() ? q.getColumn(0).getInt64() : 0;
}

// What the button does: open the database, check it, look the line-up up.
void BM_BlendButton(benchmark::State& state) {
    const Season& s = season();
    std::string text;
    for (auto _ : state) {
        RecordingMessages messages;
        const std::optional<Blend> b = blendAnalysis(s.settings(), s.club(), s.lineUp(), messages, "Kestrin");
        if (!b) throw std::runtime_error("no blend");
        text = b->text();
    }
    state.SetLabel(text);
    state.counters["weeks"] = s.weeks();
    state.counters["matches"] = double(count("SELECT COUNT(*) FROM MatchMain"));
    state.counters["MatchPlayer"] = double(count("SELECT COUNT(*) FROM MatchPlayer"));
}
BENCHMARK(BM_BlendButton)->Unit(benchmark::kMillisecond);

// The worst case: nobody of the line-up ever played, so every match of the
// club is read. A reader kept open, as Auto Turn would use it.
void BM_BlendOverEveryMatch(benchmark::State& state) {
    const Season& s = season();
    BlendLineUp nobody = s.lineUp();
    for (std::string& name : nobody.Shirts) name = "Nobody " + name;
    SQLite::Database db(s.settings().StatsFile, SQLite::OPEN_READONLY);
    BlendReader reader(db);
    std::string text;
    for (auto _ : state) text = reader.blendOf(s.club(), nobody).text();
    state.SetLabel(text);
    state.counters["club matches"] = double(
        count("SELECT COUNT(*) FROM MatchMain WHERE HomeSide = ?1 OR AwaySide = ?1", s.club()));
}
BENCHMARK(BM_BlendOverEveryMatch)->Unit(benchmark::kMillisecond);

// Auto Turn by Best Blend for all thirty clubs: every club's lines read from
// the season and searched, then the team written; the other stages off.
void BM_AutoTurnByBestBlend(benchmark::State& state) {
    const Season& season_ = season();
    RecordingMessages quiet;
    Session loaded = loadSession(season_.folder(), quiet);
    loaded.Prefs = season_.settings();
    AutoTurnOptions options;
    options.Physio = options.Warn = options.Scout = options.Coach = false;
    options.Choices.assign(size_t(loaded.ClubCount()) + 1, PickChoice{PickMethod::BestBlend, std::string(kAutoPick)});
    SQLite::Database db(season_.settings().StatsFile, SQLite::OPEN_READONLY);
    const RandomSource rnd = defaultRandomSource(1);
    size_t skipped = 0;
    for (auto _ : state) {
        state.PauseTiming();
        Session s = loaded;
        state.ResumeTiming();
        skipped = 0;
        for (const ClubRun& r : runAutoTurn(s, options, &db, quiet, rnd)) skipped += r.Skipped;
    }
    state.counters["clubs"] = loaded.ClubCount();
    state.counters["skipped"] = double(skipped);
}
BENCHMARK(BM_AutoTurnByBestBlend)->Unit(benchmark::kMillisecond);

}  // namespace
