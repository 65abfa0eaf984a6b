#include <gtest/gtest.h>

#include "orders/onetoone.h"
#include "orders/orderlist.h"
#include "orders/squad.h"

using namespace kestrin;
using kestrin::test::squadClub;

TEST(OneToOne, EveryOptionStoredAndListedInTheListSpelling) {
    struct Case {
        int option;
        const char* caption;
        const char* line;
    } cases[] = {
        {0, "Money talks", "1 To 1 - Money talks - Kim Page"},     {1, "Learn to blend", "1 To 1 - Learn to blend - Kim Page"},
        {2, "Position change", "1 To 1 - Position change - Kim Page"}, {3, "Special skill", "1 To 1 - Special skill - Kim Page"},
        {4, "Spot potential", "1 To 1 - Spot potential - Kim Page"},
        {5, "Drop player to reserves", "1 To 1 - Drop player to reserves - Kim Page"},
        {6, "Why unhappy ?", "1 To 1 - Why Unhappy? - Kim Page"}, {7, "Raise aggression", "1 To 1 - Raise Aggression - Kim Page"},
        {8, "Lower aggression", "1 To 1 - Lower Aggression - Kim Page"}, {9, "Rig suspension", "1 To 1 - Rig Suspension - Kim Page"},
        {10, "Rousing team talk", "1 To 1 - Rousing Team Talk!"},  // a team talk names nobody
    };
    for (const Case& c : cases) {
        EXPECT_EQ(kOneToOneCaptions[size_t(c.option)], c.caption);
        Club club = squadClub();
        ASSERT_TRUE(checkOneToOne(club).accepted);
        OrderResult r = setOneToOne(club, c.option, "Kim Page (MIDR)");
        ASSERT_TRUE(r.accepted) << c.caption << ": " << r.text;
        EXPECT_EQ(club.OneToOneInstruction, c.option + 1);
        EXPECT_EQ(club.OneToOnePlayer, c.option == 10 ? "" : "Kim Page");
        EXPECT_EQ(r.line, c.line);
        EXPECT_EQ(orderLines(club), (std::vector<OrderLine>{{c.line, kTagOneToOne}}));
    }
}

TEST(OneToOne, Refusals) {
    struct Case {
        const char* what;
        int16_t existing;
        bool atButton;  // btnOneToOne, else OKButton
        int option;
        const char* row;
        const char* title;
        const char* text;
    } cases[] = {
        {"a second order in the week", 3, true, 0, "Kim Page", "One To One already selected",
         "You cannot perform more than a single One To One Option each week"},
        {"no option set", 0, false, -1, "Kim Page", "No option selected", "Please select a One to One option"},
        {"no option beats no player", 0, false, -1, "", "No option selected", "Please select a One to One option"},
        {"rig suspension with no row", 0, false, 9, "", "No player selected",
         "That One to One option needs a player to be selected"},
    };
    for (const Case& c : cases) {
        Club club = squadClub();
        club.OneToOneInstruction = c.existing;
        if (c.existing) club.OneToOnePlayer = "Bob Hart";
        const Club before = club;
        OrderResult r = c.atButton ? checkOneToOne(club) : setOneToOne(club, c.option, c.row);
        test::expectRefused(r, c.title, c.text, club, before, c.what);
    }
}

TEST(OneToOne, EmptyGridOpensTheDialogAndTheTeamTalkNeedsNoPlayer) {
    Club club = squadClub();
    EXPECT_TRUE(checkOneToOne(club).accepted) << "the player is asked for at OKButton, not before";
    EXPECT_EQ(oneToOnePrompt(club, ""), "No Player Selected");
    EXPECT_EQ(oneToOnePrompt(club, "Kim Page (MIDR)"), "One To One : Kim Page");
    ASSERT_TRUE(setOneToOne(club, kTeamTalkOption, "").accepted);
    EXPECT_EQ(club.OneToOneInstruction, 11);

    // Blocked until the order is removed; then the next one may go in.
    EXPECT_FALSE(checkOneToOne(club).accepted);
    ASSERT_TRUE(removeOrder(club, OrderLine{"1 To 1 - Rousing Team Talk!", kTagOneToOne}).accepted);
    EXPECT_EQ(club.OneToOneInstruction, 0);
    EXPECT_TRUE(orderLines(club).empty());
    EXPECT_TRUE(checkOneToOne(club).accepted);
}
