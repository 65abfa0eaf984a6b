#include <gtest/gtest.h>


#include <algorithm>
#include <functional>
#include <map>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/messages.h"
#include "core/session.h"
#include "demo/demo.h"
#include "files/turnsheet.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::TempDir;

namespace {

Player member(const char* name, const char* position, int age = 24) {
    Player p;
    p.Name = name;
    p.Position = position;
    p.Age = int16_t(age);
    return p;
}

// The club as its Squadsheet gives it: squad and fixtures, no orders yet.
Club squad() {
    Club c;
    c.Name = "Ashford Athletic";
    c.ClubFile = "ashford";
    c.LeagueNumber = "Division 2 (North)";
    c.Players = {
        member("Alan Keeper", "AGKP"), member("Bob Left", "DEFL"),     member("Carl Centre", "DEFC"),
        member("Dan Stopper", "DEFC"), member("Ed Right", "DEFR"),     member("Fred Wing", "MIDL"),
        member("Gus Engine", "MIDC"),  member("Hal Anchor", "MIDC"),   member("Ian Flank", "MIDR"),
        member("Jim Poacher", "STRC"), member("Ken Target", "STRC"),   member("Len Spare", "DEFC"),
        member("Jos\xE9 Cruz", "STRL"), member("Ned Youth", "MIDC", 17), member("Olly Kid", "AGKP", 17),
        member("Pat O'Hara", "DEFR"),  member("Mo Bench", "STRR"),
    };
    c.Fixtures = {Fixture{.Venue = "H", .Competition = "League", .Opponent = "Harbour Town"},
                  Fixture{.Venue = "A", .Competition = "Cup", .Opponent = "Milltown Rovers"}};
    c.FixtureCount = 2;
    return c;
}

// A Turnsheet as the administrator receives it, one entry a line. Line
// numbers used below: match 1 runs from line 11 ("Match Number:") with its
// slot groups from line 18 (six lines a shirt) and "Tactics:" at 96; match 2
// from 174; the coach groups from 337, physio from 369, the one to one from
// 381, the scouts from 385, the movements from 409 (twelve lines each), the
// messages from 481.
const std::vector<std::string> kSheet = {
    "League Number", "Division 2 (North)",
    "Betting:", "Home win 500", "Facility:", "", "Capacity:", "Upgrade 2000", "Departments:", "Scout",
    // Match 1
    "Match Number:", " 1 ", "Club Name:", "Ashford Athletic", "Password:", "", "Fixture - League:",
    "Player:", "Alan Keeper", "Field Area 1:", "", "Field Area 2:", "",
    "Player:", "Bob Left", "Field Area 1:", "B1", "Field Area 2:", "",
    "Player:", "Carl Centre", "Field Area 1:", "B2", "Field Area 2:", "",
    "Player:", "Dan Stopper", "Field Area 1:", "B4", "Field Area 2:", "",
    "Player:", "Ed Right", "Field Area 1:", "B5", "Field Area 2:", "C5",
    "Player:", "Fred Wing", "Field Area 1:", "C1", "Field Area 2:", "D1",
    "Player:", "Gus Engine", "Field Area 1:", "C2", "Field Area 2:", "",
    "Player:", "Hal Anchor", "Field Area 1:", "C4", "Field Area 2:", "",
    "Player:", "Ian Flank", "Field Area 1:", "C5", "Field Area 2:", "D5",
    "Player:", "Jim Poacher", "Field Area 1:", "D2", "Field Area 2:", "E3",
    "Player:", "Ken Target", "Field Area 1:", "D4", "Field Area 2:", "",
    "Player:", "Len Spare", "Field Area 1:", "", "Field Area 2:", "",
    "Player:", "Jos\xE9 Cruz", "Field Area 1:", "", "Field Area 2:", "",
    "Tactics:", " 3 ", "Captain:", " 7 ", "Penalties:", " 10 ", "Corners:", " 6 ", "FreeKicks:", " 9 ",
    "Corners Aiming:", " 2 ",
    "Defence:", " 21 ", "Midfield:", " 22 ", "Attack:", " 23 ", "DefAgg:", " 24 ", "MidAgg:", " 25 ",
    "AttAgg:", " 26 ", "Revolver:", " 27 ", "Snappy:", " 28 ", "Pace:", "-1 ", "PassLength:", " 29 ",
    "PassHeight:", " 30 ",
    "Time To Change One:", " 60 ", "Time To Change One Formation If Losing:", " 31 ",
    "Time To Change One Formation If Drawing:", " 32 ", "Time To Change One Formation If Winning:", " 33 ",
    "Time To Change One Tactic If Losing:", " 34 ", "Time To Change One Tactic If Drawing:", " 35 ",
    "Time To Change One Tactic If Winning:", " 36 ",
    "Time To Change Two:", " 75 ", "Time To Change Two Formation If Losing:", " 37 ",
    "Time To Change Two Formation If Drawing:", " 38 ", "Time To Change Two Formation If Winning:", " 39 ",
    "Time To Change Two Tactic If Losing:", " 40 ", "Time To Change Two Tactic If Drawing:", " 41 ",
    "Time To Change Two Tactic If Winning:", " 42 ",
    "Time For Substitution One:", " 65 ", "What To Do If Losing:", " 1111 ", "What To Do If Drawing:", " 2112 ",
    "What To Do If Winning:", " 3113 ",
    "Time For Substitution Two:", " 80 ", "What To Do If Losing2:", " 1211 ", "What To Do If Drawing2:", " 4113 ",
    "What To Do If Winning2:", " 0 ",
    // Match 2: two shirts still to fill
    "Match Number:", " 2 ", "Club Name:", "Ashford Athletic", "Password:", "", "Fixture - Cup:",
    "Player:", "Olly Kid", "Field Area 1:", "", "Field Area 2:", "",
    "Player:", "Pat O'Hara", "Field Area 1:", "B1", "Field Area 2:", "",
    "Player:", "Carl Centre", "Field Area 1:", "B2", "Field Area 2:", "",
    "Player:", "Dan Stopper", "Field Area 1:", "B4", "Field Area 2:", "",
    "Player:", "Ed Right", "Field Area 1:", "B5", "Field Area 2:", "",
    "Player:", "Fred Wing", "Field Area 1:", "C1", "Field Area 2:", "",
    "Player:", "", "Field Area 1:", "C2", "Field Area 2:", "",
    "Player:", "Hal Anchor", "Field Area 1:", "C4", "Field Area 2:", "",
    "Player:", "Ian Flank", "Field Area 1:", "C5", "Field Area 2:", "",
    "Player:", "Jim Poacher", "Field Area 1:", "D3", "Field Area 2:", "",
    "Player:", "Ken Target", "Field Area 1:", "E3", "Field Area 2:", "",
    "Player:", "Ned Youth", "Field Area 1:", "", "Field Area 2:", "",
    "Player:", "", "Field Area 1:", "", "Field Area 2:", "",
    "Tactics:", " 1 ", "Captain:", " 4 ", "Penalties:", " 11 ", "Corners:", " 6 ", "FreeKicks:", " 10 ",
    "Corners Aiming:", " 1 ",
    "Defence:", " 0 ", "Midfield:", " 0 ", "Attack:", " 0 ", "DefAgg:", " 0 ", "MidAgg:", " 0 ", "AttAgg:", " 0 ",
    "Revolver:", " 0 ", "Snappy:", " 0 ", "Pace:", " 0 ", "PassLength:", " 0 ", "PassHeight:", " 0 ",
    "Time To Change One:", " 0 ", "Time To Change One Formation If Losing:", " 0 ",
    "Time To Change One Formation If Drawing:", " 0 ", "Time To Change One Formation If Winning:", " 0 ",
    "Time To Change One Tactic If Losing:", " 0 ", "Time To Change One Tactic If Drawing:", " 0 ",
    "Time To Change One Tactic If Winning:", " 0 ",
    "Time To Change Two:", " 0 ", "Time To Change Two Formation If Losing:", " 0 ",
    "Time To Change Two Formation If Drawing:", " 0 ", "Time To Change Two Formation If Winning:", " 0 ",
    "Time To Change Two Tactic If Losing:", " 0 ", "Time To Change Two Tactic If Drawing:", " 0 ",
    "Time To Change Two Tactic If Winning:", " 0 ",
    "Time For Substitution One:", " 0 ", "What To Do If Losing:", " 0 ", "What To Do If Drawing:", " 0 ",
    "What To Do If Winning:", " 0 ",
    "Time For Substitution Two:", " 0 ", "What To Do If Losing2:", " 0 ", "What To Do If Drawing2:", " 0 ",
    "What To Do If Winning2:", " 0 ",
    // The club's part
    "Coach Player:", "Alan Keeper", "CoachSkill:", " 2 ", "Coach Player:", "Carl Centre", "CoachSkill:", " 3 ",
    "Coach Player:", "Gus Engine", "CoachSkill:", " 1 ", "Coach Player:", "Jim Poacher", "CoachSkill:", " 5 ",
    "Coach Player:", "Olly Kid", "CoachSkill:", " 4 ", "Coach Player:", "Pat O'Hara", "CoachSkill:", " 7 ",
    "Coach Player:", "Ned Youth", "CoachSkill:", " 6 ", "Coach Player:", "Mo Bench", "CoachSkill:", " 8 ",
    "PhysioName:", "Ken Target", "PhysioPts:", " 2 ", "PhysioName:", "Len Spare", "PhysioPts:", " 1 ",
    "PhysioName:", "", "PhysioPts:", " 0 ",
    "OneToOnePlayer:", "Hal Anchor", "One to One Instruction:", " 4 ",
    "PlayerScout:", "Zed Striker", "ClubScout:", "Harbour Town", "ScoutAgg:", "Aggressive",
    "PlayerScout:", "Yan Keeper", "ClubScout:", "Milltown Rovers", "ScoutAgg:", "Non Aggressive",
    "PlayerScout:", "", "ClubScout:", "", "ScoutAgg:", "", "PlayerScout:", "", "ClubScout:", "", "ScoutAgg:", "",
    "PlayerMove:", " 2 ", "PlayerMovement:", "Bob Left", "PlayerClubMovement:", "",
    "PlayerFeeMovement:", " 0 ", "PlayerIncentiveMovement:", " 0 ", "PlayerContractsMovement:", " 0 ",
    "PlayerMove:", " 1 ", "PlayerMovement:", "Zed Striker", "PlayerClubMovement:", "Harbour Town",
    "PlayerFeeMovement:", " 250000 ", "PlayerIncentiveMovement:", " 5000 ", "PlayerContractsMovement:", " 3 ",
    "PlayerMove:", " 4 ", "PlayerMovement:", "Mo Bench", "PlayerClubMovement:", "",
    "PlayerFeeMovement:", " 0 ", "PlayerIncentiveMovement:", " 0 ", "PlayerContractsMovement:", " 0 ",
    "PlayerMove:", " 7 ", "PlayerMovement:", "Yan Keeper", "PlayerClubMovement:", "Milltown Rovers",
    "PlayerFeeMovement:", " 0 ", "PlayerIncentiveMovement:", " 0 ", "PlayerContractsMovement:", " 10 ",
    "PlayerMove:", " 0 ", "PlayerMovement:", "", "PlayerClubMovement:", "",
    "PlayerFeeMovement:", " 0 ", "PlayerIncentiveMovement:", " 0 ", "PlayerContractsMovement:", " 0 ",
    "PlayerMove:", " 0 ", "PlayerMovement:", "", "PlayerClubMovement:", "",
    "PlayerFeeMovement:", " 0 ", "PlayerIncentiveMovement:", " 0 ", "PlayerContractsMovement:", " 0 ",
    "Messages:", "Good luck all", "Private:", "", "Private Messages:", "See you at the cup draw",
};

// The bytes on disk, built here rather than by the code under test.
std::string bytesOf(const std::vector<std::string>& lines) {
    std::string out;
    for (const std::string& l : lines) out += l + "\r\n";
    return out;
}

Club readSheet(Club club, const std::vector<std::string>& lines, int injuryLimit = 10, int suspensionLimit = 1) {
    readTurnsheet(club, lines, injuryLimit, suspensionLimit, "Turnsheet/ashford.txt");
    return club;
}

std::string coachText(const CoachOrder& c) { return c.Player + "|" + std::to_string(c.Skill); }

std::string movementsText(const Club& c) {
    std::string s;
    for (const Movement& m : c.Movements) {
        if (!s.empty()) s += ";";
        s += std::to_string(m.Move) + "," + m.Player + "," + m.Club + "," + std::to_string(m.Fee) + "," +
             std::to_string(m.Incentive) + "," + std::to_string(m.Contract);
    }
    return s;
}

std::string physioText(const Club& c) {
    std::string s;
    for (size_t i = 0; i < 3; ++i) s += (i ? ";" : "") + c.PhysioPlayer[i] + "|" + std::to_string(c.PhysioPoints[i]);
    return s;
}

Player& named(Club& c, const char* name) { return c.Players[size_t(c.findPlayer(name) - 1)]; }
void removePlayer(Club& c, const char* name) { c.Players.erase(c.Players.begin() + (c.findPlayer(name) - 1)); }

struct FaultHookReset {
    ~FaultHookReset() { atomicWriteFaultHook = nullptr; }
};

Session sessionIn(const TempDir& dir, std::vector<Club> clubs) {
    Session s;
    s.Folder = GameFolder(dir.path());
    s.Clubs = std::move(clubs);
    s.Prefs.WarnInc = 1;
    s.Prefs.SaveProf = 1;
    return s;
}

}  // namespace

