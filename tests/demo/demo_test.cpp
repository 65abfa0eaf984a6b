#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <set>

#include "core/gamefolder.h"
#include "core/gameini.h"
#include "core/loader.h"
#include "core/text.h"
#include "demo/demo.h"
#include "demo/league.h"
#include "files/archive.h"
#include "files/loadturn.h"
#include "files/squadsheet.h"
#include "orders/harvest.h"
#include "orders/history.h"
#include "stats/honours.h"
#include "stats/lookups.h"
#include "stats/refresh.h"
#include "stats/statsdb.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::filesBelow;
using kestrin::test::TempDir;

namespace {

using test::loadQuietly;
DemoOptions small(uint64_t seed) { return test::smallDemo(seed, 40); }

const demo::DemoClub* managedByKey(const demo::League& league, const std::string& key) {
    for (const demo::DemoClub* c : league.managedClubs())
        if (c->Key == key) return c;
    return nullptr;
}

// The Stats database of the game folder after one refresh of its week.
stats::RefreshResult refresh(const fs::path& folder, Settings& settings) {
    settings.StatsFile = (folder / "stats.db").string();
    RecordingMessages messages;
    stats::RefreshOptions quiet;
    quiet.showDone = false;
    return stats::refreshStats(GameFolder(folder), settings, messages, quiet);
}

// A league table file as (club, "played|goal difference|points"), in its order.
std::vector<std::pair<std::string, std::string>> tableOf(const std::string& text) {
    std::vector<std::pair<std::string, std::string>> out;
    size_t played = 0, gd = 0, pts = 0;
    for (const std::string& line : splitLines(text)) {
        if (line.find(" Mgd ") != std::string::npos) {
            played = line.find("PYD ");
            gd = line.find(" GD ") + 1;
            pts = line.find(" PTS");
        } else if (pts && line.size() > pts && val(line.substr(0, 4)) > 0) {
            out.emplace_back(trim(line.substr(5, 20)), std::to_string(int(val(line.substr(played, 2)))) + "|" +
                                                           std::to_string(int(val(line.substr(gd, 4)))) + "|" +
                                                           std::to_string(int(val(line.substr(pts)))));
        }
    }
    return out;
}

}  // namespace

TEST(DemoLeague, SameSeedSameBytesOtherSeedOtherLeague) {
    TempDir a, b, c;
    makeDemoLeague(a.path(), small(11));
    makeDemoLeague(b.path(), small(11));
    makeDemoLeague(c.path(), small(12));
    auto fa = filesBelow(a.path()), fb = filesBelow(b.path()), fc = filesBelow(c.path());
    // The settings file holds the game folder's own path, so it is not compared.
    for (auto* m : {&fa, &fb, &fc}) ASSERT_EQ(m->erase(kSettingsFileName), 1u);

    ASSERT_EQ(fa.size(), fb.size());
    for (const auto& [name, bytes] : fa) {
        ASSERT_TRUE(fb.count(name)) << name;
        EXPECT_TRUE(bytes == fb[name]) << name << " differs between two runs of the same seed";
    }
    for (const char* name : {"Archives/week1/squad.zip", "Archives/week1/weekly.zip", "Weekly/clubsqua.txt"})
        EXPECT_TRUE(fa.count(name) && fc.count(name) && fa[name] != fc[name]) << name;
    EXPECT_TRUE(fa["game.ini"] == fc["game.ini"]);  // the game is the same, the league is not
}

TEST(DemoLeague, GameIniIsScrambledAndReadsBack) {
    TempDir t;
    makeDemoLeague(t.path(), small(3));
    const std::string bytes = t.read("game.ini");
    ASSERT_EQ(bytes.size(), kGameIniLength);
    // The pound sign is byte 0xA3, moved by 10 and its place in the field.
    EXPECT_EQ(static_cast<unsigned char>(bytes[43]), 0xA3 + 11);
    const GameIni ini = readGameIni(t.path() / "game.ini");
    EXPECT_EQ(ini.Currency, "\xA3");
    std::set<std::string> names(ini.LeagueNames.begin() + 1, ini.LeagueNames.begin() + 9);
    EXPECT_EQ(names.size(), 8u);
    EXPECT_EQ(names.count(""), 0u);
}

