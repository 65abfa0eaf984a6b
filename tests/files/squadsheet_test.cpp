#include "files/squadsheet.h"

#include <gtest/gtest.h>

#include <functional>
#include <tuple>

#include "core/errors.h"

using namespace kestrin;

namespace {

// A Squadsheet of three players, every field in the columns the game prints
// it in. The second player's lines run right up to the column where each
// later table's fields begin. Line numbers are on the right; the tests below
// rely on them.
std::vector<std::string> sampleSheet() {
    return {
        "Club and player information for Kestrel Rovers",                                            // 1
        "  4",                                                                                        // 2
        "CLUB COLOURS Red and White / Number of credits = 12 / Stamp credits = 3",                    // 3
        "Stadium - Mill Lane Capacity - 24500 Facilities - 7",                                        // 4
        "Ticket price - 18 Season ticket holders - 9100 Potential crowd - 21000 Crowd rating - 64",   // 5
        "Games played - 11 Average gate - 17250 Recent Performance average - 58",                     // 6
        "Main club sponsor - Harbour Ales",                                                           // 7
        "Capacity upgrade pending? - No Facility upgrade pending? - Yes",                             // 8
        "Weeks until Scout coach upgrade complete - 4",                                               // 9
        "COACHING AND BACKROOM STAFF - 12 staff",                                                     // 10
        "---------------------------",                                                                // 11
        "Goalkeeper coach - 2 Defence coach - 3 Midfield coach - 4 Attack coach - 5",                 // 12
        "Groundsman - 1 Physio - 6 Scout - 2 Marketing - 3",                                          // 13
        "Blend averages - Good Passing - 12.5 Crossing - 13.5",                                       // 14
        "LAST WEEK'S FINANCES",                                                                       // 15
        "--------------------",                                                                       // 16
        "Wage bill - 48210 Costs - 5120 Gate Money - 61000 Merchandise - 7400",                       // 17
        "Sponsorship - 15000 Sundries In - 300 Sundries Out - 1250",                                  // 18
        "Money bet - 500 Betting winnings - 0 Transfers recouped - 120000 Transfers spent - 95000",   // 19
        "BALANCE - -250000 PLEASE NOTE: clubs overdrawn for 4 weeks pay interest",                    // 20
        "",                                                                                           // 21
        "SQUAD DETAILS",                                                                              // 22
        "=============",                                                                              // 23
        "",                                                                                           // 24
        "Name                (No)    Nationality   Pos  Age PA CO TA RU SH DR DF OF FL ST CR",        // 25
        "                                                    Skill Real TS Susp Inj",                 // 26
        "",                                                                                           // 27
        "",                                                                                           // 28
        "----------------------------------------------------------------------------",               // 29
        "Tom Baxter          (4)     England       DEFC 24 12 10 15 9 4 6 14 8 5 13 7 15 16 103 1 0",  // 30
        "   ",                                                                                        // 31
        "Juan de la Fuente        (9)Spain         STRC 29 11 14 3 12 16 15 5 13 12 9 10 16 17 120 0 3",  // 32
        "Ole Nyberg          (1)     Faroe Islands AGKP 19 4 6 2 5 1 2 3 2 4 9 3 9 8 41 2 12",         // 33
        "   OTHER SQUAD DETAILS   ",                                                                  // 34
        "",                                                                                           // 35
        "Name                 Pos  Bk SO BT L I LIS Sign TL Agg Avg Gls Value",                       // 36
        "                          -- -- -- - - --- ---- -- --- --- --- -----",                       // 37
        "(Value is the board's estimate)",                                                            // 38
        "",                                                                                           // 39
        "",                                                                                           // 40
        "----------",                                                                                 // 41
        "Tom Baxter           DEFC 2 0 3 N N 0 14 9 6 #NULL# 1 125000.5",                              // 42
        "Juan de la Fuente     STRC4 1 7 Y Y 9 17 11 8 72 6 330001.5",                                 // 43
        "Ole Nyberg           AGKP 0 0 0 N N 0 5 3 2 61 0 40000",                                      // 44
        "        CONTRACT AND STATUS DETAILS",                                                        // 45
        "Name                 Pos  Con Wages Loan Club/Reserves",                                     // 46
        "----------",                                                                                 // 47
        "Tom Baxter           DEFC 3 #NULL# 0 2",                                                      // 48
        "Juan de la Fuente     STRC1 2400 6 Harwick 0",                                                // 49
        "Ole Nyberg           AGKP 2 900 1 Port Elm 0",                                                // 50
        "PERFORMANCES FOR THE LAST FIVE MATCHES (#NULL# denotes did not play)",                       // 51
        "",                                                                                           // 52
        "Name                 Pos  Age  1  2  3  4  5 Pot Special",                                   // 53
        "----------",                                                                                 // 54
        "Tom Baxter           DEFC 24 61 #NULL# 58 70 66 23 Heading",                                  // 55
        "Juan de la Fuente    STRC /2972 75 #NULL# #NULL# 81 35 Finishing",                            // 56
        "",                                                                                           // 57
        "Ole Nyberg           AGKP 19 #NULL# #NULL# #NULL# #NULL# #NULL# 12 None",                     // 58
        "CAREER RECORDS",                                                                             // 59
        "Name                 Pos  Nationality         Apps Gls Perf Shirt",                          // 60
        "----------",                                                                                 // 61
        "Tom Baxter           DEFC England             #NULL# 3 55 60 62 4 1200 7",                    // 62
        "Juan de la Fuente    STRC              (Spain)141 58 70 #NULL# 74 9 98000 12",                // 63
        "Ole Nyberg           AGKP Faroe Islands       2 0 #NULL# 40 #NULL# 1 0 0",                    // 64
        "PORTRAIT FEATURES (hair, eyes, nose, mouth, skin, build, shirt, extra)",                     // 65
        "Name                 Pos  Nationality         Features",                                     // 66
        "----------",                                                                                 // 67
        "Tom Baxter           DEFC England             1 4 2 7 3 5 1 2",                               // 68
        "Juan de la Fuente    STRC              (Spain)3 2 6 1 4 2 2 8",                               // 69
        "Ole Nyberg           AGKP Faroe Islands       2 2 2 2 2 2 2 2.5",                             // 70
        "**************************************************  Turn 312 on 12/03/2024",                 // 71
        "Turnsheet processed for Kestrel Rovers",                                                     // 72
        "",                                                                                           // 73
        "TRAINING GROUND",                                                                            // 74
        "  Tom Baxter improved Tackle",                                                               // 75
        "Scheduled matches for next week",                                                            // 76
        "SCHEDULED MATCHES FOR NEXT WEEK",                                                            // 77
        "Home match versus Leeford Town in the Division Two North",                                   // 78
        "",                                                                                           // 79
        "This team's matches are played on Saturday",                                                 // 80
        "Away match versus Port Elm Athletic in the County Cup",                                      // 81
        "If a club cannot raise a team the match is forfeit",                                         // 82
        "Resurrection matches are played midweek",                                                    // 83
        "Capacity alterations take effect after the match",                                           // 84
        "SCHEDULED FRIENDLIES: none",                                                                 // 85
        "neutral venue match versus Harwick in the Charity Shield",                                   // 86
    };
}

Club read(const std::vector<std::string>& lines, std::string* stamp = nullptr) {
    std::string none;
    return readSquadsheet(lines, "Squadsheets/KESTRELsquad.txt", "KESTREL", stamp ? *stamp : none);
}

// Compares every field by name so a failure says which one is wrong.
void expectSamePlayer(const Player& a, const Player& b) {
#define SAME(f) EXPECT_EQ(a.f, b.f) << b.Name << ": " #f
    SAME(Name); SAME(Position); SAME(Nationality); SAME(Age);
    SAME(Pass); SAME(Control); SAME(Tackle); SAME(Run); SAME(Shoot); SAME(Dribble); SAME(DefHd); SAME(OffHd);
    SAME(Flair); SAME(Strength); SAME(Creativity);
    SAME(TotalSkill); SAME(RealSkill); SAME(Injury); SAME(SuspPoints); SAME(Bookings); SAME(SendingsOff);
    SAME(Skill); SAME(BookTally); SAME(CurrentInternational); SAME(Listed); SAME(LastIntShirt); SAME(Sign);
    SAME(TLFigure); SAME(Agg); SAME(AverageSeasonPerf); SAME(Goals); SAME(Value); SAME(Contract);
    SAME(LoanLength); SAME(WeeksInReserves); SAME(LoaningClub); SAME(Wages); SAME(CareerApps); SAME(CareerGoals);
    SAME(InterCaps); SAME(InterGoals); SAME(CareerPerf); SAME(LastFivePerf); SAME(Potential); SAME(SpecialSkill);
    SAME(CareerExtraA); SAME(CareerExtraB); SAME(LastShirt); SAME(Portrait);
#undef SAME
    EXPECT_TRUE(a == b) << b.Name << ": a field not listed above differs";
}

const Player kBaxter{
    .Name = "Tom Baxter", .Position = "DEFC", .Nationality = "England", .Age = 24,
    .Pass = 12, .Control = 10, .Tackle = 15, .Run = 9, .Shoot = 4, .Dribble = 6, .DefHd = 14, .OffHd = 8,
    .Flair = 5, .Strength = 13, .Creativity = 7,
    .TotalSkill = 103, .RealSkill = 16, .Injury = 0, .SuspPoints = 1,
    .Bookings = 2, .SendingsOff = 0, .Skill = 15, .BookTally = 3, .CurrentInternational = "N", .Listed = "N",
    .LastIntShirt = 0, .Sign = 14, .TLFigure = 9, .Agg = 6, .AverageSeasonPerf = 0, .Goals = 1, .Value = 125000,
    .Contract = 3, .LoanLength = 0, .WeeksInReserves = 2, .LoaningClub = "", .Wages = 0,
    .CareerApps = 0, .CareerGoals = 3, .InterCaps = 0, .InterGoals = 0, .CareerPerf = 62,
    .LastFivePerf = {61, 0, 58, 70, 66}, .Potential = 23, .SpecialSkill = "Heading",
    .CareerExtraA = 1200, .CareerExtraB = 7, .LastShirt = 4, .Portrait = {1, 4, 2, 7, 3, 5, 1, 2}};

const Player kFuente{
    .Name = "Juan de la Fuente", .Position = "STRC", .Nationality = "Spain", .Age = 29,
    .Pass = 11, .Control = 14, .Tackle = 3, .Run = 12, .Shoot = 16, .Dribble = 15, .DefHd = 5, .OffHd = 13,
    .Flair = 12, .Strength = 9, .Creativity = 10,
    .TotalSkill = 120, .RealSkill = 17, .Injury = 3, .SuspPoints = 0,
    .Bookings = 4, .SendingsOff = 1, .Skill = 16, .BookTally = 7, .CurrentInternational = "Y", .Listed = "Y",
    .LastIntShirt = 9, .Sign = 17, .TLFigure = 11, .Agg = 8, .AverageSeasonPerf = 72, .Goals = 6, .Value = 330002,
    .Contract = 1, .LoanLength = 6, .WeeksInReserves = 0, .LoaningClub = "Harwick", .Wages = 2400,
    .CareerApps = 141, .CareerGoals = 58, .InterCaps = 0, .InterGoals = 0, .CareerPerf = 74,
    .LastFivePerf = {72, 75, 0, 0, 81}, .Potential = 35, .SpecialSkill = "Finishing",
    .CareerExtraA = 98000, .CareerExtraB = 12, .LastShirt = 9, .Portrait = {3, 2, 6, 1, 4, 2, 2, 8}};

const Player kNyberg{
    .Name = "Ole Nyberg", .Position = "AGKP", .Nationality = "Faroe Islands", .Age = 19,
    .Pass = 4, .Control = 6, .Tackle = 2, .Run = 5, .Shoot = 1, .Dribble = 2, .DefHd = 3, .OffHd = 2,
    .Flair = 4, .Strength = 9, .Creativity = 3,
    .TotalSkill = 41, .RealSkill = 8, .Injury = 12, .SuspPoints = 2,
    .Bookings = 0, .SendingsOff = 0, .Skill = 9, .BookTally = 0, .CurrentInternational = "N", .Listed = "N",
    .LastIntShirt = 0, .Sign = 5, .TLFigure = 3, .Agg = 2, .AverageSeasonPerf = 61, .Goals = 0, .Value = 40000,
    .Contract = 2, .LoanLength = 1, .WeeksInReserves = 0, .LoaningClub = "Port", .Wages = 900,
    .CareerApps = 2, .CareerGoals = 0, .InterCaps = 0, .InterGoals = 0, .CareerPerf = 0,
    .LastFivePerf = {0, 0, 0, 0, 0}, .Potential = 12, .SpecialSkill = "None",
    .CareerExtraA = 0, .CareerExtraB = 0, .LastShirt = 1, .Portrait = {2, 2, 2, 2, 2, 2, 2, 2}};

Fixture match(const char* venue, const char* opponent, const char* competition) {
    return {.Venue = venue, .Competition = competition, .Opponent = opponent};
}

// 1-based line editing of a sample.
using Edit = std::function<void(std::vector<std::string>&)>;
Edit setLine(size_t line1, std::string text) {
    return [=](std::vector<std::string>& l) { l.at(line1 - 1) = text; };
}
Edit eraseLine(size_t line1) {
    return [=](std::vector<std::string>& l) { l.erase(l.begin() + std::ptrdiff_t(line1 - 1)); };
}
Edit keepLines(size_t count) {
    return [=](std::vector<std::string>& l) { l.resize(count); };
}

std::vector<std::string> edited(const Edit& edit) {
    std::vector<std::string> lines = sampleSheet();
    edit(lines);
    return lines;
}

}  // namespace

