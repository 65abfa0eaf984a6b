#include "stats/squad.h"

#include <array>

#include "core/text.h"

namespace kestrin::stats {

namespace {

bool holds(std::string_view line, std::string_view what) { return line.find(what) != std::string_view::npos; }
std::string before(std::string_view line, std::string_view marker) { return markerText(line, "", marker); }
int64_t number(std::string_view text) { return wholeNumber(text); }
bool blank(std::string_view line) { return trim(line).empty(); }

// The figure that follows each occurrence of a marker, up to a blank.
std::vector<int64_t> figuresAfter(std::string_view line, std::string_view marker) {
    std::vector<int64_t> out;
    for (size_t at = line.find(marker); at != std::string_view::npos; at = line.find(marker, at + marker.size())) {
        const std::string rest = trim(line.substr(at + marker.size()));
        out.push_back(number(rest.substr(0, rest.find(' '))));
    }
    return out;
}

// "<a> - <b>" after a label: the two figures.
std::pair<int64_t, int64_t> pairAfter(std::string_view line, std::string_view label) {
    const std::string after = midBetween(line, label, "");
    return {number(after), number(midBetween(after, " - ", ""))};
}

struct SummaryGoal {
    std::string name;
    int64_t minute = 0, worth = 0;
};

struct SummarySide {
    std::string code;
    int64_t score = 0, performance = 0, possession = 0, shotsOn = 0, shotsOff = 0, movement = 0, style = 0,
            support = 0, cap = 0, pens = 0, corners = 0, freeKicks = 0;
    std::vector<std::pair<int64_t, std::string>> players;  // shirt number, name
    std::vector<SummaryGoal> goals;

