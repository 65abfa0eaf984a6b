#include <gtest/gtest.h>

#include <regex>

#include "core/loader.h"
#include "demo/demo.h"
#include "files/turnsheet.h"
#include "orders/coaching.h"
#include "orders/onetoone.h"
#include "orders/orderlist.h"
#include "orders/playeractions.h"
#include "support/testsupport.h"

using namespace kestrin;

namespace {

Session demoSession(const test::TempDir& dir) {
    DemoOptions o;
    o.seed = 11;
    o.exportClubs = 20;
    makeDemoLeague(dir.path(), o);
    RecordingMessages m;
    Session s = loadSession(dir.path(), m);
    EXPECT_TRUE(s.LoadProblems.empty());
    return s;
}

}  // namespace

TEST(DemoOrders, SavedOrdersComeOffLineByLineAndBidsStay) {
    test::TempDir dir;
    Session s = demoSession(dir);
    ASSERT_GT(s.ClubCount(), 0);
    Club& club = s.Clubs[0];
    std::vector<OrderLine> lines = orderLines(club);
    ASSERT_FALSE(lines.empty());
    std::vector<Movement> bidsAndLoans;
    for (const Movement& m : club.Movements)
        if (m.Move == kMoveBid || m.Move == kMoveLoan) bidsAndLoans.push_back(m);

    while (!lines.empty()) {
        OrderResult r = removeOrder(club, lines.front());
        ASSERT_EQ(r.line, lines.front().text) << "a line must find its own order";
        lines.erase(lines.begin());
        EXPECT_EQ(orderLines(club), lines);
    }
    for (int i = 0; i < 8; ++i) EXPECT_EQ(club.coachOrder(i).Player, "");
    EXPECT_EQ(physioPointsLeft(club), club.Physio);
    EXPECT_EQ(club.OneToOneInstruction, 0);
    std::vector<Movement> left;
    for (const Movement& m : club.Movements)
        if (m.Move != 0) left.push_back(m);
    EXPECT_EQ(left, bidsAndLoans);
}

TEST(DemoOrders, OrdersPlacedHereSurviveTheTurnsheet) {
    test::TempDir dir;
    Session s = demoSession(dir);
    ASSERT_GT(s.ClubCount(), 1);
    Club& club = s.Clubs[1];
    while (!orderLines(club).empty()) removeOrder(club, orderLines(club).front());
    for (Movement& m : club.Movements) m.Move = 0;

    // Orders for every player, as far as the rules let them through.
    for (const Player& p : club.Players) {
        const std::string row = p.Name + " (" + p.Position + ")";
        for (OrderResult r : {coachPlayer(club, p.Age < 18 ? CoachLevel::Youth : CoachLevel::Senior, row, "Tackle"),
                              treatWithPhysio(club, row, "1"), offerContract(club, row, "24", "500")}) {
            if (!r.accepted) {
                EXPECT_TRUE(r.title == "Only one departmental coach action allowed per week" ||
                            r.title == "Injured player selected" || r.title == "Too many Physio actions" ||
                            r.title == "Not enough physio points" || r.title == "Action limit reached")
                    << r.title << ": " << r.text;
            }
        }
    }
    ASSERT_TRUE(setOneToOne(club, 4, club.Players[0].Name).accepted);
    EXPECT_EQ(usedMovementSlots(club), std::min<int>(6, int(club.Players.size())));
    const std::vector<OrderLine> placed = orderLines(club);

    RecordingMessages m;
    saveTurnsheets(s, m);
    Session again = loadSession(dir.path(), m);
    EXPECT_EQ(orderLines(again.Clubs[1]), placed);
}

TEST(DemoOrders, CoachingHistoryOfADemoClub) {
    test::TempDir dir;
    Session s = demoSession(dir);
    const Club& club = s.Clubs[0];
    auto rows = coachingHistory(s, club);
    ASSERT_TRUE(rows.has_value());
    ASSERT_FALSE(rows->empty());
    const std::regex date(R"(\d\d/\d\d/\d{4})");
    for (size_t i = 0; i < rows->size(); ++i) {
        const CoachingHistoryRow& r = (*rows)[i];
        EXPECT_TRUE(std::regex_match(r.Date, date)) << r.Date;
        EXPECT_TRUE(r.Result == "Success" || r.Result == "Failure" || r.Result == "Potential Reached") << r.Result;
        EXPECT_EQ(r.NewValue.empty(), r.Result != "Success");
        if (i > 0) {
            const CoachingHistoryRow& p = (*rows)[i - 1];
            const bool samePlayerSkill = p.Pos == r.Pos && p.Name == r.Name && p.SkillCoached == r.SkillCoached;
            if (samePlayerSkill) {
                EXPECT_LE(sortDate(p.Date), sortDate(r.Date)) << r.Name << " " << r.SkillCoached;
            }
            EXPECT_LE(p.Pos, r.Pos);
        }
    }
}
