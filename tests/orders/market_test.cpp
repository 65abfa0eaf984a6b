#include <gtest/gtest.h>

#include "core/text.h"
#include "files/turnsheet.h"
#include "orders/market.h"
#include "orders/squad.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::slot;
using kestrin::test::squadClub;

namespace {

// A player of another club as the club export gives him.
ExportPlayer exported(int32_t min, const char* max, const char* sign = "4", int16_t loan = 0,
                      const char* loanClub = "", const char* managed = "N") {
    return {.Name = "Rik Stone", .Age = "24", .Position = "MIDC", .TotalSkill = "81", .Sign = sign, .Played = "12",
            .Perf = "64", .Goals = "3", .MinValue = min, .MaxValue = max, .Portrait = {1, 2, 3, 4, 5, 6, 7},
            .Colours = "Red White", .Loan = loan, .LoanClub = loanClub, .Managed = managed};
}

// The click on a player row of the Scout screen, club "Dale Rovers" selected.
MarketPick scoutPick(const ExportPlayer& p) {
    const std::vector<std::string> cells = scoutRowCells(p);
    return {MarketScreen::Scout, true, selectRow(MarketScreen::Scout, cells, "Dale Rovers")};
}

const std::string kFull =
    "You are only allowed 6 player movements per week.\r\n\r\nYou are attempting to buy and sell more than this number";

}  // namespace

TEST(Market, RowCellsTheSelectionReadBackAndTheBidBoxes) {
    const ExportPlayer p = exported(1500000, "2000000", "4", 3, "Port Vale", "Y");
    const std::vector<std::string> cells = scoutRowCells(p);
    EXPECT_EQ(cells, (std::vector<std::string>{"Rik Stone", "MIDC", "  1500000", "  2000000", "       24", "       81",
                                               "        4", "       12", "       64", "        3", "        3", "Y", "1",
                                               "2", "3", "4", "5", "6", "7", "Red White", "Port Vale"}));
    const MarketSelection want{"Rik Stone", "Dale Rovers", "1500000", "2000000", "4", "3", "Port Vale", "Y"};
    EXPECT_EQ(selectRow(MarketScreen::Scout, cells, "Dale Rovers"), want);
    // The search's row carries its club in front, and everything moves one right.
    std::vector<std::string> searchCells = cells;
    searchCells.insert(searchCells.begin(), "Dale Rovers");
    EXPECT_EQ(selectRow(MarketScreen::Search, searchCells, "ignored"), want);

    // The click sets the bid boxes: the incentive is a fifth of the maximum, up to 500000.
    for (const auto& [max, incentiveMax] :
         {std::pair{"1000000", 200000}, {"2500000", 500000}, {"5000000", 500000}, {"0", 0}}) {
        const BidBoxLimits b = bidBoxLimits(*scoutPick(exported(400000, max)).Row);
        EXPECT_EQ(b, (BidBoxLimits{"400000", 400000, int32_t(val(max)), incentiveMax})) << max;
    }
}

