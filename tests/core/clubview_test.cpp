#include <gtest/gtest.h>

#include "core/clubview.h"
#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/text.h"
#include "files/turnsheet.h"
#include "orders/squad.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::TempDir;
using Kind = RecordingMessages::Kind;

namespace {

Player gridPlayer(const std::string& name, const std::string& position, int age, int lastShirt) {
    Player p;
    p.Name = name, p.Position = position, p.Age = int16_t(age);
    p.LastShirt = int16_t(lastShirt);
    p.Sign = 12, p.Contract = 3, p.Agg = 4, p.TotalSkill = 165;
    for (int s = 0; s < 11; ++s) p.skill(s) = int16_t(10 + s);
    return p;
}

Club gridClub(const std::string& name, const std::string& clubFile) {
    Club c;
    c.Name = name;
    c.ClubFile = clubFile;
    c.LeagueNumber = "E1";
    c.Players = {gridPlayer("Ann Keeper", "AGKP", 30, 1), gridPlayer("Bo Back", "DEFC", 18, 0),
                 gridPlayer("Cy Kid", "MIDL", 17, 14), gridPlayer("Di Striker", "STRR", 24, 9)};
    return c;
}

// Clubs "Club A", "Club B", ... with files "aclub", "bclub", ...
Session makeSession(const TempDir& dir, int clubs) {
    Session s;
    s.Folder = GameFolder(dir.path());
    s.Game.GameName = "Test League";
    s.Game.Currency = "\xA3";
    s.Game.AdminAddress = "admin@example.org";
    s.Prefs = defaultSettings(dir.path());
    for (int i = 0; i < clubs; ++i)
        s.Clubs.push_back(gridClub("Club " + std::string(1, char('A' + i)), std::string(1, char('a' + i)) + "club"));
    return s;
}

void setLevels(Club& c, std::array<int, 7> l) {  // GK, Def, Mid, Att, Physio, Groundsman, Scout
    c.GoalkeeperCoach = int16_t(l[0]), c.DefenceCoach = int16_t(l[1]), c.MidfieldCoach = int16_t(l[2]);
    c.AttackCoach = int16_t(l[3]), c.Physio = int16_t(l[4]), c.Groundsman = int16_t(l[5]), c.Scout = int16_t(l[6]);
}

const std::vector<std::string> kFixedDepartmentLines = {
    "No department increase this week", "GK Coach Department increase",   "Def Coach Department increase",
    "Mid Coach Department increase",    "Att Coach Department increase",  "Physio Department increase",
    "Groundsman Department increase",   "Marketing Department increase", "Scout Department increase"};

}  // namespace

// Raise first, then cut, in the fixed order of the departments, never against itself; 6 can't fall (10 can't
// rise: the box of all tens below).
TEST(ClubView, DepartmentLinesPairEveryRaiseWithEveryOtherCut) {
    Club club;
    setLevels(club, {6, 6, 6, 6, 6, 8, 9});
    std::vector<std::string> want = kFixedDepartmentLines;
    want.insert(want.end(), {"Increase Goalkeeper Coach to  7, Decrease Groundsman to  7",
                             "Increase Goalkeeper Coach to  7, Decrease Scout to  8",
                             "Increase Defence Coach to  7, Decrease Groundsman to  7",
                             "Increase Defence Coach to  7, Decrease Scout to  8",
                             "Increase Midfield Coach to  7, Decrease Groundsman to  7",
                             "Increase Midfield Coach to  7, Decrease Scout to  8",
                             "Increase Attack Coach to  7, Decrease Groundsman to  7",
                             "Increase Attack Coach to  7, Decrease Scout to  8",
                             "Increase Physio to  7, Decrease Groundsman to  7",
                             "Increase Physio to  7, Decrease Scout to  8",
                             "Increase Groundsman to  9, Decrease Scout to  8",
                             "Increase Scout to  10, Decrease Groundsman to  7"});
    EXPECT_EQ(departmentLines(club), want);
}