TEST(Turnsheet, HandWrittenSheetReadsIntoTheClubAndSavesToTheSameBytes) {
    ASSERT_EQ(kSheet.size(), 486u);  // the line numbers of the tests below rely on it
    const Club club = readSheet(squad(), kSheet);

    const Fixture& m1 = club.Fixtures[0];
    const Fixture& m2 = club.Fixtures[1];
    struct Check {
        const char* what;
        long long got;
        long long want;
    } checks[] = {
        {"Tactics stored one lower", m1.Tactics, 2}, {"Captain", m1.Captain, 7},
        {"CornersAiming", m1.CornersAiming, 2}, {"Midfield", m1.Midfield, 22}, {"AttAgg", m1.AttAgg, 26},
        {"Pace", m1.Pace, -1}, {"PassHeight", m1.PassHeight, 30},
        {"ChangeOneFormation drawing", m1.ChangeOneFormation[1], 32},
        {"ChangeTwoTactic losing", m1.ChangeTwoTactic[0], 40}, {"SubOneAction drawing", m1.SubOneAction[1], 2112},
        {"SubTwoAction drawing", m1.SubTwoAction[1], 4113}, {"match 2 Tactics", m2.Tactics, 0},
        {"shirt 4 Left (B4)", m1.Slots[3].Left, 6000}, {"shirt 5 Left2 (C5)", m1.Slots[4].Left2, 7800},
        {"shirt 10 Top2 (E3)", m1.Slots[9].Top2, 600}, {"shirt 7 no second area", m1.Slots[6].Top2, 0},
        {"match 2 shirt 11 Left (E3)", m2.Slots[10].Left, 4200},
        {"keeper stands at his default place", m1.Slots[0].Top, 4920},
        {"defence senior skill", club.DefenceSenior.Skill, 3},
        {"goalkeeper youth skill", club.GoalkeeperYouth.Skill, 4}, {"physio 2 points", club.PhysioPoints[1], 1},
        {"one to one instruction", club.OneToOneInstruction, 4}, {"scout 1 aggressive", club.ScoutAggressive[0], 1},
        {"movement 2 fee", club.Movements[1].Fee, 250000}, {"movement 2 contract", club.Movements[1].Contract, 3},
    };
    for (const Check& c : checks) EXPECT_EQ(c.got, c.want) << c.what;

    const std::vector<std::string> texts = {club.BettingOrder, club.CapacityOrder, m1.Slots[12].Player,
                                            m2.Slots[6].Player, coachText(club.MidfieldSenior),
                                            coachText(club.AttackYouth), club.OneToOnePlayer, club.Messages,
                                            club.PrivateMessages};
    EXPECT_EQ(texts, (std::vector<std::string>{"Home win 500", "Upgrade 2000", "Jos\xE9 Cruz", "", "Gus Engine|1",
                                               "Mo Bench|8", "Hal Anchor", "Good luck all",
                                               "See you at the cup draw"}));

    EXPECT_EQ(turnsheetText(club), bytesOf(kSheet));
}

