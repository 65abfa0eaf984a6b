#include <gtest/gtest.h>

#include "orders/history.h"
#include "orders/orderlist.h"
#include "orders/playeractions.h"
#include "orders/squad.h"

using namespace kestrin;

TEST(HistoryRoutines, LeaguePlacesInWords) {
    struct Case {
        const char* n;
        const char* want;
    } cases[] = {
        {"1", "Champions"}, {"2", "Runners up"}, {"3", "3rd"},   {"4", "4th"},     {"11", "11th"}, {"12", "12th"},
        {"13", "13th"},     {"21", "21st"},      {"22", "22nd"}, {"23", "23rd"},   {"111", "111st"}, {" 1", "Champions"},
    };
    for (const Case& c : cases) EXPECT_EQ(makePosition(c.n), c.want) << c.n;
}

TEST(HistoryRoutines, DateForms) {
    struct Case {
        const char* in;
        const char* conv;
        const char* sort;
    } cases[] = {
        {"25/12/23", "12/25/23", "231225"},  // sortDate is meant for four-digit years
        {"05/01/2024", "01/05/24", "20240105"},
        {"31/03/1999", "03/31/99", "19990331"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(convDate(c.in), c.conv) << c.in;
        EXPECT_EQ(sortDate(c.in), c.sort) << c.in;
    }
    EXPECT_LT(sortDate("31/12/2023"), sortDate("01/01/2024"));
}

TEST(SettleOrder, RefusalIsShownAndAcceptanceMarksTheTurnChanged) {
    Session s;
    s.Clubs = {test::squadClub()};
    RecordingMessages m;
    EXPECT_FALSE(settleOrder(s, removeOrder(s.Clubs[0], std::nullopt), m));
    test::expectOneMessage(m, RecordingMessages::Kind::Refuse, "No action selected", "Please select an action to remove");
    EXPECT_FALSE(s.TurnChanged);

    EXPECT_TRUE(settleOrder(s, transferList(s.Clubs[0], "Ann Lee (DEFC)"), m));
    EXPECT_EQ(m.entries.size(), 1u);
    EXPECT_TRUE(s.TurnChanged);
}
