#include <gtest/gtest.h>

#include "core/gamefolder.h"
#include "orders/coaching.h"
#include "orders/orderlist.h"
#include "orders/squad.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::squadClub;

constexpr const char* kUsedTitle = "Only one departmental coach action allowed per week";

TEST(Coaching, RefusalsInTheOrderOfTheChecks) {
    struct Case {
        const char* what;
        CoachLevel level;
        const char* row;
        const char* column;
        const char* title;
        std::string text;
    } cases[] = {
        {"a youth for the senior coach, before anything else", CoachLevel::Senior, "Cy Young (MIDL)", "Flair",
         "Youth player selected for senior coach", "The senior coach is for players aged over 17 only"},
        {"no row looks like a youth to the senior coach", CoachLevel::Senior, "", "Pass",
         "Youth player selected for senior coach", "The senior coach is for players aged over 17 only"},
        {"a senior for the youth coach, before the skill", CoachLevel::Youth, "Ann Lee (DEFC)", "Creativity",
         "Senior player selected for youth coach", "The youth coach is for players aged under 18 only"},
        {"no row for the youth coach", CoachLevel::Youth, "", "Pass", "No player selected",
         "Please select a player to coach before clicking this button"},
        {"no row beats no skill", CoachLevel::Youth, "", "Flair", "No player selected",
         "Please select a player to coach before clicking this button"},
        {"flair", CoachLevel::Senior, "Ann Lee (DEFC)", "Flair", "No skill selected",
         "Please select a skill to coach before clicking this button"},
        {"a column that is no skill", CoachLevel::Senior, "Ann Lee", "Agg", "No skill selected",
         "Please select a skill to coach before clicking this button"},
        {"no skill beats injury", CoachLevel::Senior, "Ed Hurt", "Flair", "No skill selected",
         "Please select a skill to coach before clicking this button"},
        {"injury 10", CoachLevel::Senior, "Ed Hurt (DEFL)", "Pass", "Injured player selected",
         "Ed Hurt is injured and cannot be coached this week"},
        {"used", CoachLevel::Senior, "Bob Hart", "Pass", kUsedTitle, "The senior goalkeeping coach has already been used"},
        {"used", CoachLevel::Senior, "Ann Lee", "Pass", kUsedTitle, "The senior defensive coach has already been used"},
        {"used", CoachLevel::Senior, "Kim Page", "Pass", kUsedTitle, "The senior midfield coach has already been used"},
        {"used", CoachLevel::Senior, "Fay Nine", "Pass", kUsedTitle, "The senior attacking coach has already been used"},
        {"used", CoachLevel::Youth, "Gil Kid", "Pass", kUsedTitle, "The youth goalkeeping coach has already been used"},
        {"used", CoachLevel::Youth, "Ivy Teen", "Pass", kUsedTitle, "The youth defensive coach has already been used"},
        {"used", CoachLevel::Youth, "Cy Young", "Pass", kUsedTitle, "The youth midfield coach has already been used"},
        {"used", CoachLevel::Youth, "Joe Colt", "Pass", kUsedTitle, "The youth attacking coach has already been used"},
    };
    for (const Case& c : cases) {
        Club club = squadClub();
        // Every department used already where the case says so.
        if (std::string(c.what) == "used")
            for (int i = 0; i < 8; ++i) club.coachOrder(i) = {"Someone", 1};
        const Club before = club;
        test::expectRefused(coachPlayer(club, c.level, c.row, c.column), c.title, c.text, club, before,
                            std::string(c.what) + " " + c.row);
    }
}

TEST(Coaching, OrdersGoToTheDepartmentOfThePosition) {
    struct Case {
        CoachLevel level;
        const char* row;
        const char* column;
        int order;  // coach order written, -1 for none
        const char* line;
    } cases[] = {
        {CoachLevel::Senior, "Bob Hart (AGKP)", "Pass", 0, "Bob Hart (AGK) - Senior Coaching Pass"},
        {CoachLevel::Senior, "Ann Lee (DEFC)", "DefHd", 1, "Ann Lee (DEF) - Senior Coaching DefHd"},
        {CoachLevel::Senior, "Kim Page", "OffHd", 2, "Kim Page (MID) - Senior Coaching OffHd"},
        {CoachLevel::Senior, "Fay Nine (STRL)", "Strength", 3, "Fay Nine (ATT) - Senior Coaching Strength"},
        {CoachLevel::Youth, "Gil Kid", "Control", 4, "Gil Kid (AGK) - Youth Coaching Control"},
        {CoachLevel::Youth, "Ivy Teen", "Tackle", 5, "Ivy Teen (DEF) - Youth Coaching Tackle"},
        {CoachLevel::Youth, "Cy Young", "Run", 6, "Cy Young (MID) - Youth Coaching Run"},
        {CoachLevel::Youth, "Joe Colt", "Dribble", 7, "Joe Colt (ATT) - Youth Coaching Dribble"},
        {CoachLevel::Senior, "Hal Odd (XXXX)", "Pass", -1, ""},  // no department: nothing, and no message
    };
    for (const Case& c : cases) {
        Club club = squadClub();
        Club want = club;
        if (c.order >= 0) want.coachOrder(c.order) = {std::string(c.row).substr(0, std::string(c.row).find(" (")),
                                                      int16_t(coachingSkillCode(c.column))};
        OrderResult r = coachPlayer(club, c.level, c.row, c.column);
        ASSERT_TRUE(r.accepted) << c.row << ": " << r.text;
        EXPECT_EQ(r.line, c.line);
        EXPECT_EQ(club, want) << c.row;
    }
}