TEST(DemoLeague, SessionHoldsWhatTheSquadsheetsSay) {
    for (uint64_t seed : {1u, 2u}) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        TempDir t;
        const DemoOptions o = small(seed);
        makeDemoLeague(t.path(), o);
        fs::remove_all(t.path() / "Turnsheet");  // the clubs as the Squadsheets alone give them
        const demo::League league(o);  // the same seed gives the league the files were made from
        const Session s = loadQuietly(t.path());
        EXPECT_TRUE(s.LoadProblems.empty()) << (s.LoadProblems.empty() ? "" : s.LoadProblems[0]);
        ASSERT_EQ(s.ClubCount(), o.clubs);
        EXPECT_EQ(s.TurnStamp, league.turnStamp());
        EXPECT_EQ(s.TurnStamp.size(), 22u);
        for (const Club& got : s.Clubs) {
            const demo::DemoClub* model = managedByKey(league, got.ClubFile);
            ASSERT_NE(model, nullptr) << got.ClubFile;
            Club want = league.expectedClub(*model);
            EXPECT_EQ(got.Players, want.Players) << want.Name;
            ASSERT_EQ(got.Fixtures.size(), want.Fixtures.size()) << want.Name;
            for (size_t m = 0; m < got.Fixtures.size(); ++m) {
                const Fixture &g = got.Fixtures[m], &w = want.Fixtures[m];
                EXPECT_EQ(g.Venue + "|" + g.Opponent + "|" + g.Competition,
                          w.Venue + "|" + w.Opponent + "|" + w.Competition);
            }
            want.Fixtures = got.Fixtures;  // the team sheets stand at their default places, no Squadsheet matter
            EXPECT_TRUE(got == want) << want.Name << ": a field of the club's details differs";
        }
    }
}

// Rules of the squads that hold for every player of every managed club, and
// the cases the program's rules need.
TEST(DemoLeague, EveryPlayerIsCoherentAndEveryClubHasTheCasesTheRulesNeed) {
    TempDir t;
    DemoOptions o = small(4);
    o.clubs = 6;
    makeDemoLeague(t.path(), o);
    const Session s = loadQuietly(t.path());
    ASSERT_EQ(s.ClubCount(), 6);
    const std::set<std::string> codes(kPositionCodes.begin(), kPositionCodes.end());
    // Across the league: the grade bands of potential, #NULL# figures read as 0, sides of the pitch.
    std::set<std::string> grades, sides;
    bool nullPerf = false, nullFive = false;
    for (const Club& c : s.Clubs) {
        SCOPED_TRACE(c.Name);
        EXPECT_GE(c.Players.size(), 20u);
        EXPECT_LE(c.Players.size(), 28u);
        int keepers = 0;
        std::set<std::string> seen;
        for (const Player& p : c.Players) {
            SCOPED_TRACE(p.Name);
            int sum = 0;
            for (int i = 0; i < 11; ++i) sum += p.skill(i);
            EXPECT_EQ(sum, p.TotalSkill);
            EXPECT_GE(p.TotalSkill, p.Skill * 11);
            EXPECT_LE(p.TotalSkill, p.Skill * 11 + 10);
            EXPECT_GE(p.Age, 16);
            EXPECT_LE(p.Age, 36);
            EXPECT_LE(p.Name.size(), 20u);
            EXPECT_TRUE(codes.count(p.Position));
            EXPECT_TRUE(seen.insert(p.Name).second) << "two players of one name";
            EXPECT_EQ(p.LoanLength > 0, !p.LoaningClub.empty());
            if (p.LoanLength > 0) {
                EXPECT_EQ(p.WeeksInReserves, 0);
            }
            keepers += p.Position == "AGKP";
            grades.insert(potentialGrade(p.Potential));
            sides.insert(p.Position.substr(3));
            nullPerf = nullPerf || p.AverageSeasonPerf == 0;
            nullFive = nullFive || p.LastFivePerf[0] == 0;
        }
        EXPECT_GE(keepers, 2);
        EXPECT_LE(keepers, 3);
    }

    // Cases every rule of the program needs, present in every managed club.
    struct Case {
        const char* what;
        bool (*holds)(const Player&);
    } cases[] = {
        {"a youth under 18", [](const Player& p) { return p.Age < 18; }},
        {"an injury of 10 or more", [](const Player& p) { return p.Injury >= 10; }},
        {"a suspended player", [](const Player& p) { return p.SuspPoints >= 1; }},
        {"a player on loan", [](const Player& p) { return p.LoanLength > 0 && !p.LoaningClub.empty(); }},
        {"a player fit to play", [](const Player& p) { return p.Injury == 0 && p.SuspPoints == 0; }},
        {"a defender", [](const Player& p) { return startsWith(p.Position, "DEF"); }},
        {"a midfielder", [](const Player& p) { return startsWith(p.Position, "MID"); }},
        {"a striker", [](const Player& p) { return startsWith(p.Position, "STR"); }},
    };
    for (const Club& c : s.Clubs)
        for (const Case& k : cases)
            EXPECT_TRUE(std::any_of(c.Players.begin(), c.Players.end(), k.holds)) << c.Name << " lacks " << k.what;
    EXPECT_EQ(grades.size(), 8u);
    EXPECT_EQ(sides, (std::set<std::string>{"C", "L", "P", "R"}));
    EXPECT_TRUE(nullPerf);
    EXPECT_TRUE(nullFive);
}

