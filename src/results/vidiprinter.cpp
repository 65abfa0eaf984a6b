#include "results/vidiprinter.h"

#include <algorithm>

#include "core/preferences.h"
#include "core/text.h"

namespace kestrin::results {

namespace {

// Rows 1 to 9 before game.ini names them: codes, labels, long names.
constexpr std::array<std::array<std::string_view, 3>, kVidiLeagueRows> kLeagueRows = {{
    {"Eng", "Eng Prem", "English Premier"},
    {"Eng1", "Eng 1st", "English 1st"},
    {"Eng2", "Eng 2nd", "English 2nd"},
    {"Eng3", "Eng 3rd", "English 3rd"},
    {"Fra", "Fra Prem", "French Premier"},
    {"Ger", "Ger Prem", "German Premier"},
    {"Ita", "Ita Prem", "Italian Premier"},
    {"Sco", "Sco Prem", "Scottish Premier"},
    {"Spa", "Spa Prem", "Spanish Premier"},
}};

constexpr std::array<std::array<std::string_view, 3>, 7> kCupRows = {{
    {"WCC", "W.C.C   ", "World Club Cup"},
    {"EC", "Ch League", "Champions League"},
    {"ECWC", "E.C.W.C ", "Euro Cup Winners Cup"},
    {"UEFA", "UEFA Cup", "UEFA Cup"},
    {"PC", "Pac. Cup", "Pacific Cup"},
    {"FR", "Friendly", "Friendlies "},
    {"WC", "WorldCup", "World Cup Finals"},
}};

// The groups of rows 17 to 43: code, label and long name before the number.
struct GroupRows {
    std::string_view code, label, longName;
    int count;
};
constexpr std::array<GroupRows, 6> kGroupRows = {{
    {"CL G", "CL Grp ", "Champions League Group ", 8},
    {"AFR G", "WCQ Afr", "World Cup Qual - Africa ", 2},
    {"ASCO G", "WCQAsco", "World Cup Qual - ASCO ", 4},
    {"EURO G", "WCQ Eur", "World Cup Qual - Euro ", 8},
    {"POOR G", "WCQPoor", "World Cup Qual - POOR ", 3},
    {"SAM G", "WCQ Sam", "World Cup Qual - S America ", 2},
}};

constexpr std::array<std::string_view, 6> kZoneMarkers = {"AFR ", "ASCO ", "EURO ", "POOR ", "SAM ",
                                                          "WORLD CUP TOP GOALSCORERS"};

constexpr int kFirstGroupRow = 17, kFirstInternationalRow = 25, kTableRows = 20, kGroupSize = 4;
constexpr size_t kLabelWidth = 10, kNameWidth = 20, kScorerWidth = 12;

std::string cutAtBlank(const std::string& s) { return s.substr(0, s.find(' ')); }

bool contains(std::string_view hay, std::string_view needle) { return hay.find(needle) != std::string_view::npos; }

std::string clubName(std::string_view s) { return trim(std::string_view(trim(s)).substr(0, kNameWidth)); }

// A figure of a file: blanks around it allowed, anything else refused.
int figure(std::string_view piece, const char* what) {
    try {
        return parseInt16(piece);
    } catch (const FieldError&) {
        throw FieldError(what, std::string(piece));
    }
}

int goals(std::string_view piece) {
    const int n = figure(piece, "a score");
    if (n < 0) throw FieldError("a score", std::string(piece));
    return n;
}

// A table row: the club from `name`, the figures at the places its file's
// heading gives. The goal difference runs up to the points.
VidiPlace place(std::string_view line, std::string name, size_t gdAt, size_t ptsAt) {
    const size_t pointsAt = ptsAt + 1;
    const size_t gdWidth = pointsAt > gdAt ? std::min<size_t>(25, pointsAt - gdAt) : 25;
    VidiPlace p;
    p.name = std::move(name);
    p.goalDiff = figure(columns(line, gdAt + 1, gdWidth), "a goal difference");
    p.points = figure(columns(line, pointsAt + 1, 4), "points");
    return p;
}

struct Heading {
    size_t gd = 0, pts = 0;
};
Heading headingAt(const std::vector<std::string>& lines, size_t i, const std::string& file) {
    const std::string& h = lines[i];
    Heading out{h.find(" GD"), h.find(" PTS")};
    if (out.gd == std::string::npos || out.pts == std::string::npos)
        throw GameFileError(file, int(i) + 1, "the column titles \" GD\" and \" PTS\"", h);
    return out;
}

size_t findLine(const std::vector<std::string>& lines, size_t from, std::string_view needle) {
    for (size_t i = from; i < lines.size(); ++i)
        if (contains(lines[i], needle)) return i;
    return lines.size();
}

// Four rows of a group from line `i` on.
std::vector<VidiPlace> group(const std::vector<std::string>& lines, size_t i, const Heading& h,
                             const std::string& file, bool upperCase) {
    std::vector<VidiPlace> out;
    for (size_t k = i; k < std::min(lines.size(), i + kGroupSize); ++k) {
        std::string name = clubName(columns(lines[k], 1, kNameWidth));
        if (name.empty()) continue;
        try {
            out.push_back(place(lines[k], upperCase ? upper(name) : name, h.gd, h.pts));
        } catch (const FieldError& e) {
            throw GameFileError(file, int(k) + 1, e.expected, lines[k]);
        }
    }
    return out;
}

std::string number(int n) { return std::to_string(n); }

}  // namespace

// ---- Competitions -------------------------------------------------------------

std::array<VidiCompetition, kVidiRows> vidiCompetitions(const GameIni& game) {
    std::array<VidiCompetition, kVidiRows> rows;
    for (size_t r = 0; r < kVidiLeagueRows; ++r) {
        const auto& [code, label, name] = kLeagueRows[r];
        // game.ini names leagues 1 to 8; the ninth keeps its own words.
        const bool named = r + 1 < game.LeagueNames.size();
        const std::string iniLabel = named ? trim(game.LeagueCodes[r + 1]) : std::string();
        const std::string iniName = named ? trim(game.LeagueNames[r + 1]) : std::string();
        rows[r] = {std::string(code), iniLabel.empty() ? std::string(label) : iniLabel.substr(0, 8),
                   iniName.empty() ? std::string(name) : iniName};
    }
    size_t r = kVidiLeagueRows;
    for (const auto& [code, label, name] : kCupRows) rows[r++] = {std::string(code), std::string(label), std::string(name)};
    for (const GroupRows& g : kGroupRows)
        for (int n = 1; n <= g.count; ++n)
            rows[r++] = {std::string(g.code) + number(n), std::string(g.label) + number(n),
                         std::string(g.longName) + number(n)};
    return rows;
}

std::vector<VidiSet> vidiSets(const GameIni& game) {
    const auto rows = vidiCompetitions(game);
    std::vector<VidiSet> sets;
    for (int row = 1; row <= kVidiRows; ++row) {
        const VidiCompetition& c = rows[size_t(row - 1)];
        sets.push_back({row, row, c});
        if (row > kVidiLeagueRows) continue;
        sets.push_back({row + kVidiRows, row, {c.code + "LC", c.label + " L.C.", c.longName + " League Cup"}});
        sets.push_back({row + 2 * kVidiRows, row,
                        {c.code + "EC", cutAtBlank(c.label) + " E.C.", cutAtBlank(c.longName) + " Elite Cup"}});
    }
    return sets;
}

bool vidiHasTable(int set) { return (set >= 1 && set <= kVidiLeagueRows) || (set >= kFirstGroupRow && set <= kVidiRows); }

// ---- Readers ------------------------------------------------------------------

std::vector<VidiPlace> readVidiLeagueTable(const std::vector<std::string>& lines, const std::string& file) {
    const size_t at = findLine(lines, 0, "Mgd  Frm");
    std::vector<VidiPlace> out;
    if (at == lines.size()) return out;
    const Heading h = headingAt(lines, at, file);
    // The line under the heading is a rule; the table ends at the first line
    // that doesn't open with a place.
    for (size_t i = at + 2; i < lines.size() && out.size() < size_t(kTableRows); ++i) {
        const std::string& line = lines[i];
        if (val(columns(line, 1, 4)) <= 0) break;
        try {
            out.push_back(place(line, clubName(columns(line, 6, kNameWidth)), h.gd, h.pts));
        } catch (const FieldError& e) {
            throw GameFileError(file, int(i) + 1, e.expected, line);
        }
    }
    return out;
}

std::vector<std::vector<VidiPlace>> readVidiGroupTables(const std::vector<std::string>& lines,
                                                        const std::string& file) {
    std::vector<std::vector<VidiPlace>> out;
    size_t i = findLine(lines, 0, " Mgd ");
    if (i == lines.size()) return out;
    const Heading h = headingAt(lines, i, file);
    for (int g = 0; g < kFirstInternationalRow - kFirstGroupRow; ++g) {
        i = findLine(lines, i + 1, "Group ");
        if (i == lines.size()) break;
        out.push_back(group(lines, i + 2, h, file, false));
        i += 1 + kGroupSize;
    }
    return out;
}

std::vector<std::vector<VidiPlace>> readVidiInternationalTables(const std::vector<std::string>& lines,
                                                                const std::string& file) {
    std::vector<std::vector<VidiPlace>> out;
    size_t i = findLine(lines, 0, " Mgd ");
    if (i == lines.size()) return out;
    const Heading h = headingAt(lines, i, file);
    for (int g = 0; g < kVidiRows - kFirstInternationalRow + 1; ++g) {
        for (++i; i < lines.size(); ++i)
            if (std::any_of(kZoneMarkers.begin(), kZoneMarkers.end(), [&](auto m) { return contains(lines[i], m); }))
                break;
        if (i >= lines.size() || contains(lines[i], kZoneMarkers.back())) break;
        out.push_back(group(lines, i + 2, h, file, true));
        i += 1 + kGroupSize;
    }
    return out;
}

VidiMatch parseVidiMatchLine(std::string_view line) {
    static constexpr const char* kShape = "a match as <home> (<x>) <h> - <a> (<y>) <away>";
    VidiMatch m;
    const size_t blank = line.find(' ');
    const size_t dash = blank == std::string_view::npos ? blank : line.find('-', blank);
    const size_t score = line.find(" - ");
    if (dash == std::string_view::npos || dash < 3 || score == std::string_view::npos || score < 2)
        throw FieldError(kShape, std::string(line));
    std::string home = upper(trim(line.substr(0, dash - 3)));
    m.home = clubName(home.substr(0, home.find('(')));
    m.homeGoals = goals(line.substr(score - 2, 2));
    m.awayGoals = goals(line.substr(score + 3, std::min<size_t>(2, line.size() - score - 3)));

    const size_t close = line.find(')', score);
    if (close == std::string_view::npos) throw FieldError(kShape, std::string(line));
    const size_t from = close + 3, to = line.size() >= 8 ? line.size() - 8 : 0;
    std::string_view away = from < to ? line.substr(from, to - from) : std::string_view();
    // A tie's aggregate follows the away club.
    away = away.substr(0, away.find(" AGG "));
    m.away = clubName(upper(away));
    if (m.home.empty() || m.away.empty()) throw FieldError(kShape, std::string(line));

    if (const size_t agg = line.find(" AGG "); agg != std::string_view::npos) {
        std::string rest(line.substr(agg + 5));
        for (std::string_view word : {"PENS", "AWAY"})
            for (size_t w = rest.find(word); w != std::string::npos; w = rest.find(word))
                rest.replace(w, word.size(), word.size(), ' ');
        const size_t p = rest.find(" - ");
        if (p == std::string::npos || p < 2) throw FieldError("the aggregate as AGG <h> - <a>", std::string(line));
        // The aggregate counts this match too; what stays is the first leg.
        m.tie = true;
        m.aggHome = goals(rest.substr(p - 2, 2)) - m.homeGoals;
        m.aggAway = goals(rest.substr(p + 3, 2)) - m.awayGoals;
        if (m.aggHome < 0 || m.aggAway < 0)
            throw FieldError("an aggregate that counts this match's goals", std::string(line));
    }
    return m;
}

void parseVidiGoalLine(std::string_view line, int count, std::array<VidiGoal, kVidiMaxGoals>& slots) {
    static constexpr const char* kShape = "a goal as \\<scorer> <minute>";
    const int n = std::min(count, kVidiMaxGoals);
    size_t pos = line.find('\\');
    for (int k = 0; k < n && pos != std::string_view::npos; ++k) {
        const size_t next = line.find('\\', pos + 1);
        // The last goal runs to the man of the match, who scored nothing by it.
        const size_t mom = next == std::string_view::npos ? line.find("MOM", pos + 1) : std::string_view::npos;
        const size_t end = next != std::string_view::npos ? next : mom != std::string_view::npos ? mom : line.size();
        const std::string_view goal = line.substr(pos + 1, end - pos - 1);
        const size_t tail = mom != std::string_view::npos ? 5 : 4;
        if (goal.size() < tail) throw FieldError(kShape, std::string(goal));
        const std::string_view minuteText = tail == 5 ? goal.substr(goal.size() - 5, 4) : goal.substr(goal.size() - 3);
        const int minute = figure(minuteText, "a goal's minute");
        if (minute < 0) throw FieldError("a goal's minute", std::string(goal));
        slots[size_t(k)] = {trim(trimView(goal.substr(0, goal.size() - tail)).substr(0, kScorerWidth)), minute, false};
        pos = next;
    }
}

std::vector<VidiMatch> readVidiResults(const std::vector<std::string>& lines, const std::string& file,
                                       const std::string& label) {
    std::vector<VidiMatch> out;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (!contains(lines[i], "(")) continue;
        size_t at = i;
        try {
            VidiMatch m = parseVidiMatchLine(lines[i]);
            m.label = fixedWidth(label, kLabelWidth);
            if (++at < lines.size()) parseVidiGoalLine(lines[at], m.homeGoals, m.homeScorers);
            if (++at < lines.size()) parseVidiGoalLine(lines[at], m.awayGoals, m.awayScorers);
            if (out.size() < size_t(kVidiMaxMatches)) out.push_back(std::move(m));
        } catch (const FieldError& e) {
            throw GameFileError(file, int(at) + 1, e.expected, lines[at]);
        }
        i += 2;
    }
    return out;
}