// Bids and loan approaches: their checks in the game's order, and what an accepted one stores.
TEST(Market, BidAndLoanChecksInTheirOrder) {
    const std::vector<Movement> fourActions(4, slot(4, "Ann Lee")), sixActions(6, slot(4, "Ann Lee"));
    std::vector<Movement> fourAndTwo = fourActions;
    fourAndTwo.push_back(slot(1, "A", "X", 1, 6));
    fourAndTwo.push_back(slot(7, "B", "Y", 1, 4));
    const char* limits = "Amount is under or over the limits for this player";
    const char* between = "The bid must be between 1000000 and 2000000 for this player";
    const char* loanLength = "Loan length must be between 4 and 12 weeks";
    const char* maxBids = "You only have a limit of 2 bids or loans per week";
    // How the screen stands: the Scout screen with or without a club or a row,
    // the search screen on a player's row or on "No Results".
    enum Pick { Row, NoClub, NoRow, SearchRow, NoResults };
    const std::vector<std::string> noResults = {"No Results"};
    struct Case {
        const char* what;
        bool loan;
        Pick pick;
        std::vector<Movement> existing;
        const char* sign;
        const char* amount;
        const char* contract;  // months for a bid, weeks for a loan
        const char* after;     // the amount box afterwards; nullptr: as typed
        const char* title;     // nullptr: accepted
        std::string text;
    } cases[] = {
        {"bid, no club", false, NoClub, {}, "3", "1", "7", nullptr, "No club selected",
         "Please select a club and player before bidding"},
        {"bid, no row", false, NoRow, fourAndTwo, "3", "1", "7", nullptr, "No player selected",
         "Please select a player to bid for"},
        {"bid, two bids before the slots", false, Row, fourAndTwo, "3", "1", "7", nullptr, "Maximum bids reached",
         maxBids},
        {"bid, one under", false, Row, {}, "3", "999999", "12", nullptr, limits, between},
        {"bid, one over", false, Row, {}, "3", "2000001", "12", nullptr, limits, between},
        {"bid, the minimum", false, Row, {}, "3", "1000000", "12", nullptr, nullptr, ""},
        {"bid, the maximum", false, Row, {}, "3", "2000000", "24", nullptr, nullptr, ""},
        {"bid, contract", false, Row, {}, "3", "1000000", "7", nullptr, "Incorrect contract value",
         "Contracts must be either 6, 12, 18 or 24 months"},
        {"bid, slots full", false, Row, sixActions, "3", "1500000", "6", nullptr, "Invalid bid", kFull},
        {"bid, search has no club step", false, SearchRow, fourActions, "3", "1500000", "18", nullptr, nullptr, ""},
        {"bid, the no results row", false, NoResults, {}, "3", "0", "6", nullptr, limits,
         "The bid must be between  and  for this player"},
        {"loan, no club", true, NoClub, fourAndTwo, "3", "7", "4", nullptr, "No club selected",
         "Please select a club and player before attempting to loan"},
        {"loan, no row", true, NoRow, fourAndTwo, "3", "7", "4", nullptr, "No player selected",
         "Please select a player to approach for loan"},
        {"loan, two bids", true, Row, fourAndTwo, "3", "7", "4", nullptr, "Maximum bids reached", maxBids},
        {"loan, sign 2", true, Row, {}, "2", "7", "4", nullptr, "Invalid loan approach",
         "You can only attempt to loan players with a Sign figure of 3 or more"},
        {"loan, 3 weeks", true, Row, {}, "3", "7", "3", nullptr, "Incorrect loan contract value", loanLength},
        {"loan, 13 weeks", true, Row, {}, "3", "7", "13", nullptr, "Incorrect loan contract value", loanLength},
        // MaxValue 2000000: an incentive limit of 400000, whose share is the fee.
        {"loan, 4 weeks, a quarter", true, Row, {}, "3", "7", "4", "100000", nullptr, ""},
        {"loan, 12 weeks, all", true, Row, {}, "9", "7", "12", "400000", nullptr, ""},
        {"loan, 5 weeks", true, Row, {}, "3", "7", "5", "137500", nullptr, ""},
        // The fee is shown even when no slot is free.
        {"loan, slots full", true, Row, sixActions, "3", "7", "8", "250000", "Invalid loan approach", kFull},
    };
    for (const Case& c : cases) {
        const MarketPick row = scoutPick(exported(1000000, "2000000", c.sign));
        MarketPick pick = row;
        if (c.pick == NoClub) pick.ClubSelected = false;
        if (c.pick == NoRow) pick.Row.reset();
        if (c.pick == SearchRow) pick = {MarketScreen::Search, false, row.Row};
        if (c.pick == NoResults) pick = {MarketScreen::Search, false, selectRow(MarketScreen::Search, noResults)};
        Club club = squadClub();
        std::copy(c.existing.begin(), c.existing.end(), club.Movements.begin());
        club.Movements[c.existing.size() % 6].Incentive = 77;  // a loan leaves it as it stood
        const Club before = club;
        RecordingMessages m;
        BidBoxes boxes{c.amount, c.contract, "2500"};
        const OrderResult r = c.loan ? cmdLoan(club, pick, boxes, m) : cmdBid(club, pick, boxes, m);
        const std::string fee = c.after ? c.after : c.amount;
        EXPECT_EQ(boxes.Amount, fee) << c.what;
        EXPECT_TRUE(m.entries.empty()) << c.what;
        if (c.title) {
            test::expectRefused(r, c.title, c.text, club, before, c.what);
            continue;
        }
        ASSERT_TRUE(r.accepted) << c.what << ": " << r.text;
        EXPECT_EQ(club.Movements[c.existing.size()], slot(c.loan ? 7 : 1, "Rik Stone", "Dale Rovers", int32_t(val(fee)),
                                                          int32_t(val(c.contract)), c.loan ? 77 : 2500))
            << c.what;
        EXPECT_EQ(r.line, "Dale Rovers - Rik Stone Fee " + fee +
                              (c.loan ? ", " + std::string(c.contract) + " week loan"
                                      : ", Contract " + std::string(c.contract) + ", Incentive 2500"))
            << c.what;
    }
}