// The main menu's labels and coach lines in their words and order, and the titles of the screens.
TEST(ClubView, MainMenuLabelsCoachLinesAndTitles) {
    Club c;
    c.Credits = 12, c.StampCredits = 0, c.Stadium = "Old Road", c.Capacity = 25000, c.Facilities = 3;
    c.CapacityUpgrade = "Action capacity increase", c.DepartmentUpgrade = "2 weeks to Physio";
    c.GamesPlayed = 7, c.AverageGate = 18000, c.PotentialCrowd = 21000, c.SeasonTicketHolders = 9000;
    c.CrowdRating = 45, c.Marketing = 8, c.WageBill = 41000, c.Costs = 500, c.GateMoney = 120000;
    c.Merchandise = 3000, c.Sponsorship = 10000, c.SundriesIn = 1, c.SundriesOut = 2, c.MoneyBet = 0;
    c.BettingWinnings = 0, c.TransfersRecouped = 0, c.TransfersSpent = 75000, c.Balance = -1234;
    setLevels(c, {1, 2, 3, 4, 5, 6, 7});
    GameIni g;
    g.Currency = "\xA3";

    std::vector<std::string> texts;
    for (const MenuLabel& l : mainMenuLabels(c, g)) texts.push_back(l.text());
    const std::vector<std::string> want = {
        " Number of credits:  12", " Number of stamp credits:  0", " Stadium: Old Road", " Capacity:  25000",
        " Facilities:  3", "Action capacity increase", "", "2 weeks to Physio", " Games played:  7",
        " Average gate:  18000", " Potential crowd:  21000", " Season ticket holders:  9000", " Crowd rating:  45",
        " Goalkeeper coach:  1", " Defence coach:  2", " Midfield coach:  3", " Attack coach:  4",
        " Groundsman:  6", " Physio:  5", " Scout:  7", " Marketing:  8", " Wage bill: \xA3  41000",
        " Costs: \xA3  500", " Gate money: \xA3  120000", " Merchandise: \xA3  3000", " Sponsorship: \xA3  10000",
        " Sundries in: \xA3  1", " Sundries out: \xA3  2", " Money bet: \xA3  0", " Bet winnings: \xA3  0",
        " Transfers recouped: \xA3  0", " Transfers spent: \xA3  75000", " Bank Balance: \xA3 -1234"};
    EXPECT_EQ(texts, want);
    EXPECT_EQ(coachTextLines(c), (std::vector<std::string>{"Goalkeeper Coach :  1", "Defence Coach :  2",
                                                           "Midfield Coach :  3", "Attack Coach :  4", "Physio :  5"}));

    g.GameName = "Test League";
    EXPECT_EQ(screenTitle(g, "Main Menu"), "Test League turnsheet entry : Main Menu");
    g.GameName = "";
    EXPECT_EQ(screenTitle(g, "Squad Screen"), " turnsheet entry : Squad Screen");
}