TEST(DemoLeague, ClubExportHoldsEveryClubWithItsTail) {
    TempDir t;
    const DemoOptions o = small(6);
    makeDemoLeague(t.path(), o);
    const demo::League league(o);
    const Session s = loadQuietly(t.path());
    ASSERT_EQ(s.ExportClubs.size(), size_t(o.exportClubs));
    ASSERT_EQ(league.clubs().size(), s.ExportClubs.size());

    int managed = 0;
    bool multiWordLoan = false, multiWordColours = false;
    for (size_t i = 0; i < s.ExportClubs.size(); ++i) {
        const ExportClub& got = s.ExportClubs[i];
        const demo::DemoClub& want = league.clubs()[i];
        ASSERT_EQ(got.Name, want.Name);
        ASSERT_EQ(got.Players.size(), want.Players.size()) << got.Name;
        managed += want.managed();
        for (size_t k = 0; k < got.Players.size(); ++k) {
            const ExportPlayer& p = got.Players[k];
            std::deque<std::string> texts;
            EXPECT_TRUE(p == league.expectedExportPlayer(want, want.Players[k], texts)) << got.Name << " / " << p.Name;
            // The tail rule is only tried when some loaning club and colours run to several words.
            multiWordLoan = multiWordLoan || (p.Loan > 0 && p.LoanClub.find(' ') != std::string::npos);
            multiWordColours = multiWordColours || Tokens(p.Colours).count() >= 3;
        }
    }
    EXPECT_EQ(managed, o.clubs);
    EXPECT_TRUE(multiWordLoan);
    EXPECT_TRUE(multiWordColours);
}

TEST(DemoLeague, ArchivesHoldTheWeeksAndTheFirstIsUnpacked) {
    TempDir t;
    DemoOptions o = small(7);
    o.weeks = 3;
    makeDemoLeague(t.path(), o);
    for (int w = 1; w <= 3; ++w) {
        SCOPED_TRACE("week " + std::to_string(w));
        const fs::path dir = t.path() / "Archives" / ("week" + std::to_string(w));
        const std::vector<std::string> squads = listZip(dir / "squad.zip");
        // A Squadsheet per club, and the match report of each club that played.
        const auto sheets = std::count_if(squads.begin(), squads.end(),
                                          [](const std::string& n) { return n.find("SQUA.TXT") != std::string::npos; });
        EXPECT_EQ(size_t(sheets), size_t(o.clubs));
        EXPECT_LE(squads.size(), 2 * size_t(o.clubs));
        EXPECT_TRUE(isSquadArchive(squads));
        EXPECT_FALSE(isWeeklyArchive(squads));
        EXPECT_TRUE(isWeeklyArchive(listZip(dir / "weekly.zip")));
    }
    // The game folder holds week 1, byte for byte.
    const fs::path week1 = t.path() / "Archives" / "week1";
    TempDir out;
    for (const fs::path& f : extractZip(week1 / "squad.zip", out.path()))
        EXPECT_TRUE(readFileBytes(f) == t.read("Squadsheets/" + f.filename().string())) << f;
    extractZip(week1 / "weekly.zip", out.path());
    EXPECT_TRUE(out.read("clubsqua.txt") == t.read("Weekly/clubsqua.txt"));
}

