#include <gtest/gtest.h>

#include <algorithm>

#include "orders/coaching.h"
#include "orders/onetoone.h"
#include "orders/orderlist.h"
#include "orders/playeractions.h"
#include "orders/squad.h"

using namespace kestrin;
using kestrin::test::slot;
using kestrin::test::squadClub;

namespace {

// A week with an order of every kind, two of them for one player, and one
// for a player whose name holds " - ".
Club busyClub() {
    Club c = squadClub();
    c.DefenceSenior = {"Ann Lee", 3}, c.AttackSenior = {"Dan Fox", 5}, c.GoalkeeperYouth = {"Gil Kid", 9};
    c.MidfieldYouth = {"Cy Young", 1};
    c.AttackYouth = {"", 4};  // removed earlier: the skill stays but doesn't count
    c.PhysioPlayer = {"Ed Hurt", "", "Jean - Pierre"}, c.PhysioPoints = {4, 7, 2}, c.PhysioPointsLeft = 4;
    c.Movements[0] = slot(4, "Ann Lee");
    c.Movements[1] = slot(1, "Far Away", "Rovers", 900, 12, 0);
    c.Movements[2] = slot(5, "Ann Lee", "", 300000);
    c.Movements[3] = slot(6, "Jean - Pierre", "Athletic", 75000);
    c.Movements[4] = slot(7, "Loan Man", "City", 10, 4, 0);
    c.Movements[5] = slot(3, "Kim Page", "", 0, 24, 5000);
    c.OneToOneInstruction = 7, c.OneToOnePlayer = "Bob Hart";
    return c;
}

const std::vector<OrderLine> kBusyLines = {
    {"Ann Lee (DEF) - Senior Coaching Tackle", 11},
    {"Dan Fox (ATT) - Senior Coaching Shoot", 11},
    {"Gil Kid (AGK) - Youth Coaching Strength", 11},
    {"Cy Young (MID) - Youth Coaching Pass", 11},
    {"Ed Hurt - Physio to treat with 4 points", 10},
    {"Jean - Pierre - Physio to treat with 2 points", 10},
    {"Ann Lee - Transfer List", 4},
    {"Ann Lee - Secretly List For 300000", 5},
    {"Jean - Pierre - Sell Player To Athletic  - For 75000", 6},
    {"Kim Page - Contract 24 Months  - Incentive 5000", 3},
    {"1 To 1 - Why Unhappy? - Bob Hart", 12},
};

}  // namespace

TEST(OrderList, LinesInTheirFixedOrderWithTags) {
    EXPECT_EQ(orderLines(busyClub()), kBusyLines);
    EXPECT_TRUE(orderLines(squadClub()).empty());

    Club c = squadClub();
    c.GoalkeeperSenior = {"Bob Hart", 1}, c.MidfieldSenior = {"Kim Page", 8};
    c.DefenceYouth = {"Ivy Teen", 7}, c.AttackYouth = {"Joe Colt", 2};
    c.Movements[3] = slot(2, "Dan Fox", "", 0);
    EXPECT_EQ(orderLines(c), (std::vector<OrderLine>{{"Bob Hart (AGK) - Senior Coaching Pass", 11},
                                                     {"Kim Page (MID) - Senior Coaching OffHd", 11},
                                                     {"Ivy Teen (DEF) - Youth Coaching DefHd", 11},
                                                     {"Joe Colt (ATT) - Youth Coaching Control", 11},
                                                     {"Dan Fox - Sell To CRAP for 0", 2}}));
}