TEST(ClubView, PendingWorksAndDefaultOrders) {
    // Orders of the betting, capacity, facility and department boxes; after: "" is the box's first line.
    using Orders = std::array<std::string, 4>;
    struct Case {
        const char* why;
        std::string capUp, facUp, deptUp;
        Orders before;
        const char* on;  // the boxes the manager may change
        Orders after;
    } cases[] = {
        {"empty orders take their defaults", "", "", "", {}, "BCFD", {}},
        {"capacity works under way switch the box off and undo the order", "Action capacity increase", "", "",
         {"Bet this week", "Action capacity increase", "", ""}, "B-FD", {"Bet this week", "", "", ""}},
        {"the word is found in any case", "Capacity works in action", "facility action 2 weeks", "", {}, "B--D", {}},
        {"a department upgrade with weeks to go", "", "", "3 weeks left on Scout",
         {"", "", "Action facility increase", "Scout Department increase"}, "BCF-",
         {"", "", "Action facility increase", ""}},
        {"zero weeks leave the department open", "", "", "0 weeks", {"", "", "", "Physio Department increase"},
         "BCFD", {"", "", "", "Physio Department increase"}},
        {"text without a leading number is no upgrade", "", "", "None", {}, "BCFD", {}},
    };
    const Orders first = {"No betting this week", "No capacity increase this week", "No facility increase this week",
                          "No department increase this week"};
    for (const Case& c : cases) {
        Club club;
        setLevels(club, {5, 5, 5, 5, 5, 5, 5});
        club.CapacityUpgrade = c.capUp, club.FacilityUpgrade = c.facUp, club.DepartmentUpgrade = c.deptUp;
        std::string* orders[] = {&club.BettingOrder, &club.CapacityOrder, &club.FacilityOrder, &club.DepartmentOrder};
        for (size_t i = 0; i < 4; ++i) *orders[i] = c.before[i];
        const WeeklyChoices w = fillWeeklyChoices(club);
        const ChoiceBox* boxes[] = {&w.betting, &w.capacity, &w.facility, &w.department};
        for (size_t i = 0; i < 4; ++i) {
            EXPECT_EQ(*orders[i], c.after[i].empty() ? first[i] : c.after[i]) << c.why << ", box " << i;
            EXPECT_EQ(boxes[i]->enabled, c.on[i] != '-') << c.why << ", box " << i;
            EXPECT_EQ(boxes[i]->lines[size_t(boxes[i]->chosen)], *orders[i]) << c.why << ": the box shows the order";
        }
    }

    // An order that is no line of its box is shown at the end.
    Club club;
    setLevels(club, {10, 10, 10, 10, 10, 10, 10});
    club.DepartmentOrder = "Increase Scout to  8, Decrease Physio to  6";
    WeeklyChoices w = fillWeeklyChoices(club);
    std::vector<std::string> want = kFixedDepartmentLines;
    want.push_back("Increase Scout to  8, Decrease Physio to  6");
    EXPECT_EQ(w.department.lines, want);
    EXPECT_EQ(w.department.chosen, int(kFixedDepartmentLines.size()));
    EXPECT_EQ(club.DepartmentOrder, want.back());
}

TEST(ClubView, WeeklyChoiceStoresTheLineUnlessTheScreenIsFilling) {
    struct Case {
        WeeklyChoice which;
        const char* line;
        bool filling;
        std::string Club::*field;
    } cases[] = {
        {WeeklyChoice::Betting, "Bet this week", false, &Club::BettingOrder},
        {WeeklyChoice::Capacity, "Action capacity increase", false, &Club::CapacityOrder},
        {WeeklyChoice::Facility, "Action facility increase", false, &Club::FacilityOrder},
        {WeeklyChoice::Department, "Scout Department increase", false, &Club::DepartmentOrder},
        {WeeklyChoice::Department, "Scout Department increase", true, &Club::DepartmentOrder},
    };
    for (const Case& c : cases) {
        Session s;
        s.Clubs.resize(2);
        s.CurrentClub = 1;
        s.FillingScreen = c.filling;
        EXPECT_EQ(chooseWeekly(s, c.which, c.line), !c.filling) << c.line;
        EXPECT_EQ(s.TurnChanged, !c.filling) << c.line;
        EXPECT_EQ(s.Clubs[1].*c.field, c.filling ? "" : c.line) << c.line;
        EXPECT_EQ(s.Clubs[0].*c.field, "") << "only the current club changes";
    }
}

TEST(ClubView, SelectingAnotherClubForgetsTheFixture) {
    Session s;
    ClubView v;
    struct Step {
        int index, fixtureBefore;
        bool same;
        int fixtureAfter;
    } steps[] = {{0, 1, false, 1}, {0, 3, true, 3}, {2, 3, false, 1}, {2, 2, true, 2}, {0, 2, false, 1}};
    for (const Step& st : steps) {
        v.CurrentFixture = st.fixtureBefore;
        noteClubChoice(s, v, st.index);
        EXPECT_EQ(v.SameClubSelected, st.same) << st.index;
        EXPECT_EQ(v.CurrentFixture, st.fixtureAfter) << st.index;
        EXPECT_EQ(s.CurrentClub, st.index);
        EXPECT_EQ(v.LastSelectedClub, st.index);
    }
}