TEST(Turnsheet, WriterGivesTheBareNameAndAreasOnlyWhereTheyBelong) {
    struct Case {
        const char* name;
        int shirt;
        const char* player;
        TeamSlot place;  // Player, Left, Top, Left2, Top2 (Player unused)
        const char* wantPlayer;
        const char* wantArea1;
        const char* wantArea2;
    } cases[] = {
        {"bare name", 2, "Bob Left", {"", 600, 3840, 0, 0}, "Bob Left", "B1", ""},
        {"empty slot", 3, "", {"", 2400, 3840, 0, 0}, "", "B2", ""},
        {"pitch label placeholder", 3, "lblName", {"", 2400, 3840, 0, 0}, "", "B2", ""},
        {"long pitch label", 6, "(MIDL) Fred Wing TS 48", {"", 600, 2760, 4200, 600}, "Fred Wing", "C1", "E3"},
        {"halves round to even", 4, "Dan Stopper", {"", 1500, 1140, 4500, 2220}, "Dan Stopper", "E1", "C3"},
        {"negative second area is none", 9, "Ian Flank", {"", 7800, 2760, 7800, -5}, "Ian Flank", "C5", ""},
        {"keeper has no areas", 1, "Alan Keeper", {"", 4200, 4920, 4200, 3840}, "Alan Keeper", "", ""},
        {"substitute has no areas", 12, "Len Spare", {"", 600, 600, 600, 600}, "Len Spare", "", ""},
    };
    for (const Case& c : cases) {
        Club club = squad();
        TeamSlot& s = club.Fixtures[0].Slots[size_t(c.shirt - 1)];
        s = c.place;
        s.Player = c.player;
        const std::vector<std::string> lines = splitLines(turnsheetText(club));
        // Match 1's slot groups start on line 18, six lines a shirt.
        const size_t at = 17 + size_t(c.shirt - 1) * 6;
        ASSERT_GT(lines.size(), at + 5) << c.name;
        EXPECT_EQ(std::vector<std::string>(lines.begin() + long(at), lines.begin() + long(at) + 6),
                  (std::vector<std::string>{"Player:", c.wantPlayer, "Field Area 1:", c.wantArea1, "Field Area 2:",
                                            c.wantArea2}))
            << c.name;
    }
}