// ---- Watching -----------------------------------------------------------------

VidiWatch vidiWatch(const Session& session) {
    VidiWatch w;
    for (size_t i = 0; i < w.options.size(); ++i) w.options[i] = session.Prefs.VidiOpt[i] != 0;
    for (const Club& c : session.Clubs) w.managed.push_back(c.Name);
    for (const std::string& a : session.Prefs.VidiAlert)
        if (!trim(a).empty() && trim(a) != kNoClubSelected) w.alerts.push_back(trim(a));
    return w;
}

bool vidiWatched(const VidiWatch& watch, int set) {
    const auto& o = watch.options;
    // The first elite cup is the English one: any English league's option will do.
    if (set == 1 + 2 * kVidiRows) return o[0] || o[1] || o[2] || o[3];
    const int row = set > 2 * kVidiRows ? set - 2 * kVidiRows : set > kVidiRows ? set - kVidiRows : set;
    if (row >= 1 && row <= kVidiLeagueRows) return o[size_t(row - 1)];
    if ((row >= 10 && row <= 14) || (row >= kFirstGroupRow && row < kFirstInternationalRow)) return o[9];
    if (row == 15) return o[11];
    return o[10];
}

// ---- The afternoon --------------------------------------------------------------

Vidiprinter::Vidiprinter(GameIni game, VidiWatch watch)
    : game_(std::move(game)), watch_(std::move(watch)), sets_(vidiSets(game_)) {}