    Opt shirtOf(std::string_view name) const {
        const std::string wanted = trim(name);
        for (const auto& [n, p] : players)
            if (p == wanted) return n;
        return std::nullopt;
    }
};

struct Summary {
    bool started = false;   // "Home shots On/Off" met
    bool listsDone = false;  // "MAN OF THE MATCH" met
    int playerList = 0, goalList = 0;
    std::array<SummarySide, 3> side;
};

int storeSummary(StatsStore& st, const Summary& m) {
    int completed = 0;
    for (int s = 1; s <= 2; ++s) {
        const SummarySide& d = m.side[size_t(s)];
        // No key joins a summary to its report: the side's figures and the week do.
        const auto row = st.findTeamRow(d.code, d.shotsOn, d.score, d.performance, d.style, d.movement);
        if (!row) continue;
        st.completeTeamRow(row->first, d.possession, d.cap, d.pens, d.corners, d.freeKicks, d.support);
        ++completed;
        for (const SummaryGoal& g : d.goals) st.setGoalValue(d.code, row->second, d.shirtOf(g.name), g.minute, g.worth);
    }
    return completed;
}

}  // namespace

std::string squadFileKey(std::string_view fileName) {
    const std::string up = upper(fileName);
    size_t at = up.find("SQUA");
    if (at == std::string::npos) at = up.find("SQU");
    return up.substr(0, at);
}

void loadSquadSkills(StatsStore& store, std::string_view fileName, const std::vector<std::string>& lines) {
    size_t i = 0;
    while (i < lines.size() && !holds(lines[i], "Club and player information for ")) ++i;
    while (i < lines.size() && !holds(lines[i], " SU ")) ++i;
    const std::string club = squadFileKey(fileName);
    std::vector<std::string_view> words;
    for (i += 3; i < lines.size() && !blank(lines[i]); ++i) {
        const std::string& line = lines[i];
        // Columns count in the text the squad table's reader takes, from column 29.
        const std::string rest = fromColumn(line, 29);
        const bool position = rest.size() >= 15 && std::string_view("ADMS").find(rest[14]) != std::string_view::npos;
        const std::string fields = fromColumn(rest, position ? 15 : 18);
        splitTokens(fields, words);
        std::vector<Opt> figures;
        for (size_t w = 0; w < 13; ++w) {
            if (w >= words.size()) figures.push_back(std::nullopt);
            else if (w == 0) figures.push_back(positionNumber(words[0]));
            else figures.push_back(number(words[w]));
        }
        store.addSkills(trim(columns(line, 1, 20)), club, figures);
    }
}

int loadMatchSummaries(StatsStore& store, std::string_view fileName, const std::vector<std::string>& lines) {
    const std::string own = squadFileKey(fileName);
    int completed = 0;
    std::optional<Summary> m;
    for (const std::string& line : lines) {
        const int competition = competitionFromStart(line);
        if (competition != 50) {
            // A new block. Without a venue it stores nothing.
            m.reset();
            const bool home = holds(line, " H "), away = !home && holds(line, " A "), neutral = holds(line, " N ");
            if (!home && !away && !neutral) continue;
            const std::string_view venue = home ? " H " : away ? " A " : " N ";
            const std::string rest = midBetween(line, venue, "");
            const size_t dash = rest.rfind(" - ");
            const std::string left = trim(rest.substr(0, dash == std::string::npos ? rest.size() : dash));
            const size_t lastBlank = left.rfind(' ');
            const std::string opponent = lastBlank == std::string::npos ? left : trim(left.substr(0, lastBlank));
            m.emplace();
            // The club of this file is first on the line unless it played away.
            const int ownSide = away ? 2 : 1;
            m->side[size_t(ownSide)].code = own;
            m->side[size_t(3 - ownSide)].code = store.clubs.codeFromName(opponent);
            m->side[1].score = number(lastBlank == std::string::npos ? left : left.substr(lastBlank + 1));
            m->side[2].score = dash == std::string::npos ? 0 : number(rest.substr(dash + 3));
            continue;
        }
        if (!m) continue;
        SummarySide& home = m->side[1];
        SummarySide& away = m->side[2];
        if (holds(line, " Performance ")) std::tie(home.performance, away.performance) = pairAfter(line, "Performance");
        for (std::string_view spelling : {"Possession % ", "Possesion % "}) {  // the file spells it both ways
            if (!holds(line, spelling)) continue;
            const std::string rest = midBetween(line, spelling, "");
            home.possession = number(rest);
            away.possession = number(midBetween(rest, " Home", ""));
        }
        if (holds(line, "Home shots On/Off target ")) {
            m->started = true;
            const std::string rest = midBetween(line, "Home shots On/Off target ", "");
            home.shotsOn = number(rest);
            home.shotsOff = number(midBetween(rest, " / ", ""));
        }
        if (holds(line, "Away shots On/Off target ")) {
            const std::string rest = midBetween(line, "Away shots On/Off target ", "");
            away.shotsOn = number(rest);
            away.shotsOff = number(midBetween(rest, " / ", ""));
        }
        if (holds(line, "Movement  ")) std::tie(home.movement, away.movement) = pairAfter(line, "Movement  ");
        if (holds(line, "Style  ")) std::tie(home.style, away.style) = pairAfter(line, "Style  ");
        if (holds(line, "Home support was ")) home.support = figuresAfter(line, "Home support was ")[0];
        if (holds(line, "away support was ")) away.support = figuresAfter(line, "away support was ")[0];
        if (!m->listsDone) {
            if (holds(line, "( 1)") && m->playerList < 2) ++m->playerList;
            if (m->playerList > 0 && m->goalList == 0 && holds(line, " SK ") && holds(line, " PF ")) {
                m->side[size_t(m->playerList)].players.emplace_back(number(midBetween(line, "(", ")")),
                                                                     trim(midBetween(line, ")", " SK ")));
                continue;
            }
            if (holds(line, "SCORERS FOR ")) {
                const std::string code = store.clubs.codeFromName(midBetween(line, "SCORERS FOR ", ""));
                m->goalList = code == home.code ? 1 : code == away.code ? 2 : std::min(2, m->goalList + 1);
                continue;
            }
            if (holds(line, "MAN OF THE MATCH")) {
                m->listsDone = true;
                continue;
            }
            if (m->goalList > 0 && !blank(line)) {
                SummaryGoal g;
                if (holds(line, " (")) {
                    const std::string head = trim(before(line, " ("));
                    const size_t cut = head.rfind(' ');
                    g.name = cut == std::string::npos ? head : trim(head.substr(0, cut));
                    g.minute = cut == std::string::npos ? 0 : number(head.substr(cut + 1));
                    const std::string tail = trim(before(line, " )"));
                    g.worth = number(tail.substr(tail.rfind(' ') == std::string::npos ? 0 : tail.rfind(' ') + 1));
                } else {
                    g.name = trim(line);
                }
                m->side[size_t(m->goalList)].goals.push_back(g);
            }
            continue;
        }
        if (holds(line, " CAP  ")) {
            const auto caps = figuresAfter(line, " CAP  "), pens = figuresAfter(line, " PENS  "),
                       corners = figuresAfter(line, " CORN  "), kicks = figuresAfter(line, " FK  ");
            for (size_t s = 0; s < 2; ++s) {
                SummarySide& d = m->side[s + 1];
                if (s < caps.size()) d.cap = caps[s];
                if (s < pens.size()) d.pens = pens[s];
                if (s < corners.size()) d.corners = corners[s];
                if (s < kicks.size()) d.freeKicks = kicks[s];
            }
            if (m->started) completed += storeSummary(store, *m);
            m.reset();
        }
    }
    return completed;
}

}  // namespace kestrin::stats