TEST(Turnsheet, SavedOrdersAreFilteredAgainstTheNewSquad) {
    using Lines = std::vector<std::string>;
    const auto none = [](Club&) {};
    const auto same = [](Lines&) {};
    const auto tactics = [](const Club& c) { return std::to_string(c.Fixtures[0].Tactics); };
    const auto slot = [](int match, int shirt) {
        return [=](const Club& c) { return c.Fixtures[size_t(match - 1)].Slots[size_t(shirt - 1)].Player; };
    };
    struct Case {
        const char* name;
        std::function<void(Club&)> squadChange;
        std::function<void(Lines&)> fileChange;
        std::function<std::string(const Club&)> observe;
        std::string want;
    } cases[] = {
        {"team player below the injury limit stays", [](Club& c) { named(c, "Dan Stopper").Injury = 9; }, same,
         slot(1, 4), "Dan Stopper"},
        {"team player injured at the limit drops out", [](Club& c) { named(c, "Dan Stopper").Injury = 10; }, same,
         slot(1, 4), ""},
        {"team player suspended drops out", [](Club& c) { named(c, "Dan Stopper").SuspPoints = 1; }, same,
         slot(2, 4), ""},
        {"team player who left drops out", [](Club& c) { removePlayer(c, "Ken Target"); }, same, slot(1, 11), ""},
        {"coach order for an injured player drops with its skill",
         [](Club& c) { named(c, "Carl Centre").Injury = 12; }, same,
         [](const Club& c) { return coachText(c.DefenceSenior); }, "|0"},
        {"coach order ignores suspension", [](Club& c) { named(c, "Carl Centre").SuspPoints = 5; }, same,
         [](const Club& c) { return coachText(c.DefenceSenior) + " / " + c.Fixtures[0].Slots[2].Player; },
         "Carl Centre|3 / "},
        {"an empty physio group between two full ones doesn't use up a slot", none,
         [](Lines& l) {
             l[373] = "";
             l[377] = "Gus Engine";
             l[379] = " 3 ";
         },
         physioText, "Ken Target|2;Gus Engine|3;|0"},
        {"one to one player who left takes the instruction with him",
         [](Club& c) { removePlayer(c, "Hal Anchor"); }, same,
         [](const Club& c) { return c.OneToOnePlayer + "|" + std::to_string(c.OneToOneInstruction); }, "|0"},
        {"movements of codes 1 and 7 keep another club's players", none, same, movementsText,
         "2,Bob Left,,0,0,0;1,Zed Striker,Harbour Town,250000,5000,3;4,Mo Bench,,0,0,0;"
         "7,Yan Keeper,Milltown Rovers,0,0,10;0,,,0,0,0;0,,,0,0,0"},
        {"a stranger in a code 4 movement clears it and the next moves up",
         [](Club& c) { removePlayer(c, "Mo Bench"); }, same, movementsText,
         "2,Bob Left,,0,0,0;1,Zed Striker,Harbour Town,250000,5000,3;7,Yan Keeper,Milltown Rovers,0,0,10;"
         "0,,,0,0,0;0,,,0,0,0;0,,,0,0,0"},
        {"scouted players are not filtered and empty slots read as aggressive", none, same,
         [](const Club& c) {
             std::string s;
             for (size_t i = 0; i < 4; ++i) s += c.ScoutPlayer[i] + "/" + (c.ScoutAggressive[i] ? "A" : "N") + ";";
             return s;
         },
         "Zed Striker/A;Yan Keeper/N;/A;/A;"},
        // Match 1's "Tactics:" value is line 97; it is stored one lower, never below zero.
        {"tactics 0 stays 0", none, [](Lines& l) { l[96] = " 0 "; }, tactics, "0"},
        {"negative tactics read as 0", none, [](Lines& l) { l[96] = "-3 "; }, tactics, "0"},
        {"match beyond the fixtures is dropped and the club's part still reads",
         [](Club& c) {
             c.Fixtures.resize(1);
             c.FixtureCount = 1;
         },
         same,
         [](const Club& c) {
             const Fixture& f = c.Fixtures[0];
             return std::to_string(f.Tactics) + " " + std::to_string(f.Captain) + " " + f.Slots[6].Player + " " +
                    f.Slots[0].Player + " " + coachText(c.GoalkeeperSenior);
         },
         "2 7 Gus Engine Alan Keeper Alan Keeper|2"},
    };
    for (const Case& c : cases) {
        Club club = squad();
        c.squadChange(club);
        Lines lines = kSheet;
        c.fileChange(lines);
        Club read;
        ASSERT_NO_THROW(read = readSheet(club, lines)) << c.name;
        EXPECT_EQ(c.observe(read), c.want) << c.name;
    }
}