// The rows the filters keep, their cells with the last shirt, coloured by the coaching history.
TEST(ClubView, SquadGridRowsCellsAndColours) {
    Club club = gridClub("Club A", "aclub");  // ages 30, 18, 17, 24: 18 is a senior
    struct Case {
        AgeFilter age;
        PositionFilter pos;
        std::vector<int> players;
    } cases[] = {
        {AgeFilter::All, PositionFilter::All, {1, 2, 3, 4}},   {AgeFilter::Seniors, PositionFilter::All, {1, 2, 4}},
        {AgeFilter::Youth, PositionFilter::All, {3}},          {AgeFilter::All, PositionFilter::Gkp, {1}},
        {AgeFilter::All, PositionFilter::Def, {2}},            {AgeFilter::All, PositionFilter::Mid, {3}},
        {AgeFilter::All, PositionFilter::Str, {4}},            {AgeFilter::Youth, PositionFilter::Str, {}},
        {AgeFilter::Seniors, PositionFilter::Mid, {}},
    };
    for (const Case& c : cases) {
        std::vector<int> got;
        for (const SquadRow& r : squadGridRows(club, c.age, c.pos, {})) got.push_back(r.player);
        EXPECT_EQ(got, c.players) << int(c.age) << "/" << int(c.pos);
    }

    club.Players[0].Injury = 11;
    club.Players[0].Agg = -2;
    auto rec = [](const char* name, const char* result, const char* skill) {
        return HistoryRecord{"20240101", name, "DEFC", result, skill, 0};
    };
    std::vector<HistoryRecord> history = {
        rec("Bo Back", "P", "PA"),    rec("Bo Back", "Y", "DE"), rec("Bo Back", "N", "ST"),
        rec("Ann Keeper", "N", "TA"), rec("Ann Keeper", "Y", "TA"),  // the later record wins
        rec("Cy Kid", "Y", "FL"),     // no such history code: nothing
        rec("Di Striker", "X", "PA"), // no such result: nothing
        rec("Gone Player", "P", "PA"),
    };
    auto rows = squadGridRows(club, AgeFilter::All, PositionFilter::All, history);
    ASSERT_EQ(rows.size(), 4u);
    const std::array<std::string, 19> keeper = {"Ann Keeper  ( 1)", "AGKP", " 30", " 12", " 3", " 11", " 10",
                                                " 11", " 12", " 13", " 14", " 15", " 16", " 17", " 18", " 19",
                                                " 20", "-2", " 165"};
    EXPECT_EQ(rows[0].cells, keeper);
    EXPECT_EQ(rows[1].cells[0], "Bo Back") << "no last shirt, no brackets";
    EXPECT_EQ(rows[2].cells[0], "Cy Kid  ( 14)");

    struct Want {
        int row, column, colour;
    } wants[] = {
        {1, kFirstSkillColumn + 0, 0xFF0000}, {1, kFirstSkillColumn + 6, 0x00FF00},
        {1, kFirstSkillColumn + 9, 0xFFFF00}, {0, kFirstSkillColumn + 2, 0x00FF00},
    };
    int coloured = 0;
    for (const SquadRow& r : rows)
        for (int col : r.colour) coloured += col != -1;
    EXPECT_EQ(coloured, 4);
    for (const Want& w : wants) EXPECT_EQ(rows[size_t(w.row)].colour[size_t(w.column)], w.colour) << w.column;

    // A player filtered out takes no colour and moves no other row's colour.
    auto defenders = squadGridRows(club, AgeFilter::All, PositionFilter::Def, history);
    ASSERT_EQ(defenders.size(), 1u);
    EXPECT_EQ(defenders[0].colour[kFirstSkillColumn + 0], 0xFF0000);
}