TEST(DemoLeague, LaterWeeksLoadAsNewTurns) {
    TempDir t;
    DemoOptions o = small(13);
    o.weeks = 3;
    makeDemoLeague(t.path(), o);
    demo::League league(o);
    RecordingMessages messages;
    Session s = loadSession(t.path(), messages);
    ASSERT_EQ(s.TurnStamp, league.turnStamp());
    for (int w = 2; w <= 3; ++w) {
        SCOPED_TRACE("week " + std::to_string(w));
        league.nextWeek();
        const fs::path dir = t.path() / "Archives" / ("week" + std::to_string(w));
        ASSERT_TRUE(loadNewTurn(s, (dir / "squad.zip").string(), (dir / "weekly.zip").string(), messages));
        EXPECT_TRUE(s.LoadProblems.empty()) << (s.LoadProblems.empty() ? "" : s.LoadProblems[0]);
        EXPECT_EQ(s.TurnStamp, league.turnStamp());
        EXPECT_FALSE(s.SameTurn);
        ASSERT_EQ(s.ClubCount(), o.clubs);
        for (const Club& got : s.Clubs) {
            const demo::DemoClub* model = managedByKey(league, got.ClubFile);
            ASSERT_NE(model, nullptr) << got.ClubFile;
            EXPECT_EQ(got.Players, league.expectedClub(*model).Players) << got.Name;
            EXPECT_EQ(got.Balance, model->Header.Balance) << got.Name;
        }
        EXPECT_EQ(s.ExportClubs.size(), size_t(o.exportClubs));
    }
}

TEST(DemoLeague, HistoryFilesHoldEveryResultBeforeTheFirstWeek) {
    TempDir t;
    DemoOptions o = small(8);
    o.clubs = 4;
    makeDemoLeague(t.path(), o);
    const demo::League league(o);
    const std::string firstDate = demo::yyyymmdd(league.turnDate());
    std::set<std::string> results;
    for (const demo::DemoClub* c : league.managedClubs()) {
        const fs::path path = t.path() / (c->Key + "HST.TXT");
        ASSERT_TRUE(fs::exists(path)) << path;
        EXPECT_EQ(fs::file_size(path) % kHistoryRecordLength, 0u);
        // The model's history, then what the first week's report added.
        const std::vector<HistoryRecord> records = readHistoryFile(path);
        ASSERT_GE(records.size(), c->History.size());
        ASSERT_TRUE(std::equal(c->History.begin(), c->History.end(), records.begin()));
        for (size_t i = 0; i < records.size(); ++i) {
            const HistoryRecord& h = records[i];
            results.insert(h.Result);
            if (i < c->History.size())
                EXPECT_LT(h.Date, firstDate);
            else
                EXPECT_EQ(h.Date, firstDate);
            EXPECT_GE(historySkillIndex(h.Skill), 0) << h.Skill;
            if (i < c->History.size()) {
                EXPECT_EQ(h.Result == "Y", h.NewValue > 0);
            }
        }
        EXPECT_TRUE(std::is_sorted(records.begin(), records.end(),
                                   [](const HistoryRecord& a, const HistoryRecord& b) { return a.Date < b.Date; }));
    }
    EXPECT_EQ(results, (std::set<std::string>{"N", "P", "Y"}));
}

