#pragma once
// Auto Turn's team selection: the squad ranked by one of four scores, the
// lines of a formation filled from it, a keeper and two substitutes, and a
// complete set of match orders for a fixture.
#include <array>
#include <optional>
#include <vector>

#include "autoturn/autoturn.h"
#include "core/records.h"

namespace kestrin {

// A player may be picked with no suspension points and an injury below 10.
// These are the selection's own limits, not the pitch grid's settings.
bool availableForSelection(const Player& p);

// The available players' 1-based numbers, best score first; equal scores keep
// squad order.
std::vector<int> rankSquad(const Club& club, PickMethod method);

// The lines' limits: 5, 5, 3 for "Auto Pick", else the formation's numbers.
std::array<int, 3> lineQuotas(const std::string& formation);

struct TeamPick {
    ShirtPlayers Shirts{};
    int Defence = 0, Midfield = 0, Attack = 0;
};

// The line-up for the club's choice. Nothing when By Best Blend finds no
// match of the club in `stats` (or has no database at all).
std::optional<TeamPick> selectTeam(const Club& club, const PickChoice& choice, SQLite::Database* stats);

// Writes the line-up and the standard match orders into the fixture; the
// tactic if losing of the first change rule is drawn with `rnd`.
void writeTeamOrders(Fixture& fixture, const Club& club, const TeamPick& pick, const RandomSource& rnd);

}  // namespace kestrin
