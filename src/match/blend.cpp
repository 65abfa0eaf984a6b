#include "match/blend.h"

#include "core/text.h"
#include "stats/lookups.h"
#include "stats/reading.h"

namespace kestrin {

namespace {

// Match reports print a name in at most 19 characters; a longer name of the
// squad is compared by what the report could hold of it.
constexpr size_t kReportNameLength = 19;
constexpr size_t kShirts = 13;
constexpr int kLastOnPitch = 11;

using Sizes = std::array<int, 3>;
using Names = std::array<std::string, kShirts>;  // [0] is shirt 1

// The line sizes of a stored formation number; nothing for a number with no
// formation.
std::optional<Sizes> sizesOf(int64_t formation) {
    const std::string t = stats::formationText(int(formation));
    if (val(t) == 0) return std::nullopt;
    return Sizes{int(val(t.substr(0, 1))), int(val(t.substr(4, 1))), int(val(t.substr(8, 1)))};
}

int firstShirt(const Sizes& s, int line) {
    int first = 2;
    for (int l = 0; l < line; ++l) first += s[size_t(l)];
    return first;
}

// Every name of the line-up's line stands among the match's shirts of the
// same line, in any order. An empty shirt never matches, nor a line with
// no shirt on the pitch.
bool lineMet(const BlendLineUp& up, const Sizes& want, int line, const Sizes& sizes, const Names& names) {
    const int from = firstShirt(want, line), matchFrom = firstShirt(sizes, line);
    const int count = want[size_t(line)];
    if (count <= 0 || from < 2 || from > kLastOnPitch) return false;
    for (int shirt = from; shirt < from + count && shirt <= kLastOnPitch; ++shirt) {
        const std::string name = trim(std::string_view(up.Shirts[size_t(shirt - 1)]).substr(0, kReportNameLength));
        if (name.empty()) return false;
        bool found = false;
        for (int m = matchFrom; m < matchFrom + count && m <= kLastOnPitch && !found; ++m)
            found = names[size_t(m - 1)] == name;
        if (!found) return false;
    }
    return true;
}

struct Walk {
    const BlendLineUp& up;
    Sizes want;
    std::array<std::string*, 3> out;
    std::array<bool, 3> settled{};

    bool done() const { return settled[0] && settled[1] && settled[2]; }
    void compare(const Names& names, const Sizes& sizes, const std::array<int64_t, 3>& blends) {
        for (int line = 0; line < 3; ++line) {
            const size_t l = size_t(line);
            if (settled[l] || want[l] != sizes[l]) continue;
            if (lineMet(up, want, line, sizes, names)) {
                *out[l] = std::to_string(blends[l]);
                settled[l] = true;
            }
        }
    }
};

}  // namespace

BlendLineUp blendLineUp(const Fixture& f) {
    BlendLineUp up;
    up.Defence = f.Defence;
    up.Midfield = f.Midfield;
    up.Attack = f.Attack;
    for (size_t i = 0; i < up.Shirts.size(); ++i) up.Shirts[i] = f.Slots[i].Player;
    return up;
}

std::string Blend::text() const { return DefenceBlend + " - " + MidfieldBlend + " - " + AttackBlend; }

BlendReader::BlendReader(SQLite::Database& db)
    : matches_(db, "SELECT MatchCode FROM MatchMain WHERE HomeSide = ?1 OR AwaySide = ?1 "
                   "ORDER BY Date DESC, MatchCode DESC"),
      team_(db, "SELECT StartFormation, EndFormation, StartDefBlend, StartMidBlend, StartAttBlend, EndDefBlend, "
                "EndMidBlend, EndAttBlend FROM MatchTeam WHERE MatchCode = ? AND Club = ? ORDER BY rowid LIMIT 1"),
      players_(db, "SELECT PlayerName, TimeSub FROM MatchPlayer WHERE MatchCode = ? AND Club = ? "
                   "ORDER BY Number, rowid") {}

Blend BlendReader::blendOf(const std::string& club, const BlendLineUp& up) {
    Blend b;
    Walk walk{up, {up.Defence, up.Midfield, up.Attack}, {&b.DefenceBlend, &b.MidfieldBlend, &b.AttackBlend}};
    matches_.reset();
    matches_.bind(1, club);
    bool anyMatch = false;
    while (!walk.done() && matches_.executeStep()) {
        if (!anyMatch && up.Attack == 1) {
            // A single attacker has nobody to blend with.
            b.AttackBlend = std::to_string(0);
            walk.settled[2] = true;
        }
        anyMatch = true;
        const int64_t code = matches_.getColumn(0).getInt64();

        team_.reset();
        team_.bind(1, code);
        team_.bind(2, club);
        if (!team_.executeStep()) continue;
        const std::optional<Sizes> start = sizesOf(team_.getColumn(0).getInt64());
        if (!start) continue;
        const Sizes end = sizesOf(team_.getColumn(1).getInt64()).value_or(Sizes{});
        std::array<int64_t, 3> startBlends{}, endBlends{};
        for (int i = 0; i < 3; ++i) {
            startBlends[size_t(i)] = team_.getColumn(2 + i).getInt64();
            endBlends[size_t(i)] = team_.getColumn(5 + i).getInt64();
        }
        bool sizeMet = false;
        for (size_t l = 0; l < 3; ++l) sizeMet = sizeMet || walk.want[l] == (*start)[l] || walk.want[l] == end[l];
        if (!sizeMet) continue;

        // The rows are the shirts in order, whatever their numbers.
        Names names;
        std::array<int64_t, kShirts> times{};
        size_t rows = 0;
        players_.reset();
        players_.bind(1, code);
        players_.bind(2, club);
        while (rows < kShirts && players_.executeStep()) {
            names[rows] = trim(players_.getColumn(0).getString());
            times[rows] = players_.getColumn(1).getInt64();
            ++rows;
        }
        if (rows == 0) continue;

        // The rows show the end of the match. Swapping each substitute back
        // with the shirt that went off at his minute rebuilds the kick-off;
        // when both came on together either could have taken that shirt, so
        // one column tries shirt 12 first and the other shirt 13.
        std::array<Names, 2> kickOff{names, names};
        for (size_t i = 0; i < size_t(kLastOnPitch); ++i) {
            if (times[i] <= 0) continue;
            for (size_t s : {11u, 12u})
                if (times[s] == times[i]) std::swap(kickOff[0][i], kickOff[0][s]);
            for (size_t s : {12u, 11u})
                if (times[s] == times[i]) std::swap(kickOff[1][i], kickOff[1][s]);
        }
        for (const Names& column : kickOff) walk.compare(column, *start, startBlends);
        walk.compare(names, end, endBlends);
    }
    matches_.reset();
    return b;
}

std::optional<Blend> blendAnalysis(const Settings& settings, const std::string& club, const BlendLineUp& lineUp,
                                   Messages& messages, const std::string& title) {
    std::optional<stats::ReadableStats> opened = stats::openStatsForReading(settings, messages, title, stats::MissingSign::None);
    if (!opened) return std::nullopt;
    if (opened->state == stats::SchemaState::Empty) return Blend{};  // nothing refreshed into it yet
    try {
        BlendReader reader(opened->db);
        return reader.blendOf(club, lineUp);
    } catch (const SQLite::Exception&) {
        messages.refuse(stats::kUnusableTitle, stats::unusableText(settings.StatsFile));
        return std::nullopt;
    }
}

}  // namespace kestrin
