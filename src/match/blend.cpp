#include "match/blend.h"

#include "core/text.h"
#include "stats/lookups.h"
#include "stats/reading.h"

namespace kestrin {

namespace {

constexpr int kLastOnPitch = 11;

using Sizes = LineSizes;
using Names = ShirtNames;

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
        const std::string name = reportName(up.Shirts[size_t(shirt - 1)]);
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

std::string reportName(std::string_view squadName) { return trim(squadName.substr(0, kReportNameLength)); }

std::optional<LineSizes> formationSizes(int64_t formation) {
    const std::string t = stats::formationText(int(formation));
    if (val(t) == 0) return std::nullopt;
    return LineSizes{int(val(t.substr(0, 1))), int(val(t.substr(4, 1))), int(val(t.substr(8, 1)))};
}

ShirtNames kickOffNames(const MatchShirts& m, bool twelveFirst) {
    ShirtNames names = m.Names;
    const std::array<size_t, 2> order = twelveFirst ? std::array<size_t, 2>{11, 12} : std::array<size_t, 2>{12, 11};
    for (size_t i = 0; i < size_t(kLastOnPitch); ++i) {
        if (m.TimeSub[i] <= 0) continue;
        for (size_t s : order)
            if (m.TimeSub[s] == m.TimeSub[i]) std::swap(names[i], names[s]);
    }
    return names;
}

ClubMatches::ClubMatches(SQLite::Database& db)
    : matches_(db, "SELECT MatchCode FROM MatchMain WHERE HomeSide = ?1 OR AwaySide = ?1 "
                   "ORDER BY Date DESC, MatchCode DESC"),
      team_(db, "SELECT StartFormation, EndFormation, StartDefBlend, StartMidBlend, StartAttBlend, EndDefBlend, "
                "EndMidBlend, EndAttBlend FROM MatchTeam WHERE MatchCode = ? AND Club = ? ORDER BY rowid LIMIT 1"),
      players_(db, "SELECT PlayerName, TimeSub FROM MatchPlayer WHERE MatchCode = ? AND Club = ? "
                   "ORDER BY Number, rowid") {}

void ClubMatches::start(const std::string& club) {
    club_ = club;
    matches_.reset();
    matches_.bind(1, club_);
}

std::optional<int64_t> ClubMatches::next() {
    if (!matches_.executeStep()) return std::nullopt;
    return matches_.getColumn(0).getInt64();
}

std::optional<MatchTeamRow> ClubMatches::team(int64_t match) {
    team_.reset();
    team_.bind(1, match);
    team_.bind(2, club_);
    if (!team_.executeStep()) return std::nullopt;
    MatchTeamRow row;
    row.Start = formationSizes(team_.getColumn(0).getInt64());
    row.End = formationSizes(team_.getColumn(1).getInt64());
    for (int i = 0; i < 3; ++i) {
        row.StartBlends[size_t(i)] = team_.getColumn(2 + i).getInt64();
        row.EndBlends[size_t(i)] = team_.getColumn(5 + i).getInt64();
    }
    team_.reset();
    return row;
}

MatchShirts ClubMatches::shirts(int64_t match) {
    // The rows are the shirts in order, whatever their numbers.
    MatchShirts m;
    players_.reset();
    players_.bind(1, match);
    players_.bind(2, club_);
    while (m.Rows < kReportShirts && players_.executeStep()) {
        m.Names[m.Rows] = trim(players_.getColumn(0).getString());
        m.TimeSub[m.Rows] = players_.getColumn(1).getInt64();
        ++m.Rows;
    }
    players_.reset();
    return m;
}

void ClubMatches::finish() { matches_.reset(); }

BlendLineUp blendLineUp(const Fixture& f) {
    BlendLineUp up;
    up.Defence = f.Defence;
    up.Midfield = f.Midfield;
    up.Attack = f.Attack;
    for (size_t i = 0; i < up.Shirts.size(); ++i) up.Shirts[i] = f.Slots[i].Player;
    return up;
}

std::string Blend::text() const { return DefenceBlend + " - " + MidfieldBlend + " - " + AttackBlend; }

BlendReader::BlendReader(SQLite::Database& db) : matches_(db) {}

Blend BlendReader::blendOf(const std::string& club, const BlendLineUp& up) {
    Blend b;
    Walk walk{up, {up.Defence, up.Midfield, up.Attack}, {&b.DefenceBlend, &b.MidfieldBlend, &b.AttackBlend}};
    matches_.start(club);
    bool anyMatch = false;
    while (!walk.done()) {
        const std::optional<int64_t> code = matches_.next();
        if (!code) break;
        if (!anyMatch && up.Attack == 1) {
            // A single attacker has nobody to blend with.
            b.AttackBlend = std::to_string(0);
            walk.settled[2] = true;
        }
        anyMatch = true;

        const std::optional<MatchTeamRow> team = matches_.team(*code);
        if (!team || !team->Start) continue;
        const Sizes start = *team->Start, end = team->End.value_or(Sizes{});
        bool sizeMet = false;
        for (size_t l = 0; l < 3; ++l) sizeMet = sizeMet || walk.want[l] == start[l] || walk.want[l] == end[l];
        if (!sizeMet) continue;

        const MatchShirts shirts = matches_.shirts(*code);
        if (shirts.Rows == 0) continue;
        // The rows show the end of the match; one column tries shirt 12
        // first and the other shirt 13.
        for (bool twelveFirst : {true, false}) walk.compare(kickOffNames(shirts, twelveFirst), start, team->StartBlends);
        walk.compare(shirts.Names, end, team->EndBlends);
    }
    matches_.finish();
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