TEST(Coaching, OneOrderPerCoachUntilRemoved) {
    Club club = squadClub();
    // Injury 9 doesn't stop coaching.
    ASSERT_TRUE(coachPlayer(club, CoachLevel::Senior, "Fay Nine", "Shoot").accepted);
    // The same player and skill again is refused by the department's own words.
    OrderResult again = coachPlayer(club, CoachLevel::Senior, "Fay Nine", "Shoot");
    EXPECT_EQ(again.title, kUsedTitle);
    EXPECT_EQ(again.text, "The senior attacking coach has already been used");
    // The youth coach of the department is free for another player.
    ASSERT_TRUE(coachPlayer(club, CoachLevel::Youth, "Joe Colt", "Pass").accepted);
    // Removed, the senior coach takes a new order.
    ASSERT_TRUE(removeOrder(club, OrderLine{"Fay Nine (ATT) - Senior Coaching Shoot", kTagCoaching}).accepted);
    EXPECT_EQ(club.AttackSenior.Player, "");
    EXPECT_EQ(club.AttackYouth, (CoachOrder{"Joe Colt", 1}));
    ASSERT_TRUE(coachPlayer(club, CoachLevel::Senior, "Dan Fox", "Run").accepted);
    EXPECT_EQ(club.AttackSenior, (CoachOrder{"Dan Fox", 4}));
}

TEST(Physio, RefusalsAndThePointsLeft) {
    struct Case {
        const char* what;
        std::array<std::string, 3> treated;
        std::array<int16_t, 3> points;
        const char* row;
        const char* typed;
        const char* title;  // nullptr: accepted
        std::string text;  // the refusal, or the line of the order
        int leftAfter;  // 55 is the stale figure, untouched by a refusal before the recount
    } cases[] = {
        {"third order of 1 after 4 and 6", {"Ann Lee", "Bob Hart", ""}, {4, 6, 0}, "Cy Young", "1",
         "Not enough physio points",
         "The Physio cannot perform this action. You only have a total of 0 physio points remaining", 0},
        {"more than is left", {"Ann Lee", "", ""}, {3, 0, 0}, "Cy Young", "8", "Not enough physio points",
         "The Physio cannot perform this action. You only have a total of 7 physio points remaining", 7},
        {"a fraction over", {"Ann Lee", "", ""}, {3, 0, 0}, "Cy Young", "7.5", "Not enough physio points",
         "The Physio cannot perform this action. You only have a total of 7 physio points remaining", 7},
        {"already treated", {"", "Ann Lee", ""}, {0, 2, 0}, "Ann Lee (DEFC)", "1", "Player already receiving treatment",
         "The physio is already treating Ann Lee", 55},
        {"no row matches an empty slot", {"Ann Lee", "", ""}, {2, 0, 0}, "", "1",
         "Player already receiving treatment", "The physio is already treating ", 55},
        {"three treated already", {"Ann Lee", "Bob Hart", "Dan Fox"}, {1, 1, 1}, "Cy Young", "1",
         "Too many Physio actions", "The Physio can only treat 3 different players a week", 55},
        {"all that is left", {"Ann Lee", "", ""}, {3, 0, 0}, "Cy Young", "7", nullptr, "Cy Young - Physio to treat with 7 points", 0},
        {"nothing at all", {"", "", ""}, {0, 0, 0}, "Kim Page", "0", nullptr, "Kim Page - Physio to treat with 0 points", 10},
        {"an empty slot's old points don't count", {"", "Ann Lee", ""}, {9, 2, 0}, "Cy Young", "8", nullptr, "Cy Young - Physio to treat with 8 points", 0},
    };
    for (const Case& c : cases) {
        Club club = squadClub();
        club.PhysioPlayer = c.treated;
        club.PhysioPoints = c.points;
        club.PhysioPointsLeft = 55;  // stale: worked out afresh at the click
        Club want = club;
        OrderResult r = treatWithPhysio(club, c.row, c.typed);
        EXPECT_EQ(club.PhysioPointsLeft, c.leftAfter) << c.what;
        if (c.title) {
            want.PhysioPointsLeft = club.PhysioPointsLeft;
            test::expectRefused(r, c.title, c.text, club, want, c.what);
        } else {
            ASSERT_TRUE(r.accepted) << c.what << ": " << r.text;
            EXPECT_EQ(r.line, c.text) << c.what;
        }
    }
}