TEST(DemoLeague, FirstClubsHaveOrdersTheRulesAllow) {
    TempDir t;
    const DemoOptions o = small(9);
    makeDemoLeague(t.path(), o);
    const Session s = loadQuietly(t.path());
    ASSERT_EQ(s.ClubCount(), 3);
    for (int c = 0; c < s.ClubCount(); ++c) {
        const Club& club = s.Clubs[size_t(c)];
        SCOPED_TRACE(club.Name);
        EXPECT_TRUE(fs::exists(t.path() / "Turnsheet" / (club.ClubFile + ".txt")));
        const bool ordered = c < o.clubsWithOrders;
        int picked = 0, coached = 0, secondAreas = 0;
        for (const Fixture& f : club.Fixtures) {
            if (f.Opponent.empty()) continue;
            std::set<std::string> names;
            for (const TeamSlot& slot : f.Slots) {
                if (slot.Player.empty()) continue;
                ++picked;
                EXPECT_TRUE(names.insert(slot.Player).second) << slot.Player << " picked twice";
                secondAreas += slot.Top2 > 0;
            }
            if (ordered) {
                EXPECT_EQ(names.size(), 13u) << "against " << f.Opponent;
            }
        }
        for (int i = 0; i < 8; ++i) {
            const CoachOrder& order = club.coachOrder(i);
            if (order.Player.empty()) continue;
            ++coached;
            const Player* p = club.player(club.findPlayer(order.Player));
            ASSERT_NE(p, nullptr) << order.Player;
            static const char* departments[4] = {"AGK", "DEF", "MID", "STR"};
            EXPECT_TRUE(startsWith(p->Position, departments[i % 4])) << order.Player;
            EXPECT_EQ(p->Age < 18, i >= 4) << order.Player;
        }
        if (ordered) {
            EXPECT_GT(coached, 0);
            EXPECT_GT(secondAreas, 0);
            EXPECT_FALSE(club.ScoutPlayer[0].empty());
            EXPECT_NE(club.Movements[0].Move, 0);
            EXPECT_FALSE(club.OneToOnePlayer.empty());
        } else {
            EXPECT_EQ(picked + coached, 0);
            EXPECT_TRUE(club.ScoutPlayer[0].empty());
            EXPECT_EQ(club.Movements[0].Move, 0);
        }
    }
}

TEST(DemoLeague, MakingAgainReplacesLastWeeksFilesAndLeavesTheManagersOwn) {
    TempDir t;
    makeDemoLeague(t.path(), small(10));
    // Files of an older league, and the manager's own notes.
    t.write("Squadsheets/oldSQUA.TXT", "stale");
    t.write("Turnsheet/old.txt", "stale");
    t.write("Weekly/OLDNEWS.TXT", "stale");
    const std::string notes = "Sell the keeper\r\nWatch the wingers\r\n";
    t.write("notepad.kst", notes);

    makeDemoLeague(t.path(), small(10));
    EXPECT_FALSE(fs::exists(t.path() / "Squadsheets/oldSQUA.TXT"));
    EXPECT_FALSE(fs::exists(t.path() / "Turnsheet/old.txt"));
    EXPECT_FALSE(fs::exists(t.path() / "Weekly/OLDNEWS.TXT"));
    EXPECT_EQ(t.read("notepad.kst"), notes);
    const Session s = loadQuietly(t.path());
    EXPECT_TRUE(s.LoadProblems.empty());
    EXPECT_EQ(s.ClubCount(), 3);
}

TEST(DemoLeague, LargeLeagueLoadsWhole) {
    TempDir t;
    const DemoOptions o = largeDemoOptions();
    makeDemoLeague(t.path(), o);
    const Session s = loadQuietly(t.path());
    EXPECT_TRUE(s.LoadProblems.empty());
    EXPECT_EQ(s.ClubCount(), 30);
    ASSERT_EQ(s.ExportClubs.size(), 2000u);
    std::set<std::string> names, ours;
    for (const Club& c : s.Clubs) ours.insert(c.Name);
    size_t managed = 0;
    for (const ExportClub& c : s.ExportClubs) {
        names.emplace(c.Name);
        ASSERT_FALSE(c.Players.empty()) << c.Name;
        if (c.Players[0].Managed == "Y") ++managed;
        if (!ours.count(std::string(c.Name))) {
            EXPECT_EQ(c.Players.size(), 25u) << c.Name;
        }
    }
    // Every club a manager runs, ours among them, is in EMAILS.TXT.
    const std::vector<std::string> emails = splitLines(t.read("Weekly/EMAILS.TXT"));
    EXPECT_EQ(managed, size_t(std::count_if(emails.begin(), emails.end(),
                                             [](const std::string& l) { return l.find('@') != std::string::npos; })));
    EXPECT_EQ(names.size(), 2000u) << "club names are unique";
}