TEST(Squadsheet, ReadsEveryFieldOfTheClubItsPlayersAndFixtures) {
    std::string stamp;
    const Club c = read(sampleSheet(), &stamp);
    EXPECT_EQ(stamp, "Turn 312 on 12/03/2024");

    ASSERT_EQ(c.Players.size(), 3u);
    expectSamePlayer(c.Players[0], kBaxter);
    expectSamePlayer(c.Players[1], kFuente);
    expectSamePlayer(c.Players[2], kNyberg);
    EXPECT_EQ(c.Fixtures, (std::vector<Fixture>{match("H", "Leeford Town", "Division Two North"),
                                                 match("A", "Port Elm Athletic", "County Cup"),
                                                 match("N", "Harwick", "Charity Shield")}));
    EXPECT_EQ(c.FixtureCount, 3);

    // The blend figures of 12.5 and 13.5 go to the even neighbour.
    const struct { const char* field; long long got, want; } numbers[] = {
        {"Credits", c.Credits, 12}, {"StampCredits", c.StampCredits, 3}, {"Capacity", c.Capacity, 24500},
        {"Facilities", c.Facilities, 7}, {"TicketPrice", c.TicketPrice, 18},
        {"SeasonTicketHolders", c.SeasonTicketHolders, 9100}, {"PotentialCrowd", c.PotentialCrowd, 21000},
        {"CrowdRating", c.CrowdRating, 64}, {"GamesPlayed", c.GamesPlayed, 11},
        {"AverageGate", c.AverageGate, 17250}, {"RecentPerformance", c.RecentPerformance, 58},
        {"GoalkeeperCoach", c.GoalkeeperCoach, 2}, {"DefenceCoach", c.DefenceCoach, 3},
        {"MidfieldCoach", c.MidfieldCoach, 4}, {"AttackCoach", c.AttackCoach, 5},
        {"Groundsman", c.Groundsman, 1}, {"Physio", c.Physio, 6}, {"PhysioPointsLeft", c.PhysioPointsLeft, 6},
        {"Scout", c.Scout, 2}, {"Marketing", c.Marketing, 3}, {"BlendPassing", c.BlendPassing, 12},
        {"BlendCrossing", c.BlendCrossing, 14}, {"WageBill", c.WageBill, 48210}, {"Costs", c.Costs, 5120},
        {"GateMoney", c.GateMoney, 61000}, {"Merchandise", c.Merchandise, 7400},
        {"Sponsorship", c.Sponsorship, 15000}, {"SundriesIn", c.SundriesIn, 300},
        {"SundriesOut", c.SundriesOut, 1250}, {"MoneyBet", c.MoneyBet, 500},
        {"BettingWinnings", c.BettingWinnings, 0}, {"TransfersRecouped", c.TransfersRecouped, 120000},
        {"TransfersSpent", c.TransfersSpent, 95000}, {"Balance", c.Balance, -250000},
    };
    for (const auto& n : numbers) EXPECT_EQ(n.got, n.want) << n.field;
    const struct { const char* field; std::string got, want; } texts[] = {
        {"Name", c.Name, "Kestrel Rovers"}, {"ClubFile", c.ClubFile, "KESTREL"},
        {"LeagueNumber", c.LeagueNumber, "  4"}, {"Colours", c.Colours, "Red and White"},
        {"Stadium", c.Stadium, "Mill Lane"}, {"MainSponsor", c.MainSponsor, "Harbour Ales"},
        {"CapacityUpgrade", c.CapacityUpgrade, "No capacity increase this week"},
        {"FacilityUpgrade", c.FacilityUpgrade, "Action facility increase"},
        {"DepartmentUpgrade", c.DepartmentUpgrade, "4 wks until Scout dept upgrade"},
        {"BlendAverages", c.BlendAverages, "Good"},
    };
    for (const auto& t : texts) EXPECT_EQ(t.got, t.want) << t.field;
    EXPECT_EQ(c.ReportLines, (std::vector<std::string>{"Turnsheet processed for Kestrel Rovers", "",
                                                      "TRAINING GROUND", "  Tom Baxter improved Tackle",
                                                      "Scheduled matches for next week"}));
}