void Vidiprinter::start(const GameFolder& folder) {
    for (auto& m : matches_) m.clear();
    for (auto& t : tables_) t.clear();
    ticker_.clear();
    problems_.clear();
    offered_.clear();
    minute_ = 0;
    readTables(folder);
    for (const VidiSet& s : sets_) {
        const std::string rel = "Weekly/" + s.names.code + ".txt";
        if (!folder.exists(rel)) continue;
        const fs::path path = folder.resolve(rel);
        try {
            matches_[size_t(s.number)] = readVidiResults(readLines(path), displayName(folder, path), s.names.label);
            offered_.push_back(s);
        } catch (const GameFileError& e) {
            problems_.push_back(e);
        }
    }
    for (int row = 1; row <= kVidiRows; ++row)
        if (vidiHasTable(row)) windBack(row);
    const bool first = std::any_of(offered_.begin(), offered_.end(), [](const VidiSet& s) { return s.number == 1; });
    currentSet_ = first || offered_.empty() ? 1 : offered_.front().number;
    state_ = State::Running;
}

void Vidiprinter::readTables(const GameFolder& folder) {
    auto read = [&](const std::string& rel, auto reader) {
        if (!folder.exists(rel)) return decltype(reader(std::vector<std::string>(), std::string()))();
        const fs::path path = folder.resolve(rel);
        try {
            return reader(readLines(path), displayName(folder, path));
        } catch (const GameFileError& e) {
            problems_.push_back(e);
            return decltype(reader(std::vector<std::string>(), std::string()))();
        }
    };
    for (int row = 1; row <= kVidiLeagueRows; ++row)
        tables_[size_t(row)] = read("Weekly/" + std::string(kLeagueRows[size_t(row - 1)][0]) + "Tabs.txt",
                                    readVidiLeagueTable);
    auto groups = read("Weekly/CL_TABLE.TXT", readVidiGroupTables);
    for (size_t g = 0; g < groups.size(); ++g) tables_[size_t(kFirstGroupRow) + g] = std::move(groups[g]);
    auto zones = read("Weekly/INT_TABL.TXT", readVidiInternationalTables);
    for (size_t g = 0; g < zones.size(); ++g) tables_[size_t(kFirstInternationalRow) + g] = std::move(zones[g]);
}