// One week refreshed into the Stats database: every table gets rows, the
// short reports find the rows of the long ones, the matches are the model's,
// and a second refresh of the same week adds nothing.
TEST(DemoLeague, AWeekFillsEveryStatsTableOnce) {
    DemoOptions four = small(21);
    four.clubs = 4;
    const struct {
        const char* name;
        DemoOptions options;
    } cases[] = {{"small", four}, {"large", largeDemoOptions()}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        TempDir t;
        makeDemoLeague(t.path(), c.options);
        Settings settings = defaultSettings(t.path());
        const stats::RefreshResult first = refresh(t.path(), settings);
        ASSERT_EQ(first.status, stats::RefreshStatus::Done) << first.problem;
        const stats::AddedRows& a = first.added;
        for (auto [table, n] : {std::pair{"Clubs", a.Clubs}, {"Managers", a.Managers}, {"Coaching", a.Coaching},
                                {"Tables", a.Tables}, {"Trades", a.Trades}, {"MatchMain", a.MatchMain},
                                {"MatchTeam", a.MatchTeam}, {"MatchPlayer", a.MatchPlayer}, {"MatchGoal", a.MatchGoal},
                                {"Summary", a.Summary}, {"Skills", a.Skills}})
            EXPECT_GT(n, 0) << table;
        EXPECT_EQ(a.Clubs, c.options.exportClubs + 1);  // and "Unknown"
        EXPECT_EQ(a.MatchTeam, 2 * a.MatchMain);
        EXPECT_EQ(a.MatchPlayer, 26 * a.MatchMain);

        const demo::League league(c.options);
        std::multiset<std::string> want;
        int goals = 0;
        for (const demo::Match& m : league.weekMatches()) {
            const demo::DemoClub &home = league.clubs()[m.side[0].club], &away = league.clubs()[m.side[1].club];
            if (!home.managed() && !away.managed()) continue;
            const int round = m.cup ? stats::roundFromText(m.cupRound) : 50 + m.leagueRound;
            want.insert(home.Code + "|" + away.Code + "|" + std::to_string(m.side[0].goals) + "|" +
                        std::to_string(m.side[1].goals) + "|" + std::to_string(m.attendance) + "|" +
                        std::to_string(round) + "|" + (m.neutral() ? "N" : "H"));
            goals += m.side[0].goals + m.side[1].goals;
        }
        SQLite::Database db(settings.StatsFile);
        const std::vector<std::string> got = test::rows(
            db, "SELECT m.HomeSide, m.AwaySide, h.Score, a.Score, m.Attendance, m.RoundType, h.Venue FROM MatchMain m "
                "JOIN MatchTeam h ON h.MatchCode = m.MatchCode AND h.Club = m.HomeSide "
                "JOIN MatchTeam a ON a.MatchCode = m.MatchCode AND a.Club = m.AwaySide");
        EXPECT_EQ(std::multiset<std::string>(got.begin(), got.end()), want);
        EXPECT_EQ(a.MatchGoal, goals);
        // What only the short reports tell reached every side and every goal.
        EXPECT_EQ(test::rows(db, "SELECT COUNT(*) FROM MatchTeam WHERE Possession IS NULL OR Cap IS NULL")[0], "0");
        EXPECT_EQ(test::rows(db, "SELECT COUNT(*) FROM MatchGoal WHERE Value IS NULL OR Scorer IS NULL")[0], "0");
        EXPECT_EQ(test::rows(db, "SELECT COUNT(*) FROM Trades WHERE FromClub = '9999' OR ToClub = '9999'")[0], "0");
        EXPECT_EQ(test::rows(db, "SELECT COUNT(*) FROM Coaching WHERE Club = '9999'")[0], "0");

        const stats::RefreshResult second = refresh(t.path(), settings);
        ASSERT_EQ(second.status, stats::RefreshStatus::Done) << second.problem;
        stats::AddedRows again = second.added;
        EXPECT_EQ(again.Clubs, a.Clubs);  // the club list is made anew each time
        again.Clubs = 0;
        EXPECT_EQ(again, stats::AddedRows{});
    }
}