TEST(Squadsheet, EdgesOfTheLayout) {
    using Lines = std::vector<std::string>;
    using Fixtures = std::vector<Fixture>;
    struct Case {
        const char* name;
        Edit edit;
        std::function<void(const Club&)> check;
    } cases[] = {
        {"a later table one line short shifts the later players' data up and leaves the last at zero",
         eraseLine(49),
         [](const Club& c) {
             const Player &p1 = c.Players[1], &p2 = c.Players[2];
             EXPECT_EQ(c.Players[0].Contract, 3);
             EXPECT_EQ(std::tie(p1.Contract, p1.Wages, p1.LoaningClub), std::make_tuple(2, 900, "Port"));
             EXPECT_EQ(std::tie(p2.Contract, p2.Wages, p2.LoanLength, p2.LoaningClub), std::make_tuple(0, 0, 0, ""));
             EXPECT_EQ(p2.Potential, 12);  // the tables after it are whole again
         }},
        {"a gate of #NULL#", setLine(6, "Games played - 0 Average gate - #NULL# Recent Performance average - 0"),
         [](const Club& c) { EXPECT_EQ(std::tie(c.AverageGate, c.GamesPlayed), std::make_tuple(0, 0)); }},
        {"an absent start marker starts at the column of its length", setLine(7, "Sponsor of the club: Harbour Ales"),
         [](const Club& c) { EXPECT_EQ(c.MainSponsor, ": Harbour Ales"); }},
        {"an absent end marker runs to the end of the line", setLine(8, "Capacity upgrade pending? - Yes"),
         [](const Club& c) {  // the facility's own marker is absent too
             EXPECT_EQ(std::tie(c.CapacityUpgrade, c.FacilityUpgrade),
                       std::make_tuple("Action capacity increase", " Yes"));
         }},
        {"an empty upgrade is none, other words stay, no department upgrade in any case",
         [](Lines& l) {
             l[7] = "Capacity upgrade pending? -  Facility upgrade pending? - Pending 2 weeks";
             l[8] = "No department upgrade is under way";
         },
         [](const Club& c) {
             EXPECT_EQ(std::tie(c.CapacityUpgrade, c.FacilityUpgrade, c.DepartmentUpgrade),
                       std::make_tuple("No capacity increase this week", "Pending 2 weeks",
                                       "No current department upgrade"));
         }},
        {"a stadium holding \"capacity\" is cut short",
         setLine(4, "Stadium - The Capacity Bowl Capacity - 24500 Facilities - 7"),
         [](const Club& c) { EXPECT_EQ(std::tie(c.Stadium, c.Capacity), std::make_tuple("The", 24500)); }},
        {"a doubled minus after a blank is mended and loses its sign",
         setLine(18, "Sponsorship - 15000 Sundries In - 300 Sundries Out --1250"),
         [](const Club& c) { EXPECT_EQ(c.SundriesOut, 1250); }},
        {"no scheduled matches gives one neutral fixture with no opponent",
         [](Lines& l) {
             l.resize(77);
             l.push_back("No scheduled matches for next week");
         },
         [](const Club& c) {
             EXPECT_EQ(std::tie(c.FixtureCount, c.Fixtures), std::make_tuple(1, Fixtures{match("N", "", "")}));
         }},
        {"nothing after the scheduled matches line", keepLines(77),
         [](const Club& c) { EXPECT_EQ(std::tie(c.FixtureCount, c.Fixtures), std::make_tuple(0, Fixtures{})); }},
        {"blank lines in a table do not count as players",
         [](Lines& l) {
             l.insert(l.begin() + 62, "      ");
             l.insert(l.begin() + 43, "");
         },
         [](const Club& c) {
             ASSERT_EQ(c.Players.size(), 3u);
             EXPECT_EQ(std::tie(c.Players[1].Value, c.Players[2].Value), std::make_tuple(330002, 40000));
             EXPECT_EQ(std::tie(c.Players[1].CareerApps, c.Players[2].CareerApps), std::make_tuple(141, 2));
         }},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.name);
        try {
            k.check(read(edited(k.edit)));
        } catch (const GameFileError& e) {
            ADD_FAILURE() << e.what();
        }
    }

    // Only the first sheet read sets the turn stamp, whatever the length of its line of stars.
    std::string stamp = "Turn 311 on 05/03/2024";
    read(sampleSheet(), &stamp);
    EXPECT_EQ(stamp, "Turn 311 on 05/03/2024");
    stamp.clear();
    read(edited(setLine(71, "***** Turn 9")), &stamp);
    EXPECT_EQ(stamp, "***** Turn 9");
}