namespace {

VidiPlace* placeOf(std::vector<VidiPlace>& table, const std::string& club) {
    for (VidiPlace& p : table)
        if (equalsNoCase(p.name, club)) return &p;
    return nullptr;
}

int pointsFor(int margin) { return margin > 0 ? 3 : margin == 0 ? 1 : 0; }

}  // namespace

void Vidiprinter::windBack(int row) {
    // The table files already count this week's matches. A club that plays
    // starts the afternoon level, a point up; one that doesn't play stays as
    // it stands.
    std::vector<VidiPlace>& table = tables_[size_t(row)];
    for (VidiPlace& p : table) p.livePoints = p.liveGoalDiff = 0;
    for (const VidiMatch& m : matches_[size_t(row)])
        for (int side = 0; side < 2; ++side) {
            VidiPlace* p = placeOf(table, side == 0 ? m.home : m.away);
            if (!p) continue;
            const int margin = side == 0 ? m.homeGoals - m.awayGoals : m.awayGoals - m.homeGoals;
            p->points -= pointsFor(margin);
            p->goalDiff -= margin;
            p->livePoints = 1;
            p->liveGoalDiff = 0;
        }
}

void Vidiprinter::updateScores(int set, const VidiMatch& m) {
    if (!vidiHasTable(set)) return;
    std::vector<VidiPlace>& table = tables_[size_t(set)];
    const int margin = m.homeLive - m.awayLive;
    if (VidiPlace* p = placeOf(table, m.home)) {
        p->livePoints = pointsFor(margin);
        p->liveGoalDiff = margin;
    }
    if (VidiPlace* p = placeOf(table, m.away)) {
        p->livePoints = pointsFor(-margin);
        p->liveGoalDiff = -margin;
    }
}

