#pragma once
// Blend analysis. The game rates how well the players of each line play
// together; we can't compute that, but the Stats database remembers it: the
// newest match in which the same players stood in a line of the same size
// gives the line's expected blend.
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

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

// ---- A club's matches as the blend readers walk them ---------------------

// Match reports print a name in at most 19 characters.
inline constexpr size_t kReportNameLength = 19;
inline constexpr size_t kReportShirts = 13;

using LineSizes = std::array<int, 3>;                        // defence, midfield, attack
using ShirtNames = std::array<std::string, kReportShirts>;  // [0] is shirt 1

// A squad name as a report holds it, so a longer name is compared by what
// the report could hold of it.
std::string reportName(std::string_view squadName);
// The line sizes of a formation number of the Stats database; nothing for a
// number with no formation.
std::optional<LineSizes> formationSizes(int64_t formation);

struct MatchTeamRow {
    std::optional<LineSizes> Start, End;
    std::array<int64_t, 3> StartBlends{}, EndBlends{};
};

// The shirts as the report leaves them at the end of the match.
struct MatchShirts {
    ShirtNames Names;  // trimmed
    std::array<int64_t, kReportShirts> TimeSub{};
    size_t Rows = 0;
};

// The kick-off line-up: each substitute swapped back with the shirt that went
// off at his minute. When both came on together either could have taken that
// shirt; `twelveFirst` says which one is tried first.
ShirtNames kickOffNames(const MatchShirts& m, bool twelveFirst);

// A club's matches in an open Stats database (of our schema), newest first.
// The statements are prepared once, so the matches can be walked many times.
class ClubMatches {
public:
    explicit ClubMatches(SQLite::Database& db);
    // `club` is the club's ClubFile, its code in the database.
    void start(const std::string& club);
    std::optional<int64_t> next();  // the next match's code
    std::optional<MatchTeamRow> team(int64_t match);
    MatchShirts shirts(int64_t match);
    void finish();

private:
    std::string club_;
    SQLite::Statement matches_, team_, players_;
};

// Blends read from an open Stats database (of our schema, with its tables).
// The statements are prepared once, so many line-ups can be tried in a row.
class BlendReader {
public:
    explicit BlendReader(SQLite::Database& db);
    // `club` is the club's ClubFile, its code in the database.
    Blend blendOf(const std::string& club, const BlendLineUp& lineUp);

private:
    ClubMatches matches_;
};

// The pitch grid's Blend: the database of settings.StatsFile, opened for this
// look-up. Nothing, after a message, when there is no usable database; a
// missing file is told as a plain message under `title`.
std::optional<Blend> blendAnalysis(const Settings& settings, const std::string& club, const BlendLineUp& lineUp,
                                   Messages& messages, const std::string& title);

}  // namespace kestrin