TEST(Squadsheet, RefusesABadFileNamingLineAndField) {
    const std::string performancesTitle =
        "the line \"PERFORMANCES FOR THE LAST FIVE MATCHES (#NULL# denotes did not play)\"";
    struct Case {
        const char* name;
        Edit edit;
        int line;
        std::string expected;
        std::string found;
    } cases[] = {
        {"text in a player's number field",
         setLine(32, "Juan de la Fuente        (9)Spain         STRC 2x 11 14 3 12 16 15 5 13 12 9 10 16 17 120 0 3"),
         32, "a number for Age", "2x"},
        {"#NULL# in a field without that rule", setLine(43, "Juan de la Fuente     STRC4 1 7 Y Y 9 17 11 8 72 #NULL# 1"),
         43, "a number for Goals", "#NULL#"},
        {"text in a number of the club's details",
         setLine(3, "CLUB COLOURS Red / Number of credits = twelve / Stamp credits = 3"), 3,
         "a number for Credits", "twelve"},
        {"a gate that is neither a number nor #NULL#",
         setLine(6, "Games played - 11 Average gate - lots Recent Performance average - 58"), 6,
         "a number for AverageGate", "lots"},
        {"a 16-bit field out of range", setLine(4, "Stadium - Mill Lane Capacity - 24500 Facilities - 40000"), 4,
         "a number from -32768 to 32767 for Facilities", "40000"},
        {"a 16-bit field far beyond any whole number",
         setLine(12, "Goalkeeper coach - 76666666666666666666666666666666666666666666666 Defence coach - 3 Midfield coach - 4 Attack coach - 5"),
         12, "a number from -32768 to 32767 for GoalkeeperCoach", "76666666666666666666666666666666666666666666666"},
        {"a 32-bit field out of range",
         setLine(44, "Ole Nyberg           AGKP 0 0 0 N N 0 5 3 2 61 0 3000000000"), 44,
         "a number from -2147483648 to 2147483647 for Value", "3000000000"},
        {"a number field with its marker missing", setLine(4, "Stadium - Mill Lane Capacity - 24500"), 4,
         "a number for Facilities", "ll Lane Capacity - 24500"},
        {"a field past the end of the line", setLine(55, "Tom Baxter           DEFC 24 61 #NULL# 58 70 66 23"), 55,
         "a value for SpecialSkill (field 7 of the performances)", "6 fields"},
        {"a doubled minus with no blank before it",
         setLine(18, "Sponsorship --15000 Sundries In --300 Sundries Out - 1250"), 18,
         "single minus signs after Sponsorship, Sundries In and Sundries Out, not \"--\"",
         "Sponsorship --15000 Sundries In --300 Sundries Out - 1250"},
        {"a later table with more lines than the squad",
         [](std::vector<std::string>& l) { l.insert(l.begin() + 44, "Extra Man            DEFC 0 0 0 N N 0 1 1 1 1 0 100"); },
         45,
         "the line \"CONTRACT AND STATUS DETAILS\" closing the other squad details after 3 player lines",
         "Extra Man            DEFC 0 0 0 N N 0 1 1 1 1 0 100"},
        {"no line of stars after the portraits", eraseLine(71), 71,
         "a line beginning \"*****\" closing the portrait features after 3 player lines",
         "Turnsheet processed for Kestrel Rovers"},
        {"a table cut short", keepLines(50), 51, performancesTitle + " closing the contract and status details", ""},
        {"the club's details cut short", keepLines(12), 13, "the 20 lines of the club's details", ""},
        {"no scheduled matches line", eraseLine(77), 86, "the line \"SCHEDULED MATCHES FOR NEXT WEEK\"", ""},
    };
    for (const Case& k : cases) {
        SCOPED_TRACE(k.name);
        try {
            read(edited(k.edit));
            ADD_FAILURE() << "read without complaint";
        } catch (const GameFileError& e) {
            EXPECT_EQ(e.file, "Squadsheets/KESTRELsquad.txt");
            EXPECT_EQ(e.line, k.line);
            EXPECT_EQ(e.expected, k.expected);
            EXPECT_EQ(e.found, k.found);
        }
    }
}

TEST(Squadsheet, ErrorTellsTheManagerWhereInPlainWords) {
    try {
        read(edited(setLine(3, "CLUB COLOURS Red / Number of credits = twelve / Stamp credits = 3")));
        FAIL() << "read without complaint";
    } catch (const GameFileError& e) {
        EXPECT_STREQ(e.what(),
                     "Squadsheets/KESTRELsquad.txt: line 3 should hold a number for Credits but holds \"twelve\"");
    }
}

TEST(Squadsheet, ClubFileIsTheNameUpToSqu) {
    EXPECT_EQ(clubFileFromName("KESTRELsquad.txt"), "KESTREL");
    EXPECT_EQ(clubFileFromName("kestrelSQU.TXT"), "kestrel");
    EXPECT_EQ(clubFileFromName("kestrel_sq.txt"), "kestrel_sq.txt");
}