std::string Vidiprinter::goalLine(const VidiMatch& m, bool homeScored, const VidiGoal& goal) const {
    auto side = [](const std::string& name, bool scored) { return fixedWidth(scored ? upper(name) : lower(name), kNameWidth); };
    return m.label + " " + side(m.home, homeScored) + "  " + number(m.homeLive) + " - " + number(m.awayLive) + "   " +
           side(m.away, !homeScored) + std::string(10, ' ') + fixedWidth(goal.scorer, kScorerWidth) + "  (" +
           number(goal.minute) + ")";
}

void Vidiprinter::doScore(int set, const std::string& line, VidiTick& out) {
    // An unwatched competition only comes up while it is on screen.
    if (!vidiWatched(watch_, set) && set != currentSet_) return;
    if (vidiWatched(watch_, set)) {
        const std::string shout = upper(line);
        auto involved = [&](const std::vector<std::string>& clubs) {
            for (const std::string& club : clubs)
                if (contains(shout, " " + upper(trim(club)) + " ")) {
                    out.alert = std::string(kVidiInvolving) + upper(trim(club));
                    return true;
                }
            return false;
        };
        if (!involved(watch_.managed)) involved(watch_.alerts);
    }
    ticker_.insert(ticker_.begin(), line);
    out.lines.push_back(line);
}