// Week by week, each club's line of the table moves by its result in the
// week's result file.
TEST(DemoLeague, TablesMoveByTheWeeksResults) {
    TempDir t;
    DemoOptions o = small(22);
    o.weeks = 3;
    makeDemoLeague(t.path(), o);
    auto weekly = [&](int week, const std::string& name) {
        TempDir out;
        extractZip(t.path() / "Archives" / ("week" + std::to_string(week)) / "weekly.zip", out.path());
        return fs::exists(out.path() / name) ? out.read(name) : std::string();
    };
    int checked = 0;
    for (const char* code : {"ENG", "ENG1"}) {
        for (int week = 2; week <= 3; ++week) {
            std::map<std::string, std::string> before;
            for (auto& [club, row] : tableOf(weekly(week - 1, std::string(code) + "TABS.TXT"))) before[club] = row;
            std::map<std::string, std::array<int, 3>> moved;  // played, goal difference, points
            for (const std::string& line : splitLines(weekly(week, std::string(code) + ".TXT"))) {
                if (line.find('(') == std::string::npos) continue;
                const size_t dash = line.find(" - ");
                const int h = int(val(line.substr(dash - 2, 2))), a = int(val(line.substr(dash + 3, 2)));
                const std::string home = trim(line.substr(0, line.find(" (")));
                const size_t from = line.rfind(')') + 3;
                const std::string away = trim(line.substr(from, line.size() - 8 - from));
                moved[home] = {1, h - a, h > a ? 3 : h == a ? 1 : 0};
                moved[away] = {1, a - h, a > h ? 3 : h == a ? 1 : 0};
            }
            const auto now = tableOf(weekly(week, std::string(code) + "TABS.TXT"));
            ASSERT_EQ(now.size(), 20u) << code;
            ASSERT_EQ(moved.size(), 20u) << code << " week " << week;
            for (auto& [club, row] : now) {
                ASSERT_TRUE(before.count(club) && moved.count(club)) << club;
                const std::vector<std::string> b = Tokens(before[club], '|').all();
                const auto& m = moved[club];
                EXPECT_EQ(row, std::to_string(std::stoi(b[0]) + m[0]) + "|" + std::to_string(std::stoi(b[1]) + m[1]) +
                                   "|" + std::to_string(std::stoi(b[2]) + m[2]))
                    << code << " week " << week << " " << club;
                ++checked;
            }
        }
    }
    EXPECT_EQ(checked, 80);
}