TEST(Turnsheet, FileNotOfTheFormatNamesTheLine) {
    using Lines = std::vector<std::string>;
    struct Case {
        const char* name;
        std::function<void(Lines&)> change;
        int line;
        std::string expected;
        std::string found;
    } cases[] = {
        {"text in a number field", [](Lines& l) { l[96] = "abc"; }, 97, "a number for \"Tactics:\"", "abc"},
        {"number too big for its field", [](Lines& l) { l[98] = " 40000 "; }, 99,
         "a number from -32768 to 32767 for \"Captain:\"", " 40000 "},
        {"text in a match number", [](Lines& l) { l[174] = "two"; }, 175, "a number for \"Match Number:\"",
         "two"},
        {"fourth physio group",
         [](Lines& l) {
             l[377] = "Gus Engine";
             l.insert(l.begin() + 380, {"PhysioName:", "Ned Youth", "PhysioPts:", " 1 "});
         },
         381, "at most three physio groups", "PhysioName:"},
        {"empty first field area of an outfield shirt", [](Lines& l) { l[38] = ""; }, 39,
         "a field area such as C3 for shirt 4", ""},
        {"file ends in the middle of a slot group", [](Lines& l) { l.resize(50); }, 51,
         "the field area of shirt 6", ""},
        {"dropped match never closes",
         [](Lines& l) {
             l[11] = " 9 ";
             l.resize(150);
         },
         151, "\"What To Do If Winning2:\" closing the dropped match 9", ""},
        {"match number below one", [](Lines& l) { l[11] = " 0 "; }, 12, "a match number of 1 or more", " 0 "},
    };
    for (const Case& c : cases) {
        Lines lines = kSheet;
        c.change(lines);
        try {
            readSheet(squad(), lines);
            ADD_FAILURE() << c.name << ": no error";
        } catch (const GameFileError& e) {
            EXPECT_EQ(e.file, "Turnsheet/ashford.txt") << c.name;
            EXPECT_EQ(e.line, c.line) << c.name;
            EXPECT_EQ(e.expected, c.expected) << c.name;
            EXPECT_EQ(e.found, c.found) << c.name;
        }
    }
}

