#include <gtest/gtest.h>

#include <map>

#include "core/gamefolder.h"
#include "demo/demo.h"
#include "files/archive.h"
#include "files/loadturn.h"
#include "files/turnsheet.h"
#include "orders/harvest.h"
#include "stats/refresh.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::filesBelow;
using kestrin::test::gameFiles;
using kestrin::test::TempDir;

namespace {

struct League {
    TempDir dir;
    Session session;
    RecordingMessages messages;
    League() {
        DemoOptions o = test::smallDemo(7);
        o.weeks = 2;
        makeDemoLeague(dir.path(), o);
        session = test::loadQuietly(dir.path());
    }
    std::string zip(int week, const char* name) const {
        return (dir.path() / "Archives" / ("week" + std::to_string(week)) / name).string();
    }
    bool load(int week) { return loadNewTurn(session, zip(week, "squad.zip"), zip(week, "weekly.zip"), messages); }
};

}  // namespace

TEST(LoadTurnArchiveChecks, NamesOfEntries) {
    struct Case {
        std::vector<std::string> names;
        bool squad, weekly;
    } cases[] = {
        {{"ABCSQUAD.TXT"}, true, false},
        {{"rovSQUA.TXT"}, true, false},
        {{"rovsqua.txt"}, false, false},  // the test on the squad archive minds case
        {{"CLUBSQUA.TXT"}, false, true},  // holds "SQUA.TXT" yet is the club export
        {{"clubsqua.txt"}, false, true},
        {{"clubsqua.txt", "XSQUA.TXT"}, true, true},
        {{}, false, false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(isSquadArchive(c.names), c.squad) << (c.names.empty() ? "" : c.names[0]);
        EXPECT_EQ(isWeeklyArchive(c.names), c.weekly) << (c.names.empty() ? "" : c.names[0]);
    }
}

TEST(LoadTurn, RefusalsLeaveEverythingAsItWas) {
    League league;
    const fs::path root = league.dir.path();
    writeZip(root / "onlyclub.zip", {{"CLUBSQUA.TXT", "x\r\n"}});
    writeZip(root / "noexport.zip", {{"CODES.TXT", "x\r\n"}});
    const auto before = gameFiles(root);
    const std::string squad = league.zip(2, "squad.zip"), weekly = league.zip(2, "weekly.zip");
    const std::string shortName = league.session.Game.ShortName;
    struct Case {
        std::string squad, weekly, title, text;
    } cases[] = {
        {"", weekly, "No squad file selected", "Please select the Squadsheet file."},
        {squad, "", "No weekly file selected", "Please select the Squadsheet file."},
        {(root / "gone.zip").string(), weekly, "Cannot find the squad zip file",
         "Unable to find the Squadsheet file. Please re-select by clicking the browse button"},
        {squad, (root / "gone.zip").string(), "Cannot find the weekly zip file",
         "Unable to find the Weekly file. Please re-select by clicking the browse button"},
        {(root / "onlyclub.zip").string(), weekly, "No squad found in that file",
         "That is not a valid squadsheet file. Please re-select"},
        {squad, (root / "noexport.zip").string(), "No " + shortName + " weekly files found in that file",
         "That is not a valid weekly file. Please re-select"},
    };
    for (const Case& c : cases) {
        RecordingMessages m;
        EXPECT_FALSE(loadNewTurn(league.session, c.squad, c.weekly, m)) << c.title;
        EXPECT_EQ(test::shown(m), std::vector<std::string>{"Refuse|" + c.title + "|" + c.text});
    }
    EXPECT_EQ(gameFiles(root), before);
}

TEST(LoadTurn, DamagedOrHostileArchivesChangeNothing) {
    League league;
    const fs::path root = league.dir.path();
    const std::string good = readFileBytes(league.zip(2, "weekly.zip"));
    writeFileAtomic(root / "cut.zip", good.substr(0, good.size() / 2));
    writeZip(root / "evil.zip", {{"EVILSQUA.TXT", "x\r\n"}, {"../evil.txt", "boo"}});
    writeZip(root / "abs.zip", {{"ABSSQUA.TXT", "x\r\n"}, {"/tmp/kestrin-evil-abs.txt", "boo"}});
    const auto before = gameFiles(root);
    const std::pair<std::string, std::string> cases[] = {
        {league.zip(2, "squad.zip"), (root / "cut.zip").string()},
        {(root / "evil.zip").string(), league.zip(2, "weekly.zip")},
        {(root / "abs.zip").string(), league.zip(2, "weekly.zip")},
    };
    for (const auto& [squad, weekly] : cases) {
        RecordingMessages m;
        EXPECT_FALSE(loadNewTurn(league.session, squad, weekly, m)) << squad << " " << weekly;
        ASSERT_FALSE(m.entries.empty());
        EXPECT_EQ(m.entries.back().kind, RecordingMessages::Kind::Refuse);
        EXPECT_FALSE(m.entries.back().text.empty());
    }
    EXPECT_EQ(gameFiles(root), before);
    EXPECT_FALSE(fs::exists(root.parent_path() / "evil.txt"));
    EXPECT_FALSE(fs::exists("/tmp/kestrin-evil-abs.txt"));
}

TEST(LoadTurn, AMoveThatFailsPartWayPutsLastWeekBack) {
    League league;
    const fs::path root = league.dir.path();
    // An incoming file's name is taken by a folder, so its move fails after
    // last week's files have gone aside and others of the new week are in.
    fs::remove(root / "Weekly" / "NEWSINC.TXT");
    league.dir.write("Weekly/NEWSINC.TXT/notes.txt", "the manager's");
    const auto before = gameFiles(root);
    RecordingMessages m;
    EXPECT_FALSE(loadNewTurn(league.session, league.zip(2, "squad.zip"), league.zip(2, "weekly.zip"), m));
    ASSERT_EQ(m.entries.size(), 1u);
    EXPECT_EQ(m.entries[0].title, "New turn not loaded");
    EXPECT_EQ(gameFiles(root), before);
    for (const auto& entry : fs::directory_iterator(root))
        EXPECT_EQ(entry.path().filename().string().rfind(".newturn-", 0), std::string::npos) << entry.path();
}

TEST(LoadTurn, BackupsOnTheSameDayTakeTheNextFreeName) {
    League league;
    league.session.Prefs.SquadBackup = 0;
    league.session.Prefs.WeeklyBackup = 0;
    const fs::path root = league.dir.path();
    const auto week1Squad = filesBelow(root / "Squadsheets");
    ASSERT_TRUE(league.load(2));
    league.session.Prefs.SquadBackup = 0;
    ASSERT_TRUE(league.load(2));

    const std::string today = league.session.TodayText;
    const std::string name = today.substr(0, 2) + today.substr(3, 2) + today.substr(6, 4);
    EXPECT_TRUE(fs::is_directory(root / "Squadsheets" / name));
    EXPECT_TRUE(fs::is_directory(root / "Squadsheets" / (name + "_1")));
    EXPECT_FALSE(fs::exists(root / "Squadsheets" / (name + "_2")));
    // Last week's Squadsheets are whole in the first backup.
    for (const auto& [rel, bytes] : week1Squad) EXPECT_EQ(readFileBytes(root / "Squadsheets" / name / rel), bytes) << rel;
    EXPECT_TRUE(fs::is_directory(root / "Weekly" / name));
    // No staging folder is left behind.
    for (const auto& e : fs::directory_iterator(root)) EXPECT_NE(e.path().filename().string().rfind(".newturn", 0), 0u);
}

TEST(LoadTurn, OverwriteDeletesLastWeeksFilesAndLoadsTheNewWeek) {
    League league;
    const fs::path root = league.dir.path();
    const std::string oldStamp = league.session.TurnStamp;
    ASSERT_TRUE(league.load(2));
    EXPECT_NE(league.session.TurnStamp, oldStamp);
    EXPECT_EQ(test::shown(league.messages), std::vector<std::string>{"Inform|New turn loaded !|New turn loaded OK"});
    // Only the week-2 archive's files are in the folders now.
    std::vector<std::string> inZip = listZip(league.zip(2, "squad.zip"));
    std::sort(inZip.begin(), inZip.end(), [](auto& a, auto& b) { return lessNoCase(a, b); });
    EXPECT_EQ(GameFolder(root).list("Squadsheets", "*"), inZip);
    // The files keep the archive's dates: the week is dated by the game, not by the day it was loaded.
    const std::string turn = turnDateOf(league.session.TurnStamp);
    EXPECT_EQ(stats::statsDate(GameFolder(root)), turn.substr(0, 4) + "-" + turn.substr(4, 2) + "-" + turn.substr(6, 2));
}

TEST(LoadTurn, RetainedOrdersPassTheFiltersAndWeeklyOrdersNeverCarryOver) {
    // Find, in week 2, a player of the first club who is hurt and one who can play.
    std::string hurt, fit;
    {
        League peek;
        peek.session.Prefs.RetTurn = 1;
        ASSERT_TRUE(peek.load(2));
        for (const Player& p : peek.session.Clubs[0].Players) {
            if (p.Injury >= peek.session.InjuryLimit && hurt.empty()) hurt = p.Name;
            if (p.Injury == 0 && p.SuspPoints == 0 && fit.empty()) fit = p.Name;
        }
    }
    ASSERT_FALSE(hurt.empty());
    ASSERT_FALSE(fit.empty());

    for (int16_t retTurn : {0, 1}) {
        League league;
        Club& club = league.session.Clubs[0];
        ASSERT_FALSE(club.Fixtures.empty());
        club.Fixtures[0].Slots[1].Player = hurt;
        club.Fixtures[0].Slots[2].Player = fit;
        club.GoalkeeperSenior = {fit, 3};
        club.ScoutPlayer[0] = "Someone Else";
        club.ScoutClub[0] = "Another Club";
        club.Movements[0] = {1, "A Stranger", "Another Club", 5000, 12, 0};
        club.BettingOrder = "Bet this week";
        saveTurnsheets(league.session, league.messages);
        league.session.Prefs.RetTurn = retTurn;
        ASSERT_TRUE(league.load(2)) << retTurn;

        const Club& now = league.session.Clubs[0];
        const fs::path ts = turnsheetPath(league.session, now);
        if (retTurn == 0) {
            ASSERT_FALSE(now.Fixtures.empty());
            EXPECT_EQ(now.Fixtures[0].Slots[1].Player, "");
            EXPECT_EQ(now.Fixtures[0].Slots[2].Player, fit);
            EXPECT_EQ(now.GoalkeeperSenior.Player, fit);
            ASSERT_TRUE(fs::exists(ts));
            EXPECT_NE(readFileBytes(ts).find("Player:\r\n" + fit + "\r\n"), std::string::npos);
        } else {
            for (const Fixture& f : now.Fixtures)
                for (const TeamSlot& s : f.Slots) EXPECT_EQ(s.Player, "");
            EXPECT_EQ(now.GoalkeeperSenior.Player, "");
            EXPECT_FALSE(fs::exists(ts));
        }
        for (const Club& c : league.session.Clubs) {
            for (const auto& s : c.ScoutPlayer) EXPECT_EQ(s, "");
            for (const Movement& m : c.Movements) EXPECT_EQ(m, Movement{});
        }
    }
}
