#pragma once
// What each list and combo box of the fixture screen offers, how a choice is
// written into the Fixture, and what a control shows for a stored value.
// The screen only shows these entries and hands back the chosen position.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"

namespace kestrin {

enum class FixtureControl : int {
    DefAgg, MidAgg, AttAgg,
    Formation,
    Tactics,
    Captain, Penalty, Corners, FreeKicks,
    Aiming, Revolver, Snappy,
    Pace, Length, Height,
    ChangeOneTime,
    ChangeOneFormationLosing, ChangeOneFormationDrawing, ChangeOneFormationWinning,
    ChangeOneTacticLosing, ChangeOneTacticDrawing, ChangeOneTacticWinning,
    ChangeTwoTime,
    ChangeTwoFormationLosing, ChangeTwoFormationDrawing, ChangeTwoFormationWinning,
    ChangeTwoTacticLosing, ChangeTwoTacticDrawing, ChangeTwoTacticWinning,
    SubOneTime,
    SubOneActionLosing, SubOneActionDrawing, SubOneActionWinning,
    SubTwoTime,
    SubTwoActionLosing, SubTwoActionDrawing, SubTwoActionWinning,
};
inline constexpr int kFixtureControlCount = int(FixtureControl::SubTwoActionWinning) + 1;

// How the chosen entry becomes the stored value.
enum class EntryMapping {
    NumberOfText,      // the leading number of the entry's text ("None" gives 0)
    ListIndex,         // the entry's 0-based position
    FormationNumbers,  // "4 - 4 - 2" into Defence, Midfield, Attack
    FormationCode,     // the formation code of the text, 0 for "0 - 0 - 0"
    TacticFromZero,    // the 0-based position in the tactic list
    TacticFromOne,     // the 1-based position in the tactic list
    Substitution,      // the substitution code of the text, 0 for "No Change"
};

struct FixtureControlInfo {
    FixtureControl Control;
    std::string_view Name;   // the control on the screen
    std::string_view Field;  // the Fixture field it writes
    EntryMapping Mapping;
};

// Every control of the fixture screen, in the order of FixtureControl.
const std::array<FixtureControlInfo, kFixtureControlCount>& fixtureControls();
const FixtureControlInfo& fixtureControlInfo(FixtureControl control);

// The entries the control offers, in list order.
const std::vector<std::string>& controlEntries(FixtureControl control);

// The one field a control writes; nullptr for Formation, which writes three.
int16_t* fixtureField(Fixture& fixture, FixtureControl control);
int16_t fixtureFieldValue(const Fixture& fixture, FixtureControl control);

// The entry a control shows for the fixture's stored value, -1 when no entry
// stands for it (a list then shows no selection).
int shownEntry(const Fixture& fixture, FixtureControl control);
// The text the control shows: the entry's, or for the formation combo box the
// fixture's own three numbers even when they are not in the list.
std::string shownText(const Fixture& fixture, FixtureControl control);

// The manager picks an entry: the field is written from it, and a change time
// or substitution time set to "None" resets the choices of its rule (a change
// rule's formations to "0 - 0 - 0" and tactics to the first tactic, a
// substitution's three actions to "No Change"). Returns whether any field
// changed. An entry outside the list changes nothing. The screen marks the
// turn changed on every pick, changed or not, as the game does.
bool chooseEntry(Fixture& fixture, FixtureControl control, int entry);
// The same, by the entry's text; false when the control has no such entry.
bool chooseText(Fixture& fixture, FixtureControl control, std::string_view text);

// Showing a fixture turns a Captain, Penalties or Corners of 0 into shirt 1;
// FreeKicks stays as it is. Returns whether a field changed.
bool normaliseSetPieces(Fixture& fixture);

// Everything the fixture screen shows for one fixture: the set pieces are
// normalised first, then every control's entry and text is taken.
struct FixtureView {
    std::array<int, kFixtureControlCount> Entry{};
    std::array<std::string, kFixtureControlCount> Text{};
    bool SetPiecesChanged = false;
    int entry(FixtureControl c) const { return Entry[size_t(c)]; }
    const std::string& text(FixtureControl c) const { return Text[size_t(c)]; }
};
FixtureView showFixture(Fixture& fixture);

// "Home vs " or "Away vs " by Venue (nothing for a neutral ground), then
// Opponent, " - ", Competition.
std::string fixtureListText(const Fixture& fixture);
// One line per fixture of the club; line i is fixture number i + 1.
std::vector<std::string> fixtureListTexts(const Club& club);

}  // namespace kestrin