TEST(TurnsheetSave, WritesEveryClubInOrderAndAFailedWriteLeavesTheOldFileWhole) {
    TempDir dir;
    Club second = squad();
    second.Name = "Brook United";
    second.ClubFile = "brook";
    second.Messages = "new orders";
    const std::vector<fs::path> allPaths = {dir.path() / "TURNSHEET" / "ASHFORD.TXT",
                                            dir.path() / "TURNSHEET" / "brook.txt"};
    struct Case {
        const char* failOn;  // file whose write fails, or none
        const char* wantAshford;  // null: the new orders
        const char* wantBrook;
    } cases[] = {
        {nullptr, nullptr, nullptr},
        {"ASHFORD.TXT", "old ashford\r\n", "old brook\r\n"},
        {"brook.txt", nullptr, "old brook\r\n"},  // the first club's file stays written
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.failOn ? c.failOn : "no failure");
        // The folder and the old file in another case are the ones written to.
        dir.write("TURNSHEET/ASHFORD.TXT", "old ashford\r\n");
        dir.write("TURNSHEET/brook.txt", "old brook\r\n");
        Session s = sessionIn(dir, {readSheet(squad(), kSheet), second});
        s.TurnChanged = true;
        RecordingMessages messages;
        FaultHookReset reset;
        atomicWriteFaultHook = [&](const fs::path& tmp) {
            if (c.failOn && tmp.filename().string().find(c.failOn) != std::string::npos)
                throw WriteError(tmp.string(), "disk full");
        };
        std::vector<fs::path> paths;
        if (c.failOn)
            EXPECT_THROW(saveTurnsheets(s, messages), WriteError);
        else
            paths = saveTurnsheets(s, messages);
        const std::map<std::string, std::string> want = {
            {"TURNSHEET/ASHFORD.TXT", c.wantAshford ? c.wantAshford : bytesOf(kSheet)},
            {"TURNSHEET/brook.txt", c.wantBrook ? c.wantBrook : turnsheetText(second)}};
        EXPECT_EQ(test::filesBelow(dir.path()), want);  // no temporary file either
        EXPECT_EQ(paths, c.failOn ? std::vector<fs::path>{} : allPaths);
        EXPECT_EQ(s.TurnChanged, c.failOn != nullptr) << "true while orders are not all on disk";
        EXPECT_TRUE(messages.entries.empty());
    }
}

