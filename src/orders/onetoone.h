#pragma once
// The week's one personal instruction: a talk with one player, or the team talk.
#include <array>
#include <string>
#include <string_view>

#include "orders/orderresult.h"

namespace kestrin {

inline constexpr int kOneToOneOptions = 11;
inline constexpr int kTeamTalkOption = 10;  // the one option that needs no player

// Captions of OneToOneOption on the dialog, by option index.
inline constexpr std::array<std::string_view, kOneToOneOptions> kOneToOneCaptions = {
    "Money talks",   "Learn to blend",          "Position change", "Special skill",    "Spot potential",
    "Drop player to reserves", "Why unhappy ?", "Raise aggression", "Lower aggression", "Rig suspension",
    "Rousing team talk"};
// The same options as lstOneToOne spells them; these words go into lstActions.
inline constexpr std::array<std::string_view, kOneToOneOptions> kOneToOneListTexts = {
    "Money talks",   "Learn to blend",          "Position change", "Special skill",    "Spot potential",
    "Drop player to reserves", "Why Unhappy?",  "Raise Aggression", "Lower Aggression", "Rig Suspension",
    "Rousing Team Talk!"};

inline constexpr std::string_view kOneToOneDialogTitle = "Please enter the One to One instruction";

// btnOneToOne: refused while the week's instruction is already given.
OrderResult checkOneToOne(const Club& club);
// txtOnePlayer: "One To One : " and the row's name, or "No Player Selected".
std::string oneToOnePrompt(const Club& club, std::string_view rowText);

// OKButton: `option` is the index of the option set, -1 when none is. The
// team talk stores no player even when a row is chosen. A refusal leaves the
// dialog open.
OrderResult setOneToOne(Club& club, int option, std::string_view rowText);

// The lstActions line, "" when there is no instruction.
std::string oneToOneLine(const Club& club);
// BtnRemove on the one to one line.
bool removeOneToOne(Club& club);

}  // namespace kestrin