// The warnings repeat at each attempt; what the Turnsheet writer saves of a bid, a loan and a scout action.
TEST(Market, WarningsRepeatAndTheOrdersReachTheTurnsheet) {
    Club club = squadClub();
    club.Scout = 3;
    RecordingMessages m;
    const MarketPick pick = scoutPick(exported(1000, "2000", "5", 1, "Port Vale", "Y"));
    ASSERT_TRUE(cmdBid(club, pick, {"1500", "18", "300"}, m));
    BidBoxes loan{"", "12", ""};
    ASSERT_TRUE(cmdLoan(club, pick, loan, m));
    ASSERT_TRUE(cmdScout(club, pick, true, {}, m));
    const std::vector<std::string> twice = {"Warn|Warning|Careful. This player is from a managed team",
                                            "Warn|Warning|Warning. This player is on loan for 1 more weeks from Port Vale"};
    std::vector<std::string> want = twice;
    want.insert(want.end(), twice.begin(), twice.end());
    EXPECT_EQ(test::shown(m), want);

    const std::string text = turnsheetText(club);
    auto move = [](const char* code, const char* fee, const char* incentive, const char* contract) {
        return std::string("PlayerMove:\r\n ") + code + " \r\nPlayerMovement:\r\nRik Stone\r\nPlayerClubMovement:\r\n" +
               "Dale Rovers\r\nPlayerFeeMovement:\r\n " + fee + " \r\nPlayerIncentiveMovement:\r\n " + incentive +
               " \r\nPlayerContractsMovement:\r\n " + contract + " \r\n";
    };
    EXPECT_NE(text.find(move("1", "1500", "300", "18") + move("7", "400", "0", "12")), std::string::npos) << text;
    EXPECT_NE(text.find("PlayerScout:\r\nRik Stone\r\nClubScout:\r\nDale Rovers\r\nScoutAgg:\r\nAggressive\r\n"
                        "PlayerScout:\r\n\r\nClubScout:\r\n\r\nScoutAgg:\r\n\r\n"),
              std::string::npos)
        << text;
}

