#include <gtest/gtest.h>

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
#include "orders/history.h"
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
            EXPECT_TRUE(p == league.expectedExportPlayer(want, want.Players[k])) << got.Name << " / " << p.Name;
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
        names.insert(c.Name);
        ASSERT_FALSE(c.Players.empty()) << c.Name;
        if (c.Players[0].Managed == "Y") ++managed;
        if (!ours.count(c.Name)) {
            EXPECT_EQ(c.Players.size(), 25u) << c.Name;
        }
    }
    // Every club a manager runs, ours among them, is in EMAILS.TXT.
    const std::vector<std::string> emails = splitLines(t.read("Weekly/EMAILS.TXT"));
    EXPECT_EQ(managed, size_t(std::count_if(emails.begin(), emails.end(),
                                             [](const std::string& l) { return l.find('@') != std::string::npos; })));
    EXPECT_EQ(names.size(), 2000u) << "club names are unique";
}