TEST(OrderList, RemovingEachLineTakesOutThatOrderAlone) {
    struct Case {
        size_t index;  // into kBusyLines
        void (*expect)(Club&);
    } cases[] = {
        {0, [](Club& c) { c.DefenceSenior.Player.clear(); }},
        {2, [](Club& c) { c.GoalkeeperYouth.Player.clear(); }},
        {4, [](Club& c) { c.PhysioPlayer[0].clear(); c.PhysioPointsLeft = 8; }},
        {6, [](Club& c) { c.Movements[0].Move = 0; }},   // the secret listing of the same player stays
        {7, [](Club& c) { c.Movements[2].Move = 0; }},   // and the other way round
        {9, [](Club& c) { c.Movements[5].Move = 0; }},
        {10, [](Club& c) { c.OneToOneInstruction = 0; c.OneToOnePlayer.clear(); }},
    };
    for (const Case& k : cases) {
        Club club = busyClub();
        Club want = busyClub();
        k.expect(want);
        const OrderLine line = kBusyLines[k.index];
        OrderResult r = removeOrder(club, line);
        ASSERT_TRUE(r.accepted) << line.text;
        EXPECT_EQ(r.line, line.text);
        EXPECT_EQ(club, want) << line.text;
        std::vector<OrderLine> rest = kBusyLines;
        rest.erase(rest.begin() + long(k.index));
        EXPECT_EQ(orderLines(club), rest) << line.text;
    }
}

TEST(OrderList, NameHoldingTheSeparatorIsCutAndNothingIsRemoved) {
    for (size_t index : {size_t(5), size_t(8)}) {
        Club club = busyClub();
        OrderResult r = removeOrder(club, kBusyLines[index]);
        EXPECT_TRUE(r.accepted);
        EXPECT_EQ(r.line, "") << kBusyLines[index].text;
        EXPECT_EQ(club, busyClub()) << kBusyLines[index].text;
    }
}

TEST(OrderList, TagDecidesWhichOrderOfThePlayerGoes) {
    // The text of one kind with the tag of another removes nothing: the tag must match too.
    Club club = busyClub();
    EXPECT_EQ(removeOrder(club, OrderLine{"Ann Lee - Transfer List", 3}).line, "");
    EXPECT_EQ(removeOrder(club, OrderLine{"Ann Lee - Transfer List", 2}).line, "");
    EXPECT_EQ(club, busyClub());
    // Only the player's name and the tag count, not the words behind them.
    EXPECT_EQ(removeOrder(club, OrderLine{"Ann Lee - anything", 5}).line, "Ann Lee - anything");
    EXPECT_EQ(club.Movements[2].Move, 0);
    EXPECT_EQ(club.Movements[0].Move, 4);
    // Coaching lines say ATT for attack; STR, which the positions use, finds nothing.
    const Club kept = club;
    EXPECT_EQ(removeOrder(club, OrderLine{"Dan Fox (STR) - Senior Coaching Shoot", kTagCoaching}).line, "");
    EXPECT_EQ(club, kept);
}

TEST(OrderList, NothingSelectedIsRefused) {
    Club club = busyClub();
    test::expectRefused(removeOrder(club, std::nullopt), "No action selected", "Please select an action to remove", club,
                        busyClub());
}

TEST(OrderList, EveryPlacedOrderComesOffByItsOwnLine) {
    Club club = squadClub();
    std::vector<OrderResult> placed = {
        coachPlayer(club, CoachLevel::Senior, "Ann Lee (DEFC)", "Run"),
        coachPlayer(club, CoachLevel::Youth, "Joe Colt (STRR)", "Dribble"),
        treatWithPhysio(club, "Ed Hurt (DEFL)", "3"),
        treatWithPhysio(club, "Bob Hart (AGKP)", "5"),
        transferList(club, "Ann Lee (DEFC)"),
        offerContract(club, "Ann Lee (DEFC)", "12", "100"),
        sellToClub(club, "Kim Page (MIDR)", "Rovers", "40000"),
        setOneToOne(club, kTeamTalkOption, "Kim Page (MIDR)"),
    };
    for (const OrderResult& r : placed) ASSERT_TRUE(r.accepted) << r.text;
    std::vector<OrderLine> lines = orderLines(club);
    ASSERT_EQ(lines.size(), placed.size());
    for (const OrderResult& r : placed)
        EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [&](const OrderLine& l) { return l.text == r.line; }))
            << r.line;
    // Taking the lines off from the last up leaves the week empty, the physio's points all back.
    while (!lines.empty()) {
        ASSERT_EQ(removeOrder(club, lines.back()).line, lines.back().text);
        lines.pop_back();
        EXPECT_EQ(orderLines(club), lines);
    }
    EXPECT_EQ(club.PhysioPointsLeft, 10);
}
