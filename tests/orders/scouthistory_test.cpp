#include <gtest/gtest.h>

#include "core/errors.h"
#include "core/text.h"
#include "core/gamefolder.h"
#include "orders/compare.h"
#include "orders/market.h"
#include "orders/scouthistory.h"
#include "orders/squad.h"
#include "support/testsupport.h"

using namespace kestrin;

namespace {

ScoutRecord report(const char* name, const char* pos, int16_t sign, int16_t skill, const char* date) {
    ScoutRecord r{date, fixedWidth(name, 30), pos, fixedWidth(" Dale Rovers", 20), {}, int16_t(skill * 11), 5, 2, 24,
                  80, 60, sign, 1500000, "N", "N", "Y"};
    r.Skills.fill(skill);
    return r;
}

std::string bytesOf(const std::vector<ScoutRecord>& records) {
    std::string s;
    for (const ScoutRecord& r : records) s += scoutRecordBytes(r);
    return s;
}

std::string names(const std::vector<std::vector<std::string>>& rows) {
    std::string s;
    for (const auto& r : rows) s += (s.empty() ? "" : ", ") + r[0];
    return s;
}

struct ScoutFolder {
    test::TempDir dir;
    Session session;
    std::vector<ScoutRecord> records = {report("Rik Stone", "MIDC", 4, 6, "20260103"),
                                        report("Al Bee", "DEFL", 2, 9, "20260110"),
                                        report("", "STRC", 9, 9, "20260110"),  // deleted before
                                        report("Rik Stone", "MIDC", 5, 7, "20260117")};
    ScoutFolder() : session() {
        session.Folder = GameFolder(dir.path());
        dir.write("SCOUT.TXT", bytesOf(records));
        session.ScoutTable = loadScoutTable(session);  // no path in the settings: the game folder's
    }
};

}  // namespace

TEST(ScoutHistory, FillByTheBoxes) {
    ScoutFolder f;
    ASSERT_EQ(f.session.ScoutTable, f.records);
    HistoryFilter any;
    const auto rows = scoutHistoryRows(f.session.ScoutTable, any);
    ASSERT_EQ(names(rows), "Rik Stone, Al Bee, Rik Stone");
    EXPECT_EQ(rows[0], (std::vector<std::string>{"Rik Stone", "MIDC", "Dale Rovers", "24", "4", "5", "6", "6", "6", "6",
                                                 "6", "6", "6", "6", "6", "6", "6", "66", "80", "60", "2", "1500000",
                                                 "03-01-2026"}));
    struct Case {
        const char* pos;
        size_t box;
        const char* minimum;
        const char* found;
    } cases[] = {
        {"Any Defender", 0, "Any", "Al Bee"},
        {"Any Player", 0, "4", "Rik Stone, Rik Stone"},  // equal passes
        {"Any Player", 0, "5", "Rik Stone"},
        {"Any Player", 1, "9", "Al Bee"},
        {"Any Player", 11, "7", "Al Bee, Rik Stone"},
        {"Goalkeeper", 0, "Any", "No Results"},
    };
    for (const Case& c : cases) {
        HistoryFilter filter;
        filter.Pos = c.pos;
        filter.Minimum[c.box] = c.minimum;
        EXPECT_EQ(names(scoutHistoryRows(f.session.ScoutTable, filter)), c.found) << c.pos << " " << c.minimum;
    }
    EXPECT_EQ(scoutHistoryRows({}, any)[0].size(), kScoutGridColumns.size());
}

