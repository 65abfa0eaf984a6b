#pragma once
// A small squad built in code, and the checks the order and screen tests share.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "core/messages.h"
#include "core/records.h"
#include "orders/orderresult.h"

namespace kestrin::test {

inline Player squadPlayer(std::string name, std::string position, int age, int skill = 5, int injury = 0) {
    Player p;
    p.Name = std::move(name);
    p.Position = std::move(position);
    p.Age = int16_t(age);
    p.Skill = int16_t(skill);
    p.Injury = int16_t(injury);
    return p;
}

// Seniors and youths of every department, an injured player, a player whose
// name holds " - ", and one with a position of no department.
inline Club squadClub() {
    Club c;
    c.Name = "Harbour Town";
    c.ClubFile = "HARB";
    c.Physio = 10;
    c.PhysioPointsLeft = 10;
    c.Players = {
        squadPlayer("Ann Lee", "DEFC", 24, 6),    squadPlayer("Bob Hart", "AGKP", 30, 7),
        squadPlayer("Cy Young", "MIDL", 17, 4),   squadPlayer("Dan Fox", "STRC", 35, 8),
        squadPlayer("Jean - Pierre", "MIDC", 22), squadPlayer("Ed Hurt", "DEFL", 26, 5, 10),
        squadPlayer("Fay Nine", "STRL", 19, 5, 9), squadPlayer("Gil Kid", "AGKP", 16),
        squadPlayer("Hal Odd", "XXXX", 25),       squadPlayer("Ivy Teen", "DEFR", 15),
        squadPlayer("Joe Colt", "STRR", 17),      squadPlayer("Kim Page", "MIDR", 29),
    };
    return c;
}

inline Movement slot(int16_t move, std::string player, std::string club = {}, int32_t fee = 0, int32_t contract = 0,
                     int32_t incentive = 0) {
    Movement m;
    m.Move = move;
    m.Player = std::move(player);
    m.Club = std::move(club);
    m.Fee = fee;
    m.Contract = contract;
    m.Incentive = incentive;
    return m;
}

// A refusal shows its own title and text and leaves the club as it was.
inline void expectRefused(const OrderResult& r, std::string_view title, std::string_view text, const Club& after,
                          const Club& before, std::string_view what = {}) {
    EXPECT_FALSE(r.accepted) << what;
    EXPECT_EQ(r.title, title) << what;
    EXPECT_EQ(r.text, text) << what;
    EXPECT_EQ(after, before) << what << ": a refusal must change nothing";
}

// Exactly one message was shown, of this kind, title and text.
inline void expectOneMessage(const RecordingMessages& m, RecordingMessages::Kind kind, std::string_view title,
                             std::string_view text) {
    ASSERT_EQ(m.entries.size(), 1u);
    EXPECT_EQ(m.entries[0].kind, kind);
    EXPECT_EQ(m.entries[0].title, title);
    EXPECT_EQ(m.entries[0].text, text);
}

}  // namespace kestrin::test
