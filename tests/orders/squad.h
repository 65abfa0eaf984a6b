#pragma once
// A small squad built in code for the order tests.
#include <string>

#include "core/records.h"

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

}  // namespace kestrin::test