TEST(Market, RemovingABidOrScoutReadsItsLineBack) {
    Club club = squadClub();
    club.Movements[0] = slot(1, "Rik Stone", "Dale Rovers", 1000, 12, 0);
    club.Movements[1] = slot(4, "Ann Lee");
    club.Movements[2] = slot(7, "Rik Stone", "Dale Rovers", 500, 4);
    club.Movements[3] = slot(7, "Al Bee", "Dale Rovers", 500, 4);
    const std::vector<OrderLine> lines = bidLines(club);
    ASSERT_EQ(lines, (std::vector<OrderLine>{{"Dale Rovers - Rik Stone Fee 1000, Contract 12, Incentive 0", 1},
                                             {"Dale Rovers - Rik Stone Fee 500, 4 week loan", 7},
                                             {"Dale Rovers - Al Bee Fee 500, 4 week loan", 7}}));
    Club before = club;
    test::expectRefused(cmdRemoveBid(club, std::nullopt), "No bid selected",
                        "Please select a bid to remove from the list", club, before);
    ASSERT_TRUE(cmdRemoveBid(club, lines[1].text));
    EXPECT_EQ(bidLines(club), std::vector<OrderLine>{lines[2]});
    EXPECT_EQ(club.Movements[1].Move, 4);

    club.ScoutPlayer = {"Rik Stone", "Rik Stone", "Al Bee", ""};
    club.ScoutClub = {"Dale Rovers", "Port Vale", "Dale Rovers", ""};
    club.ScoutAggressive = {true, false, false, false};
    const std::vector<std::string> scouts = scoutLines(club);
    ASSERT_EQ(scouts, (std::vector<std::string>{"Dale Rovers - Rik Stone (Aggressive)",
                                                "Port Vale - Rik Stone (Non Aggressive)",
                                                "Dale Rovers - Al Bee (Non Aggressive)"}));
    before = club;
    test::expectRefused(cmdUnScout(club, std::nullopt), "No action selected", "Please select a scout action to remove",
                        club, before);
    ASSERT_TRUE(cmdUnScout(club, scouts[1]));
    EXPECT_EQ(scoutLines(club), (std::vector<std::string>{scouts[0], scouts[2]}));
}

TEST(Market, ScoutLimitByDepartmentLevelAndTheQuestion) {
    const char* limit = "You have reached the maximum number of scout actions that you can perform this week";
    struct Case {
        int level;
        size_t taken;
    } cases[] = {{2, 0}, {8, 2}, {9, 3}, {12, 4}, {20, 4}};
    for (const Case& c : cases) {
        Club club = squadClub();
        club.Scout = int16_t(c.level);
        RecordingMessages m;
        for (size_t i = 0; i < c.taken; ++i) ASSERT_TRUE(cmdScout(club, scoutPick(exported(1, "2")), true, {}, m));
        const Club before = club;
        test::expectRefused(cmdScout(club, scoutPick(exported(1, "2")), false, {}, m), "Scout action limit reached",
                            limit, club, before, std::to_string(c.level));
        EXPECT_EQ(scoutLines(club).size(), c.taken);
    }

    Club club = squadClub();
    club.Scout = 12;
    RecordingMessages quiet;
    const Club untouched = club;
    test::expectRefused(cmdScout(club, {MarketScreen::Scout, false, {}}, false, {}, quiet), "No club selected",
                        "Please select a club and player before scouting", club, untouched);
    test::expectRefused(cmdScout(club, {MarketScreen::Scout, true, {}}, false, {}, quiet), "No player selected",
                        "Please select player to scout", club, untouched);
    ScoutRecord seen;
    seen.Name = "Rik Stone                     ";
    const std::vector<ScoutRecord> table = {seen, seen};
    for (bool yes : {false, true}) {
        RecordingMessages m;
        m.answers = {yes};
        const Club before = club;
        const OrderResult r = cmdScout(club, scoutPick(exported(1, "2")), false, table, m);
        EXPECT_EQ(test::shown(m), std::vector<std::string>{"Ask|Player already scouted|You have scouted a player called "
                                                           "Rik Stone before. Do you still want to scout ?"});
        if (!yes) {
            EXPECT_TRUE(r.isDeclined());
            EXPECT_EQ(club, before);
        } else {
            EXPECT_EQ(r.line, "Dale Rovers - Rik Stone (Non Aggressive)");
        }
    }
}