TEST(ScoutHistory, RemovalBlanksTheNamesInPlaceAndNoLongerAsks) {
    ScoutFolder f;
    const fs::path file = f.dir.path() / "SCOUT.TXT";
    const std::string before = readFileBytes(file);
    {
        RecordingMessages m;
        EXPECT_FALSE(removeFromScoutHistory(f.session, "", m));
        m.answers = {false};
        EXPECT_FALSE(removeFromScoutHistory(f.session, "Rik Stone", m));
        EXPECT_EQ(test::shown(m),
                  (std::vector<std::string>{
                      "Refuse|No Player Selected|Please Select a player you would like to remove from the scout history",
                      "Ask|Remove player from history|Are you sure you would like to remove Rik Stone from the Scout "
                      "History ?"}));
        EXPECT_EQ(readFileBytes(file), before);
    }
    {
        // A file that can't be written leaves the file and the table as they were.
        atomicWriteFaultHook = [](const fs::path&) { throw WriteError("SCOUT.TXT", "disk full"); };
        RecordingMessages m;
        EXPECT_FALSE(removeFromScoutHistory(f.session, "Rik Stone", m));
        atomicWriteFaultHook = nullptr;
        ASSERT_EQ(m.entries.size(), 2u);
        EXPECT_EQ(m.entries[1].title, "Scout history not changed");
        EXPECT_EQ(readFileBytes(file), before);
        EXPECT_EQ(f.session.ScoutTable, f.records);
    }
    RecordingMessages m;
    ASSERT_TRUE(removeFromScoutHistory(f.session, "Rik Stone", m));
    std::vector<ScoutRecord> blanked = f.records;
    blanked[0].Name = blanked[3].Name = std::string(30, ' ');
    EXPECT_EQ(readFileBytes(file), bytesOf(blanked));
    EXPECT_EQ(f.session.ScoutTable, blanked);
    EXPECT_EQ(loadScoutTable(f.session), blanked);
    EXPECT_EQ(names(scoutHistoryRows(f.session.ScoutTable, {})), "Al Bee");

    // The player can be scouted again without the question.
    Club club = test::squadClub();
    club.Scout = 3;
    ExportPlayer p;
    p.Name = "Rik Stone";
    const std::vector<std::string> cells = scoutRowCells(p);
    RecordingMessages asked;
    ASSERT_TRUE(cmdScout(club, {MarketScreen::Scout, true, selectRow(MarketScreen::Scout, cells, "Dale Rovers")}, false,
                         f.session.ScoutTable, asked));
    EXPECT_TRUE(asked.entries.empty());
}

TEST(Compare, CandidatesAndDifferenceCells) {
    Club club = test::squadClub();
    for (Player& p : club.Players)
        for (int i = 0; i < 11; ++i) p.skill(i) = 5;
    club.Players[1].Pass = 7;     // Bob Hart
    club.Players[1].Control = 3;
    std::vector<ScoutRecord> table = {report("Rik Stone", "MIDC", 4, 5, "20260103"), report("", "STRC", 9, 9, "20260103"),
                                      report("RIK STONELEY", "STRL", 4, 5, "20260103")};
    table[0].Skills[0] = 6;
    table[2].Skills[10] = 2;

    const CompareStart none = startComparison(club, "", table);
    test::expectRefused(none.check, "No player selected", "Please select a player to compare before clicking this button",
                        club, club);
    const CompareStart start = startComparison(club, "Ann Lee  (DEFC)", table);
    ASSERT_TRUE(start.check);
    EXPECT_EQ(start.prompt, "Compare Ann Lee");
    ASSERT_EQ(start.candidates.size(), 2 + club.Players.size() - 1);
    EXPECT_EQ(start.candidates[0], "MIDC " + fixedWidth("Rik Stone", 30) + " (Scout)");
    EXPECT_EQ(start.candidates[2], "AGKP Bob Hart");

    test::expectRefused(addComparison(std::nullopt), "No Player Selected",
                        "Please select a player from the player list to add to the compare list", club, club);
    EXPECT_EQ(addComparison(start.candidates[2]).line, start.candidates[2]);

    const auto rows = compareRows(club, start.baseName, {start.candidates[0], start.candidates[2]}, table);
    using Cells = std::array<std::string, 11>;
    const std::vector<CompareRow> want = {
        {"Ann Lee", "DEFC", Cells{"5", "5", "5", "5", "5", "5", "5", "5", "5", "5", "5"}},
        {"Rik Stone (Scouted)", "MIDC", Cells{"+1", "", "", "", "", "", "", "", "", "", ""}},
        {"RIK STONELEY (Scouted)", "STRL", Cells{"", "", "", "", "", "", "", "", "", "", "-3"}},
        {"Bob Hart", "AGKP", Cells{"+2", "-2", "", "", "", "", "", "", "", "", ""}},
    };
    EXPECT_EQ(rows, want);
}
