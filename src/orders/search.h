#pragma once
// The detailed player search over every player of the club export: by part
// of the name, or by bands of position, value, age, performance, total skill,
// signing figure and managed state.
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"

namespace kestrin {

// The items of each filter box, in order.
inline constexpr std::array<std::string_view, 14> kSearchPositionItems = {
    "Any Player",           "Goalkeeper",          "Any Defender",       "Central Defender",
    "Left sided Defender",  "Right sided Defender", "Any Midfielder",    "Central Midfielder",
    "Left sided Midfielder", "Right sided Midfielder", "Any Striker",    "Central Striker",
    "Left sided Striker",   "Right sided Striker"};
inline constexpr std::array<std::string_view, 11> kSearchPerfItems = {"Any", "10", "20", "30", "40", "50",
                                                                     "60",  "70", "80", "90", "100"};
inline constexpr std::array<std::string_view, 7> kSearchValueItems = {
    "Any", "Within my bank balance", "Less than 1 million", "1 million to 3 million", "3 million to 5 million",
    "5 million to 7 million", "8 million and above"};
inline constexpr std::array<std::string_view, 6> kSearchAgeItems = {"Any",      "Youth Players", "Younger than 20",
                                                                   "20 to 29", "30 to 34",      "35 and older"};
inline constexpr std::array<std::string_view, 6> kSearchSkillItems = {"Any",      "Less than 66", "66 to 76",
                                                                     "77 to 87", "88 to 98",     "99 and above"};
inline constexpr std::array<std::string_view, 7> kSearchSignItems = {"0", "1", "2", "3", "4", "5", "Any"};
inline constexpr std::array<std::string_view, 2> kSearchManagedItems = {"Yes", "No"};

// The boxes' texts. The defaults are the ones the Scout screen seeds on the
// first opening.
struct SearchFilter {
    std::string Name{};  // txtPlayerSearch
    std::string Pos = "Any Player";
    std::string Perf = "Any";
    std::string Value = "Any";
    std::string Age = "Any";
    std::string Skill = "Any";
    std::string Sign = "3";
    std::string Managed = "Yes";
    bool operator==(const SearchFilter&) const = default;
};

// A plain-words problem when a box holds a text that is not one of its items
// (the command line takes them as typed); nothing when all are items.
std::optional<std::string> searchFilterProblem(const SearchFilter& filter);

// Whether a position passes a ComboPos item; the scout history shares it.
// An unknown item passes nothing.
bool positionPasses(std::string_view item, std::string_view position);

// A player found: indexes into ExportClubs and its Players.
struct SearchHit {
    uint32_t club = 0;
    uint32_t player = 0;
    bool operator==(const SearchHit&) const = default;
};

// The search, in the order of the export. A name after trimming finds every
// player holding it in any case and ignores every band; otherwise each band
// not at "Any" may clear a player, in the boxes' order. `bankBalance` is the
// current club's, for "Within my bank balance". Boxes holding no item pass
// nothing; check them with searchFilterProblem first.
std::vector<SearchHit> searchExport(std::span<const ExportClub> clubs, const SearchFilter& filter,
                                    int64_t bankBalance);

// The result rows in the search screen's column order (see
// kSearchPlayerColumns of orders/market.h): the club's name, then the
// player's cells as on the Scout screen. No hit gives the one row
// "No Results" (the other cells empty).
inline constexpr std::string_view kNoResults = "No Results";
std::vector<std::vector<std::string>> searchRows(std::span<const ExportClub> clubs,
                                                 const std::vector<SearchHit>& hits);

}  // namespace kestrin