TEST(ClubView, ClubPicturesFile) {
    TempDir dir;
    Session s = makeSession(dir, 1);
    const Club& club = s.Clubs[0];
    ClubView v;
    v.BadgeFile = v.ShirtFile = "stale";
    readClubPictures(s, club, v);
    EXPECT_EQ(v.BadgeFile, "") << "no file: the built-in pictures";
    EXPECT_EQ(v.ShirtFile, "");

    v.BadgeFile = "/pics/badge.gif";
    writeClubPictures(s, club, v);
    EXPECT_EQ(dir.read("aclubpref.ini"), "/pics/badge.gif\r\n\r\n");
    ClubView back;
    readClubPictures(s, club, back);
    EXPECT_EQ(back.BadgeFile, "/pics/badge.gif");
    EXPECT_EQ(back.ShirtFile, "");

    // The file is found whatever its case, and read with LF alone too.
    std::filesystem::remove(dir.path() / "aclubpref.ini");
    dir.write("ACLUBPREF.INI", "b.jpg\nshirt.bmp\n");
    readClubPictures(s, club, back);
    EXPECT_EQ(back.BadgeFile, "b.jpg");
    EXPECT_EQ(back.ShirtFile, "shirt.bmp");

    // A failed write leaves the old file.
    v.BadgeFile = "new.gif";
    atomicWriteFaultHook = [](const fs::path& p) { throw WriteError(p.string(), "disk full"); };
    EXPECT_THROW(writeClubPictures(s, club, v), WriteError);
    atomicWriteFaultHook = nullptr;
    EXPECT_EQ(dir.read("ACLUBPREF.INI"), "b.jpg\nshirt.bmp\n");

    // A file of fewer than two lines is refused with the line it ends at, and no picture is taken from it.
    std::filesystem::remove(dir.path() / "ACLUBPREF.INI");
    for (const auto& [bytes, line, expected] :
         {std::tuple{"", 1, "the badge picture's path"}, {"badge.gif\r\n", 2, "the shirt picture's path"}}) {
        dir.write("aclubpref.ini", bytes);
        back.BadgeFile = back.ShirtFile = "stale";
        try {
            readClubPictures(s, club, back);
            ADD_FAILURE() << "a short file must be refused";
        } catch (const GameFileError& e) {
            EXPECT_EQ(e.file, "aclubpref.ini");
            EXPECT_EQ(e.line, line);
            EXPECT_EQ(e.expected, expected);
        }
        EXPECT_EQ(back.BadgeFile, "");
        EXPECT_EQ(back.ShirtFile, "");
    }
}

TEST(ClubView, ClearingAsksAndDeletesTheChosenTurnsheetsOnly) {
    const std::string restart = " ?\r\n\r\nIf you choose to do this it will restart the program.";
    struct Case {
        bool all;
        std::vector<bool> present, after;  // a Turnsheet on disk for clubs 0, 1, 2
        size_t deleted;
    } cases[] = {
        {false, {true, true, true}, {true, false, true}, 1},
        {true, {true, true, true}, {false, false, false}, 3},
        {true, {true, false, true}, {false, false, false}, 2},
        {false, {true, false, true}, {true, false, true}, 0},
    };
    for (const Case& c : cases) {
        TempDir dir;
        Session s = makeSession(dir, 3);
        s.Clubs[1].Name = "O'Neill Rovers";
        s.CurrentClub = 1;
        const std::string whose = c.all ? "all turns" : "O'Neill Rovers's turn";
        EXPECT_EQ(clearTurnQuestion(s, c.all), "Are you sure that you want to clear " + whose + restart);
        dir.write("notes.txt", "keep");
        for (size_t i = 0; i < 3; ++i)
            if (c.present[i]) dir.write("Turnsheet/" + s.Clubs[i].ClubFile + ".txt", "orders");
        EXPECT_EQ(deleteTurnsheets(s, c.all).size(), c.deleted);
        for (size_t i = 0; i < 3; ++i)
            EXPECT_EQ(fs::exists(dir.path() / "Turnsheet" / (s.Clubs[i].ClubFile + ".txt")), bool(c.after[i]))
                << "club " << i << (c.all ? " all" : " this");
        EXPECT_EQ(dir.read("notes.txt"), "keep");
    }
}