// The last week of a season refreshed: every managed club's honours show
// its finish beside the champions, and the cup final of a club that played it.
TEST(DemoLeague, SeasonsEndGivesHonours) {
    // The first league whose final one of our clubs plays.
    DemoOptions o;
    std::optional<demo::League> found;
    for (uint64_t seed = 5; seed < 30 && !found; ++seed) {
        o = small(seed);
        o.clubs = 8;
        demo::League league(o);
        league.playToSeasonEnd();
        o.weeks = league.week();
        for (const demo::Match& m : league.weekMatches())
            if (m.neutral() && (league.clubs()[m.side[0].club].managed() || league.clubs()[m.side[1].club].managed()))
                found.emplace(std::move(league));
    }
    ASSERT_TRUE(found.has_value());
    const demo::League& league = *found;
    ASSERT_LE(o.weeks, 38);
    TempDir t;
    makeDemoLeague(t.path(), o);
    for (const char* folder : {"Squadsheets", "Weekly"}) {
        fs::remove_all(t.path() / folder);
        extractZip(t.path() / "Archives" / ("week" + std::to_string(o.weeks)) /
                       (folder[0] == 'S' ? "squad.zip" : "weekly.zip"),
                   t.path() / folder);
    }
    Settings settings = defaultSettings(t.path());
    ASSERT_EQ(refresh(t.path(), settings).status, stats::RefreshStatus::Done);
    int finals = 0;
    for (const demo::DemoClub* club : league.managedClubs()) {
        SCOPED_TRACE(club->Name);
        RecordingMessages messages;
        const std::optional<stats::Honours> h = stats::clubHonours(settings, club->Name, messages);
        ASSERT_TRUE(h.has_value());
        const std::vector<size_t> order = league.table(club->League);
        const size_t self = size_t(club - league.clubs().data());
        const size_t place = size_t(std::find(order.begin(), order.end(), self) - order.begin());
        const demo::DemoClub& champions = league.clubs()[order[0]];
        ASSERT_FALSE(h->Rows.empty());
        const stats::HonoursRow& season = h->Rows[0];
        EXPECT_EQ(season.Competition, demo::League::competitionName(club->League));
        EXPECT_EQ(season.Finish, std::to_string(place + 1));
        EXPECT_EQ(season.Points, std::to_string(league.standing(self).points()));
        EXPECT_EQ(season.Champions, champions.Name);
        EXPECT_EQ(season.ChampionsPoints, std::to_string(league.standing(order[0]).points()));
        std::vector<std::string> want;
        for (const demo::Match& m : league.weekMatches()) {
            if (!m.neutral() || (m.side[0].club != self && m.side[1].club != self)) continue;
            const int own = m.side[0].club == self ? 0 : 1;
            const int mine = m.side[size_t(own)].goals, theirs = m.side[size_t(1 - own)].goals;
            want.push_back(std::string(demo::kCupName) + "|" +
                           (mine > theirs ? "Winners" : mine < theirs ? "Runners Up" : "Final went to penalties") + "|" +
                           league.clubs()[m.side[size_t(1 - own)].club].Name);
        }
        std::vector<std::string> got;
        for (size_t i = 1; i < h->Rows.size(); ++i)
            got.push_back(h->Rows[i].Competition + "|" + h->Rows[i].Finish + "|" + h->Rows[i].Champions);
        EXPECT_EQ(got, want);
        finals += int(want.size());
    }
    EXPECT_GT(finals, 0);
}

// The short reports in the Squadsheets pass the harvest and Last Week: no
// line of them becomes a memo, and each shows under the results.
TEST(DemoLeague, ReportsGiveMemosOfEveryDepartmentAndResults) {
    TempDir t;
    DemoOptions o = small(23);
    o.clubs = 6;
    makeDemoLeague(t.path(), o);
    const Session s = loadQuietly(t.path());
    std::set<std::string> from;
    for (const Memo& m : s.Memos) {
        from.insert(m.From);
        for (const char* summary : {"On/Off", " SK ", " CAP  ", "SCORERS FOR", "Possession", "versus"})
            EXPECT_EQ(m.Text.find(summary), std::string::npos) << m.Text;
    }
    EXPECT_EQ(from, (std::set<std::string>{"Coaching department", "Physio department", "Club Scout", "First team coach"}));
    const demo::League league(o);
    for (const Club& c : s.Clubs) {
        const LastWeekBoxes boxes = lastWeekBoxes(s, c);
        int played = 0;
        for (const demo::Match& m : league.weekMatches())
            for (const demo::MatchSide& side : m.side) played += league.clubs()[side.club].Code == c.ClubFile;
        const std::string& results = boxes[4];
        size_t shown = 0;
        for (size_t at = results.find("Home shots On/Off"); at != std::string::npos;
             at = results.find("Home shots On/Off", at + 1))
            ++shown;
        EXPECT_EQ(shown, size_t(played)) << c.Name;
        EXPECT_EQ(boxes[6].find(" CAP  "), std::string::npos) << c.Name;
    }
}
