#pragma once
// By Best Blend: the lines the club has fielded before, read from the Stats
// database, and the lowest-numbered blends among them whose players are all
// available now.
#include <SQLiteCpp/Database.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "core/records.h"

namespace kestrin {

// One line a match fielded: its players by 1-based squad number.
struct StoredLine {
    std::vector<int> Players;
    bool operator==(const StoredLine&) const = default;
};

// The lines of the club's matches, newest match first, by line (0 defence,
// 1 midfield, 2 attack) and blend value (0 to 10); at most 500 of each.
struct LineStore {
    std::array<std::array<std::vector<StoredLine>, 11>, 3> Lines;
};

// Reads the club's matches. Nothing when the club has no match in the
// database. `available` holds the 1-based numbers of the players who may
// play; a line with anyone else is not stored.
std::optional<LineStore> readLineStore(SQLite::Database& db, const Club& club, const std::vector<int>& available);

// The lines chosen from the store: each is the players of one line of some
// formation's best candidate; a line no candidate could give is nothing.
// With `fixedFormation`, a line is taken only from a formation whose line of
// that kind has the quota's size.
struct BlendLines {
    std::array<std::optional<std::vector<int>>, 3> Lines;
};
BlendLines chooseBlendLines(const LineStore& store, const std::array<int, 3>& quotas, bool fixedFormation);

}  // namespace kestrin