// Sending while there is no mail: the incomplete check, the save, then where the files are. A save that
// fails is told, leaves the previous file, and keeps the orders to be saved on closing.
TEST(ClubView, SendingWithoutMailChecksSavesAndSaysWhereTheFilesAre) {
    const std::string incomplete = "Club A do not have all players selected for game against Rivals United\r\n\r\n";
    const std::string title = "Warning of incomplete turnsheet|";
    const std::string ask = "Ask|" + title + incomplete + "Do you still want to send this turnsheet ?";
    const std::string warn = "Warn|" + title + incomplete + "Your turnsheet has been saved.";
    const std::string refuse =
        "Refuse|Turnsheet not saved|The turnsheet Turnsheet/aclub.txt could not be written: No space left on "
        "device.\r\n\r\nThe previous copy of that file is left as it was, and your orders are still on screen. Check "
        "that the game folder can be written to and that the disk has room, then save again.";
    struct Case {
        const char* why;
        int warnInc;
        bool shortMatch, diskFull;
        std::vector<bool> answers;
        bool saved;
        std::vector<std::string> shown;  // the note of where the files are follows when saved
    } cases[] = {
        {"complete: saved and told", 1, false, false, {}, true, {}},
        {"incomplete, not sent after all", 1, true, false, {false}, false, {ask}},
        {"incomplete, sent anyway", 1, true, false, {true}, true, {ask}},
        {"warned on saving instead", 0, true, false, {}, true, {warn}},
        {"the disk is full", 1, false, true, {}, false, {refuse}},
    };
    for (const Case& c : cases) {
        TempDir dir;
        Session s = makeSession(dir, 1);
        s.Prefs.WarnInc = int16_t(c.warnInc);
        if (c.shortMatch) {  // a match with an empty team sheet leaves the turnsheet incomplete
            Fixture f;
            f.Venue = "H", f.Competition = "League", f.Opponent = "Rivals United";
            s.Clubs[0].Fixtures.push_back(f);
            s.Clubs[0].FixtureCount = 1;
        }
        s.TurnChanged = true;
        dir.write("Turnsheet/aclub.txt", "last week's orders\r\n");
        if (c.diskFull)
            atomicWriteFaultHook = [](const fs::path& tmp) {
                throw WriteError((tmp.parent_path() / "aclub.txt").string(), "No space left on device");
            };
        RecordingMessages m;
        m.answers = c.answers;
        EXPECT_EQ(sendTurnsheetsWithoutMail(s, m), c.saved) << c.why;
        atomicWriteFaultHook = nullptr;
        EXPECT_EQ(dir.read("Turnsheet/aclub.txt"), c.saved ? turnsheetText(s.Clubs[0]) : "last week's orders\r\n")
            << c.why;
        EXPECT_EQ(s.TurnChanged, !c.saved) << c.why;
        std::vector<std::string> want = c.shown;
        if (c.saved)
            want.push_back("Inform|Turnsheet not sent|Sending by e-mail is not yet available.\r\n\r\nYour turnsheets "
                           "have been saved in the folder " + (dir.path() / "Turnsheet").string() +
                           ". Please send them to admin@example.org yourself.");
        EXPECT_EQ(test::shown(m), want) << c.why;
    }
}

TEST(ClubView, ClosingAsksToSaveOnceAndOnlyAfterChanges) {
    struct Case {
        bool changed, answer, asked, written;
    } cases[] = {{false, true, false, false}, {true, false, true, false}, {true, true, true, true}};
    for (const Case& c : cases) {
        TempDir dir;
        Session s = makeSession(dir, 1);
        s.TurnChanged = c.changed;
        RecordingMessages m;
        m.answers = {c.answer};
        closingSavePrompt(s, m);
        if (c.asked)
            test::expectOneMessage(
                m, Kind::Ask, "Save Changes ?",
                "Changes have been made to the turnsheet\r\n\r\nDo you want to save the turnsheet ?");
        else
            EXPECT_TRUE(m.entries.empty());
        EXPECT_EQ(fs::exists(dir.path() / "Turnsheet" / "aclub.txt"), c.written);
        const size_t before = m.entries.size();
        s.TurnChanged = true;
        closingSavePrompt(s, m);
        EXPECT_EQ(m.entries.size(), c.asked ? before : before + 1) << "asked at most once a session";
    }
}