TEST(Physio, PointsComeBackOnRemoval) {
    Club club = squadClub();  // level 10
    ASSERT_TRUE(treatWithPhysio(club, "Ann Lee", "4").accepted);
    ASSERT_TRUE(treatWithPhysio(club, "Bob Hart", "6").accepted);
    EXPECT_EQ(club.PhysioPlayer, (std::array<std::string, 3>{"Ann Lee", "Bob Hart", ""}));
    EXPECT_EQ(club.PhysioPoints, (std::array<int16_t, 3>{4, 6, 0}));
    EXPECT_EQ(club.PhysioPointsLeft, 0);

    ASSERT_EQ(removeOrder(club, OrderLine{"Ann Lee - Physio to treat with 4 points", kTagPhysio}).line,
              "Ann Lee - Physio to treat with 4 points");
    EXPECT_EQ(club.PhysioPointsLeft, 4);
    EXPECT_EQ(club.PhysioPlayer[0], "");

    // The freed slot is the first empty one and takes the points given back.
    ASSERT_TRUE(treatWithPhysio(club, "Cy Young", "4").accepted);
    EXPECT_EQ(club.PhysioPlayer[0], "Cy Young");
    EXPECT_EQ(club.PhysioPoints[0], 4);
    EXPECT_EQ(club.PhysioPointsLeft, 0);
    OrderResult r = treatWithPhysio(club, "Dan Fox", "1");
    EXPECT_EQ(r.text, "The Physio cannot perform this action. You only have a total of 0 physio points remaining");
}

TEST(CoachingHistory, RowsSortedByPositionNameSkillAndDate) {
    auto rec = [](const char* date, const char* name, const char* pos, const char* result, const char* skill, int v) {
        return HistoryRecord{date, name, pos, result, skill, int16_t(v)};
    };
    const std::vector<HistoryRecord> file = {
        rec("20240308", "Ann Lee", "DEFC", "Y", "TA", 12),       // 1
        rec("20240105", "Bob Hart", "AGKP", "N", "PA", 0),       // 2
        rec("20240105", "Ann Lee", "DEFC", "N", "TA", 0),        // 3
        rec("20231229", "Ann Lee", "DEFC", "P", "PA", 0),        // 4
        rec("20240105", "Al Bertson", "DEFC", "Y", "PA", 9),     // 5
        rec("20240112", "Al", "DEFC", "Y", "ST", 14),            // 6
        rec("20240112", "ann lee", "DEFC", "X", "TA", 3),        // 7: unknown result
        rec("20240215", "Ann Lee", "DEFC", "Y", "TA", 11),       // 8
    };
    const std::vector<CoachingHistoryRow> want = {
        {"Bob Hart", "AGKP", "05/01/2024", "PA", "Failure", "", "", "2"},
        {"Al", "DEFC", "12/01/2024", "ST", "Success", "14", "", "6"},
        {"Al Bertson", "DEFC", "05/01/2024", "PA", "Success", "9", "", "5"},
        {"Ann Lee", "DEFC", "29/12/2023", "PA", "Potential Reached", "", "", "4"},
        {"Ann Lee", "DEFC", "05/01/2024", "TA", "Failure", "", "", "3"},
        {"ann lee", "DEFC", "12/01/2024", "TA", "", "", "", "7"},
        {"Ann Lee", "DEFC", "15/02/2024", "TA", "Success", "11", "", "8"},
        {"Ann Lee", "DEFC", "08/03/2024", "TA", "Success", "12", "", "1"},
    };
    std::vector<CoachingHistoryRow> rows = coachingHistoryRows(file);
    ASSERT_EQ(rows.size(), want.size());
    for (size_t i = 0; i < rows.size(); ++i) {
        CoachingHistoryRow got = rows[i];
        EXPECT_FALSE(got.Item.empty());
        got.Item.clear();
        EXPECT_EQ(got, want[i]) << "row " << i << ": " << rows[i].Name << " " << rows[i].Date;
    }
}

TEST(CoachingHistory, ReadFromTheClubsFileWhateverItsCase) {
    test::TempDir dir;
    Session s;
    s.Folder = GameFolder(dir.path());
    s.Game.GameName = "Demo League";
    Club club = squadClub();  // ClubFile "HARB"
    EXPECT_FALSE(coachingHistory(s, club).has_value()) << "no file: CoachScr doesn't open";

    std::vector<HistoryRecord> recs = {{"20240105", "Kim Page", "MIDR", "Y", "OF", 7},
                                       {"20231201", "Bob Hart", "AGKP", "N", "PA", 0}};
    // A torn last record is left out.
    dir.write("harbhst.txt", historyBytes(recs) + std::string(20, 'x'));
    auto rows = coachingHistory(s, club);
    ASSERT_TRUE(rows.has_value());
    ASSERT_EQ(rows->size(), 2u);
    EXPECT_EQ((*rows)[0], (CoachingHistoryRow{"Bob Hart", "AGKP", "01/12/2023", "PA", "Failure", "", (*rows)[0].Item, "2"}));
    EXPECT_EQ((*rows)[1].NewValue, "7");
    EXPECT_EQ(coachingHistoryTitle(s.Game), "Demo League turnsheet entry : Coaching History");

    dir.write("harbhst.txt", "");
    ASSERT_TRUE(coachingHistory(s, club).has_value());
    EXPECT_TRUE(coachingHistory(s, club)->empty());
}