namespace {

Club withEmptyShirts(Club c, std::initializer_list<std::pair<int, int>> matchShirts) {
    for (Fixture& f : c.Fixtures)
        for (size_t i = 0; i < f.Slots.size(); ++i) f.Slots[i].Player = "P" + std::to_string(i + 1);
    for (auto [match, shirt] : matchShirts) c.Fixtures[size_t(match - 1)].Slots[size_t(shirt - 1)].Player = "";
    return c;
}

}  // namespace

TEST(TurnsheetCheck, IncompleteMatchesAreListedOncePerMatch) {
    const std::string ask = "Ask|Warning of incomplete turnsheet|", warn = "Warn|Warning of incomplete turnsheet|";
    const std::string line = " do not have all players selected for game against ";
    const std::string ashfordCup = "Ashford Athletic" + line + "Milltown Rovers\r\n";
    const std::string ashfordLeague = "Ashford Athletic" + line + "Harbour Town\r\n";
    const std::string send = "\r\nDo you still want to send this turnsheet ?";

    Club brook = squad();
    brook.Name = "Brook United";
    Club noMatches = squad();
    noMatches.Fixtures = {Fixture{}};  // "No scheduled matches for next week"
    noMatches.FixtureCount = 1;

    struct Case {
        const char* name;
        std::vector<Club> clubs;
        int warnInc;
        std::vector<bool> answers;
        std::vector<std::string> want;
        bool complete;
    } cases[] = {
        {"all shirts filled", {withEmptyShirts(squad(), {}), withEmptyShirts(noMatches, {})}, 1, {}, {}, true},
        {"a match without opponent is not checked", {withEmptyShirts(noMatches, {{1, 5}})}, 1, {}, {}, true},
        {"short match, manager sends anyway", {withEmptyShirts(squad(), {{2, 13}})}, 1, {true},
         {ask + ashfordCup + send}, true},
        {"short match, manager holds back", {withEmptyShirts(squad(), {{2, 1}})}, 1, {false},
         {ask + ashfordCup + send}, false},
        {"one line per short match, clubs in order",
         {withEmptyShirts(squad(), {{1, 2}, {1, 3}, {2, 7}}), withEmptyShirts(brook, {{1, 12}}),
          withEmptyShirts(noMatches, {{1, 1}})},
         1, {true}, {ask + ashfordLeague + ashfordCup + "Brook United" + line + "Harbour Town\r\n" + send}, true},
        {"checked on saving: told it has been saved", {withEmptyShirts(squad(), {{1, 11}})}, 0, {},
         {warn + ashfordLeague + "\r\nYour turnsheet has been saved."}, false},
    };
    for (const Case& c : cases) {
        TempDir dir;
        Session s = sessionIn(dir, c.clubs);
        s.Prefs.WarnInc = int16_t(c.warnInc);
        s.TurnsheetComplete = !c.complete;
        RecordingMessages messages;
        messages.answers = c.answers;
        EXPECT_EQ(checkIncomplete(s, messages), c.complete) << c.name;
        EXPECT_EQ(s.TurnsheetComplete, c.complete) << c.name;
        EXPECT_EQ(test::shown(messages), c.want) << c.name;
    }
}

