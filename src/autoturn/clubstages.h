#pragma once
// The stages of Auto Turn that follow the team selection for a club: physio,
// warnings about contracts and unhappy players, scouting and coaching. Each
// writes the orders the squad and market screens write, by their rules.
#include <vector>

#include "autoturn/autoturn.h"
#include "core/records.h"
#include "orders/history.h"

namespace kestrin {

// The physio's points go to the injured among the shirts first, then to the
// rest of the squad; at most three players, and no order without points.
void autoPhysio(Club& club, const ShirtPlayers& shirts);

// Questions for players near the end of their contract and for unhappy
// players; a Yes orders a renewal or money talks.
void autoWarnings(Club& club, Messages& messages);

// Scout orders for good unmanaged players drawn at random from the export,
// two draws (club, then player) a try. A search that finds nobody in 20,000
// tries gives up and leaves the remaining orders empty; an export without
// any good player draws nothing.
void autoScouting(Club& club, const ClubExport& exportClubs, const RandomSource& rnd);

// The eight coach orders, for the players closest to their next skill level;
// `history` is the club's coaching history (skills that reached potential
// are not coached again).
void autoCoaching(Club& club, const ShirtPlayers& shirts, const std::vector<HistoryRecord>& history);

}  // namespace kestrin