VidiTick Vidiprinter::tick() {
    VidiTick out;
    if (state_ != State::Running) return out;
    ++minute_;
    if (minute_ > kVidiLastMinute) {
        // Whatever the ticker didn't tell (an eighth goal, extra time) is in
        // the final scores and tables all the same.
        for (int set = 1; set <= kVidiLastSet; ++set)
            for (VidiMatch& m : matches_[size_t(set)]) {
                m.homeLive = m.homeGoals;
                m.awayLive = m.awayGoals;
                updateScores(set, m);
            }
        state_ = State::Finished;
        out.finished = true;
        return out;
    }
    for (int set = 1; set <= kVidiLastSet; ++set)
        for (VidiMatch& m : matches_[size_t(set)])
            for (size_t k = 0; k < size_t(kVidiMaxGoals); ++k)
                for (bool home : {true, false}) {
                    VidiGoal& g = (home ? m.homeScorers : m.awayScorers)[k];
                    if (g.shown || g.minute != minute_) continue;
                    ++(home ? m.homeLive : m.awayLive);
                    const std::string line = goalLine(m, home, g);
                    updateScores(set, m);
                    doScore(set, line, out);
                    g.shown = true;
                    g.scorer.clear();
                }
    return out;
}

void Vidiprinter::togglePause() {
    if (state_ == State::Running)
        state_ = State::Paused;
    else if (state_ == State::Paused)
        state_ = State::Running;
}

void Vidiprinter::close() { state_ = State::Idle; }

std::string Vidiprinter::clockText() const {
    if (minute_ <= 90) return number(minute_) + " minutes";
    return std::string(minute_ <= kVidiLastMinute ? kVidiInjuryTime : kVidiCompleted);
}

std::string Vidiprinter::tickerText() const {
    std::string s;
    for (const std::string& l : ticker_) s += (s.empty() ? "" : "\r\n") + l;
    return s;
}

void Vidiprinter::chooseSet(int set) { currentSet_ = set; }

std::vector<VidiPlace> Vidiprinter::standings(int set) const {
    std::vector<VidiPlace> order;
    if (!vidiHasTable(set)) return order;
    // Insertion: a club goes ahead of the first place it beats, so one level
    // on points and goal difference stays behind those already placed.
    for (const VidiPlace& p : tables_[size_t(set)]) {
        const int pts = p.points + p.livePoints, gd = p.goalDiff + p.liveGoalDiff;
        auto at = std::find_if(order.begin(), order.end(), [&](const VidiPlace& o) {
            const int opts = o.points + o.livePoints;
            return pts > opts || (pts == opts && gd > o.goalDiff + o.liveGoalDiff);
        });
        order.insert(at, p);
    }
    return order;
}

std::string Vidiprinter::tableText(int set) const {
    const auto s = std::find_if(sets_.begin(), sets_.end(), [&](const VidiSet& v) { return v.number == set; });
    const std::string name = s == sets_.end() ? std::string() : s->names.longName;
    const std::vector<VidiPlace> order = standings(set);
    if (order.empty()) return std::string(kVidiNoTables) + name;
    std::string out = fixedWidth(name, 4 + kNameWidth) + " Goal Diff" + "    Points";
    for (size_t i = 0; i < order.size(); ++i) {
        const VidiPlace& p = order[i];
        out += "\r\n" + padLeft(number(int(i) + 1), 2) + ". " + fixedWidth(p.name, kNameWidth) +
               padLeft(number(p.goalDiff + p.liveGoalDiff), 10) + padLeft(number(p.points + p.livePoints), 10);
    }
    return out;
}

std::string Vidiprinter::scoresText(int set) const {
    if (set < 1 || set > kVidiLastSet) return {};
    const auto& ms = matches_[size_t(set)];
    const bool ties = std::any_of(ms.begin(), ms.end(), [](const VidiMatch& m) { return m.tie; });
    std::string out;
    for (const VidiMatch& m : ms) {
        std::string home = m.home, away = m.away;
        if (m.tie) {
            home += " (" + number(m.aggHome + m.homeLive) + ")";
            away += " (" + number(m.aggAway + m.awayLive) + ")";
        }
        if (!out.empty()) out += "\r\n";
        out += fixedWidth(home, kNameWidth + (ties ? 5 : 0)) + "  " + padLeft(number(m.homeLive), 2) + "  -  " +
               fixedWidth(number(m.awayLive), 2) + "  " + away;
    }
    return out;
}

}  // namespace kestrin::results