TEST(TurnsheetSave, SavePromptAsksOnceAndSavesOnYes) {
    using Files = std::map<std::string, std::string>;
    const std::string text = "Changes have been made to the turnsheet\r\n\r\nDo you want to save the turnsheet ?";
    for (const bool yes : {true, false}) {
        SCOPED_TRACE(yes ? "yes" : "no");
        TempDir dir;
        Session s = sessionIn(dir, {readSheet(squad(), kSheet)});
        s.TurnChanged = true;
        RecordingMessages messages;
        messages.answers = {yes, true};
        savePrompt(s, messages);
        EXPECT_EQ(test::shown(messages), std::vector<std::string>{"Ask|Save Changes ?|" + text});
        EXPECT_TRUE(s.SavePromptDone);
        EXPECT_FALSE(s.TurnChanged);
        const Files saved = {{"Turnsheet/ashford.txt", bytesOf(kSheet)}};
        EXPECT_EQ(test::filesBelow(dir.path()), yes ? saved : Files{});

        // A second close in the same session asks nothing and saves nothing.
        fs::remove_all(dir.path() / "Turnsheet");
        s.TurnChanged = true;
        savePrompt(s, messages);
        EXPECT_EQ(messages.entries.size(), 1u);
        EXPECT_EQ(test::filesBelow(dir.path()), Files{});
        EXPECT_TRUE(s.TurnChanged);
    }
}

TEST(TurnsheetDemo, LoadSaveLoadSaveChangesNothing) {
    TempDir dir;
    makeDemoLeague(dir.path(), test::smallDemo(7));
    const auto made = test::filesBelow(dir.path() / "Turnsheet");

    RecordingMessages messages;
    Session first = test::loadQuietly(dir.path());
    ASSERT_TRUE(first.LoadProblems.empty()) << first.LoadProblems.front();
    ASSERT_GE(first.ClubCount(), 2);
    // The orders must be there to survive, or this proves nothing.
    ASSERT_FALSE(first.Clubs[0].GoalkeeperSenior.Player.empty() && first.Clubs[0].DefenceSenior.Player.empty());
    ASSERT_NE(first.Clubs[0].Movements[0].Move, 0);
    saveTurnsheets(first, messages);
    const auto once = test::filesBelow(dir.path() / "Turnsheet");

    Session second = test::loadQuietly(dir.path());
    saveTurnsheets(second, messages);
    const auto twice = test::filesBelow(dir.path() / "Turnsheet");

    EXPECT_EQ(once.size(), size_t(first.ClubCount()));
    EXPECT_EQ(once, made);
    EXPECT_EQ(twice, once);
    ASSERT_EQ(second.ClubCount(), first.ClubCount());
    for (int c = 0; c < first.ClubCount(); ++c)
        EXPECT_TRUE(second.Clubs[size_t(c)] == first.Clubs[size_t(c)]) << first.Clubs[size_t(c)].Name;
}

TEST(TurnsheetDemo, UnreadableTurnsheetLeavesTheClubAsItsSquadsheetAndTheFileAsItIs) {
    TempDir dir;
    makeDemoLeague(dir.path(), test::smallDemo(7));
    const Session before = test::loadQuietly(dir.path());
    ASSERT_FALSE(before.Clubs.empty());
    const fs::path file = turnsheetPath(before, before.Clubs[0]);
    std::vector<std::string> lines = readLines(file);
    fs::remove(file);
    const Session bare = test::loadQuietly(dir.path());  // the club as its Squadsheet alone gives it

    const auto tactics = std::find(lines.begin(), lines.end(), "Tactics:");
    ASSERT_NE(tactics, lines.end());
    *(tactics + 1) = "four";
    const std::string bad = bytesOf(lines);
    writeFileAtomic(file, bad);

    const Session after = test::loadQuietly(dir.path());
    ASSERT_EQ(after.LoadProblems.size(), 1u);
    const std::string& problem = after.LoadProblems[0];
    EXPECT_NE(problem.find("line " + std::to_string(tactics - lines.begin() + 2)), std::string::npos) << problem;
    EXPECT_NE(problem.find("a number for \"Tactics:\""), std::string::npos) << problem;
    EXPECT_TRUE(after.Clubs[0] == bare.Clubs[0]);
    EXPECT_FALSE(after.Clubs[0] == before.Clubs[0]);
    EXPECT_EQ(readFileBytes(file), bad);
}
