#pragma once
// What the pitch screen shows that is not drawing: the two player lists with
// their filters, the shirt captions, and the information text of a player.
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/clubview.h"
#include "core/records.h"

namespace kestrin {

enum class TeamFilter { AllAges = 0, Seniors = 1, Youth = 2 };
// PositionFilter (btnPos) and the captions of both filters are the squad
// grid's own, from core/clubview.h.

// A player may be picked when his Injury and SuspPoints are both below the limits.
bool canPlay(const Player& player, int injuryLimit, int suspensionLimit);
// Seniors are 18 and over, youth 17 and under.
bool passesTeamFilter(const Player& player, TeamFilter filter);
bool passesPositionFilter(const Player& player, PositionFilter filter);

// A player's line in either list: Position, a blank, Name. Position codes
// are four letters, so the name starts at column 6.
std::string playerListEntry(const Player& player);
// The name of a list line: the text from column 6.
std::string listEntryName(std::string_view entry);

// The caption under a shirt: "Player 7" or "Player 12 (Substitute 1)" when
// empty, else "7. Name" with the set-piece marks of the fixture, as in
// "7. Name (Cap, Pen)".
std::string shirtCaption(const Fixture& fixture, int shirt);
std::array<std::string, 13> shirtCaptions(const Fixture& fixture);

// True when the player cannot play, or when his name stands anywhere in one
// of the thirteen captions.
bool IsOnPitch(const Player& player, const Fixture& fixture, int injuryLimit, int suspensionLimit);

struct PitchLists {
    std::vector<std::string> Available;
    std::vector<std::string> Unavailable;
    bool SlotsChanged = false;  // a player who cannot play was taken out of a shirt
};
// Both lists in squad order. A player who cannot play goes to Unavailable
// (when the filters let him through) and is taken out of every shirt whose
// caption holds his name, filters or not; that is how a player hurt or
// banned since the team was picked leaves the line-up.
PitchLists buildPitchLists(const Club& club, Fixture& fixture, int injuryLimit, int suspensionLimit,
                           TeamFilter team, PositionFilter position);

// The four lines of the information box.
std::array<std::string, 4> infoLines(const Player& player);
// The same lines joined by CR LF, as the box shows them.
std::string ShowInfo(const Player& player);

}  // namespace kestrin
