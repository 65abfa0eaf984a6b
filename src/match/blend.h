#pragma once
// Blend analysis. The game rates how well the players of each line play
// together; we can't compute that, but the Stats database remembers it: the
// newest match in which the same players stood in a line of the same size
// gives the line's expected blend.
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <array>
#include <optional>
#include <string>

#include "core/messages.h"
#include "core/records.h"
#include "core/settings.h"

namespace kestrin {

// What the analysis looks at: the sizes of the three lines and who wears
// shirts 1 to 11. Defence starts at shirt 2, midfield at Defence + 2, attack
// at Defence + Midfield + 2.
struct BlendLineUp {
    int Defence = 0, Midfield = 0, Attack = 0;
    std::array<std::string, 11> Shirts;  // [0] is shirt 1
};
BlendLineUp blendLineUp(const Fixture& f);

struct Blend {
    // "?" while no match has told the line's blend.
    std::string DefenceBlend = "?", MidfieldBlend = "?", AttackBlend = "?";
    std::string text() const;  // "d - m - a", as the pitch grid shows it
    bool operator==(const Blend&) const = default;
};

// Blends read from an open Stats database (of our schema, with its tables).
// The statements are prepared once, so many line-ups can be tried in a row.
class BlendReader {
public:
    explicit BlendReader(SQLite::Database& db);
    // `club` is the club's ClubFile, its code in the database.
    Blend blendOf(const std::string& club, const BlendLineUp& lineUp);

private:
    SQLite::Statement matches_, team_, players_;
};

// The pitch grid's Blend: the database of settings.StatsFile, opened for this
// look-up. Nothing, after a message, when there is no usable database; a
// missing file is told as a plain message under `title`.
std::optional<Blend> blendAnalysis(const Settings& settings, const std::string& club, const BlendLineUp& lineUp,
                                   Messages& messages, const std::string& title);

}  // namespace kestrin
