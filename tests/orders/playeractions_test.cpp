#include <gtest/gtest.h>

#include "orders/playeractions.h"
#include "orders/squad.h"

using namespace kestrin;
using kestrin::test::slot;
using kestrin::test::squadClub;
using kestrin::test::squadPlayer;

namespace {

constexpr const char* kLimitText = "You are limited to a maximum of 6 actions per week";

OrderResult click(Club& c, PlayerAction a, const std::string& row) {
    switch (a) {
        case PlayerAction::TransferList: return transferList(c, row);
        case PlayerAction::SellToCrap: return sellToCrap(c, row);
        default: return checkPlayerAction(c, a, row);
    }
}

}  // namespace

TEST(PlayerActions, CrapPaysBySkillAndNothingOutsideEighteenToThirtyFour) {
    struct Case {
        int skill, age;
        int32_t fee;
    } cases[] = {
        {0, 18, 500000}, {5, 25, 500000}, {6, 34, 1000000}, {7, 25, 1500000}, {8, 25, 2000000},
        {19, 34, 2000000}, {-1, 25, 2000000}, {7, 17, 0}, {8, 35, 0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(crapFee(squadPlayer("X", "DEFC", c.age, c.skill)), c.fee) << "skill " << c.skill << " age " << c.age;

        // The fee is what the slot and its list line carry, and the order stands at 0.
        Club club;
        club.Players = {squadPlayer("Zed Ward", "MIDC", c.age, c.skill)};
        OrderResult r = sellToCrap(club, "Zed Ward  (14)");
        ASSERT_TRUE(r.accepted) << r.text;
        EXPECT_EQ(club.Movements[0], slot(2, "Zed Ward", "", c.fee));
        EXPECT_EQ(r.line, "Zed Ward - Sell To CRAP for " + std::to_string(c.fee));
    }
}

TEST(PlayerActions, ContractLengthIsJudgedByItsNumericValue) {
    struct Case {
        const char* text;
        bool ok;
        int32_t stored;
    } cases[] = {
        {"6", true, 6},   {"12.0", true, 12}, {" 18", true, 18}, {"24 months", true, 24}, {"7", false, 0},
        {"", false, 0},   {"abc", false, 0},  {"6.5", false, 0}, {"-6", false, 0},        {"36", false, 0},
    };
    for (const Case& c : cases) {
        Club club = squadClub();
        const Club before = club;
        OrderResult r = offerContract(club, "Ann Lee (DEFC)", c.text, "2500");
        EXPECT_EQ(r.accepted, c.ok) << c.text;
        if (c.ok) {
            EXPECT_EQ(club.Movements[0], slot(3, "Ann Lee", "", 0, c.stored, 2500));
            EXPECT_EQ(r.line, "Ann Lee - Contract " + std::to_string(c.stored) + " Months  - Incentive 2500");
        } else {
            test::expectRefused(r, "Incorrect contract value", "Contracts must be either 6, 12, 18 or 24 months", club,
                                before, c.text);
        }
    }
}

TEST(PlayerActions, RefusalsOfTheButtonClickCheckedInOrder) {
    struct Case {
        const char* what;
        std::vector<Movement> existing;
        PlayerAction action;
        const char* row;
        const char* title;  // nullptr: accepted
        std::string text;
    } cases[] = {
        {"no row", {}, PlayerAction::TransferList, "", "No player selected", "Please select a player to action"},
        {"no row beats a full table", std::vector<Movement>(6, slot(1, "Other")), PlayerAction::OfferContract, "",
         "No player selected", "Please select a player to action"},
        {"six bids leave no room", std::vector<Movement>(6, slot(1, "Far Away", "Rovers", 900)),
         PlayerAction::TransferList, "Ann Lee (DEFC)", "Action limit reached", kLimitText},
        {"bids and loans count", {slot(1, "A"), slot(7, "B"), slot(1, "C"), slot(7, "D"), slot(4, "Bob Hart"), slot(2, "Dan Fox")},
         PlayerAction::SecretlyList, "Ann Lee", "Action limit reached", kLimitText},
        {"five leave one", std::vector<Movement>(5, slot(1, "Far Away")), PlayerAction::SellToCrap, "Ann Lee", nullptr, ""},
        {"listed twice", {slot(4, "Ann Lee")}, PlayerAction::TransferList, "Ann Lee (DEFC)", "Action already performed",
         "Ann Lee is already actioned to be transfer listed"},
        {"crap after sale to a club", {slot(6, "Ann Lee", "Rovers", 10)}, PlayerAction::SellToCrap, "Ann Lee",
         "Action already performed", "Ann Lee is already actioned to be sold"},
        {"sale to a club after crap", {slot(4, "Bob Hart"), slot(2, "Ann Lee")}, PlayerAction::SellToClub, "Ann Lee",
         "Action already performed", "Ann Lee is already actioned to be sold"},
        {"secretly listed twice", {slot(5, "Ann Lee", "", 10)}, PlayerAction::SecretlyList, "Ann Lee",
         "Action already performed", "Ann Lee is already actioned to be secretly listed"},
        {"contract twice", {slot(3, "Ann Lee", "", 0, 12)}, PlayerAction::OfferContract, "Ann Lee",
         "Action already performed", "Ann Lee is already actioned to be offered a contract"},
        {"listed, then secretly listed", {slot(4, "Ann Lee")}, PlayerAction::SecretlyList, "Ann Lee", nullptr, ""},
        {"sold, then a contract", {slot(2, "Ann Lee")}, PlayerAction::OfferContract, "Ann Lee", nullptr, ""},
        {"a bid on a namesake", {slot(1, "Ann Lee", "Rovers")}, PlayerAction::SellToCrap, "Ann Lee", nullptr, ""},
        {"a removed order", {slot(0, "Ann Lee")}, PlayerAction::TransferList, "Ann Lee", nullptr, ""},
        {"details need no checks", std::vector<Movement>(6, slot(4, "")), PlayerAction::EmailDetails, "", nullptr, ""},
    };
    for (const Case& c : cases) {
        Club club = squadClub();
        for (size_t i = 0; i < c.existing.size(); ++i) club.Movements[i] = c.existing[i];
        const Club before = club;
        OrderResult r = click(club, c.action, c.row);
        if (c.title)
            test::expectRefused(r, c.title, c.text, club, before, c.what);
        else
            EXPECT_TRUE(r.accepted) << c.what << ": " << r.text;
    }
}

TEST(PlayerActions, DirectOrdersTakeTheFirstFreeSlotAndOverwriteIt) {
    Club club = squadClub();
    club.Movements[0] = slot(1, "Far Away", "Rovers", 900, 12, 50);
    club.Movements[1] = slot(0, "Old Name", "Old Club", 77, 18, 99);  // removed last week: stale fields
    club.Movements[2] = slot(7, "Loan Man", "City", 5, 4, 3);

    ASSERT_TRUE(transferList(club, "Bob Hart (AGKP)").accepted);
    EXPECT_EQ(club.Movements[1], slot(4, "Bob Hart"));
    OrderResult r = sellToCrap(club, "Dan Fox  (9)");
    ASSERT_TRUE(r.accepted);
    EXPECT_EQ(club.Movements[3], slot(2, "Dan Fox", "", 0));  // 35 years old
    EXPECT_EQ(r.line, "Dan Fox - Sell To CRAP for 0");
    EXPECT_EQ(club.Movements[0], slot(1, "Far Away", "Rovers", 900, 12, 50));
    EXPECT_EQ(usedMovementSlots(club), 4);
    EXPECT_EQ(firstFreeMovementSlot(club), 5);
}

TEST(PlayerActions, PlayerActDialogOrders) {
    struct Case {
        const char* what;
        PlayerAction action;
        const char* club;
        const char* amount;
        const char* contract;
        Movement want;  // Move 0: refused
        const char* title;
        const char* text;
        const char* line;
    } cases[] = {
        {"sale", PlayerAction::SellToClub, "Rovers FC", "1500000", "", slot(6, "Ann Lee", "Rovers FC", 1500000), "", "",
         "Ann Lee - Sell Player To Rovers FC  - For 1500000"},
        {"sale without a club", PlayerAction::SellToClub, "", "1500000", "", slot(0, ""), "No Club selected",
         "Please select a club to sell this player to", ""},
        {"sale for an empty amount", PlayerAction::SellToClub, "City", "", "", slot(6, "Ann Lee", "City", 0), "", "",
         "Ann Lee - Sell Player To City  - For 0"},
        {"secret listing", PlayerAction::SecretlyList, "", "250000", "", slot(5, "Ann Lee", "", 250000), "", "",
         "Ann Lee - Secretly List For 250000"},
        {"half rounds to even", PlayerAction::SecretlyList, "", "2.5", "", slot(5, "Ann Lee", "", 2), "", "",
         "Ann Lee - Secretly List For 2"},
        {"contract", PlayerAction::OfferContract, "", "1000", "18", slot(3, "Ann Lee", "", 0, 18, 1000), "", "",
         "Ann Lee - Contract 18 Months  - Incentive 1000"},
        {"contract of 7", PlayerAction::OfferContract, "", "1000", "7", slot(0, ""), "Incorrect contract value",
         "Contracts must be either 6, 12, 18 or 24 months", ""},
    };
    for (const Case& c : cases) {
        Club club = squadClub();
        club.Movements[0] = slot(4, "Bob Hart");
        const Club before = club;
        OrderResult r;
        if (c.action == PlayerAction::SellToClub)
            r = sellToClub(club, "Ann Lee (DEFC)", c.club, c.amount);
        else if (c.action == PlayerAction::SecretlyList)
            r = secretlyList(club, "Ann Lee (DEFC)", c.amount);
        else
            r = offerContract(club, "Ann Lee (DEFC)", c.contract, c.amount);
        if (c.want.Move == 0) {
            test::expectRefused(r, c.title, c.text, club, before, c.what);
        } else {
            ASSERT_TRUE(r.accepted) << c.what << ": " << r.text;
            EXPECT_EQ(club.Movements[1], c.want) << c.what;
            EXPECT_EQ(r.line, c.line) << c.what;
            EXPECT_EQ(club.Movements[0], before.Movements[0]) << c.what;
        }
    }
}

TEST(PlayerActions, SeventhActionOfAnyKindIsRefused) {
    Club club = squadClub();
    const char* rows[] = {"Ann Lee", "Bob Hart", "Cy Young", "Dan Fox", "Kim Page"};
    for (const char* row : rows) ASSERT_TRUE(transferList(club, row).accepted) << row;
    ASSERT_TRUE(offerContract(club, "Ann Lee", "24", "0").accepted);
    const Club before = club;
    for (PlayerAction a : {PlayerAction::TransferList, PlayerAction::SellToCrap, PlayerAction::SellToClub,
                           PlayerAction::SecretlyList, PlayerAction::OfferContract})
        test::expectRefused(click(club, a, "Hal Odd"), "Action limit reached", kLimitText, club, before);
    // The dialog can't be reached now, but a slip past the button still loses nothing.
    test::expectRefused(secretlyList(club, "Hal Odd", "5"), "Action limit reached", kLimitText, club, before);
}
