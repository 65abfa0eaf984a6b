#include "stats/weekly.h"

#include "core/text.h"

namespace kestrin::stats {

namespace {

bool blank(std::string_view line) { return trim(line).empty(); }
bool holds(std::string_view line, std::string_view what) { return line.find(what) != std::string_view::npos; }
std::string before(std::string_view line, std::string_view marker) { return markerText(line, "", marker); }
int64_t number(std::string_view text) { return wholeNumber(text); }
// The word that follows a marker, up to the next blank.
std::string wordAfter(std::string_view line, std::string_view marker) {
    return trim(midBetween(trim(midBetween(line, marker, "")), "", " "));
}

}  // namespace

void loadClubs(StatsStore& store, const Lines& lines) {
    store.clearClubs();
    store.clubs.clear();
    for (const std::string& line : lines) {
        const size_t at = line.find(" - ");
        if (at == std::string::npos) continue;
        const std::string name = trim(std::string_view(line).substr(0, at));
        const std::string code = trim(std::string_view(line).substr(at + 3));
        if (name == "#NULL#" || code == "#NULL#") continue;
        store.addClub(code, name, name.substr(0, std::min<size_t>(15, name.size())));
        store.clubs.add(code, name);
    }
    // Known to the table only: look-ups that fail give this code.
    store.addClub(kUnknownClub, "Unknown", "Unknown");
}

void fillLookupFromTable(StatsStore& store) {
    store.clubs.clear();
    SQLite::Statement q(store.db(), "SELECT Club, ClubName FROM Clubs WHERE Club <> ? ORDER BY rowid");
    q.bind(1, std::string(kUnknownClub));
    while (q.executeStep()) store.clubs.add(q.getColumn(0).getString(), q.getColumn(1).getString());
}

void loadManagers(StatsStore& store, const Lines& lines) {
    for (size_t i = 2; i < lines.size(); ++i) {
        const std::string& line = lines[i];
        if (blank(line)) continue;
        const std::optional<std::string> code = store.clubCodeByName(trim(before(line, " - ")));
        if (!code) continue;
        store.addManager(*code, midBetween(line, " (", ")"));
    }
}

void loadCoaching(StatsStore& store, const Lines& lines) {
    static constexpr std::string_view kHeadings[] = {"Coaching results", "Player name", "PA = Passing",
                                                     "DR = Dribbling", "Please note"};
    for (const std::string& line : lines) {
        if (blank(line)) continue;
        bool heading = false;
        for (std::string_view h : kHeadings) heading = heading || startsWith(line, h);
        if (heading) continue;
        // Read from the end: the club's name may hold blanks.
        std::string rest = fromColumn(line, 16);
        while (!rest.empty() && rest.back() == ' ') rest.pop_back();
        const size_t last = rest.rfind(' ');
        if (last == std::string::npos) continue;
        const size_t butOne = last > 0 ? rest.rfind(' ', last - 1) : std::string::npos;
        const size_t skillAt = butOne == std::string::npos ? 0 : butOne + 1;
        const std::string skill = rest.substr(skillAt, std::min<size_t>(2, last - skillAt));
        const std::string club = butOne == std::string::npos ? std::string() : trim(rest.substr(0, butOne));
        store.addCoaching(trim(columns(line, 1, 15)), store.clubs.codeFromName(club), skillNumber(skill),
                          number(rest.substr(last + 1)), 1);
    }
}

void loadTables(StatsStore& store, std::string_view fileName, const Lines& lines) {
    const int league = leagueFromFileName(fileName);
    if (league == 0) return;
    size_t i = 0;
    size_t played = 0, gd = 0, points = 0;  // 1-based columns
    for (; i < lines.size(); ++i) {
        const std::string up = upper(lines[i]);
        if (!holds(up, " MGD ")) continue;
        const size_t p = up.find("PYD "), g = up.find(" GD "), t = up.find(" PTS");
        if (p == std::string::npos || g == std::string::npos || t == std::string::npos) return;
        played = p + 1;
        gd = g + 2;
        points = t + 1;
        break;
    }
    for (++i; i < lines.size(); ++i) {
        const std::string& line = lines[i];
        const int64_t position = number(columns(line, 1, 4));
        if (position <= 0) continue;
        const int64_t pts = number(trim(fromColumn(line, points)));
        store.addTable(league, position, store.clubs.codeFromName(trim(columns(line, 6, 20))),
                       number(columns(line, played, 2)), number(columns(line, gd, 4)), pts < 0 ? 0 : pts);
    }
}

void loadTrades(StatsStore& store, std::string_view fileName, const Lines& lines) {
    const int type = upper(fileName) == "TRANSFER.TXT" ? 1 : 2;
    for (const std::string& line : lines) {
        // "transfered" is the file's own spelling.
        if (blank(line) || holds(line, "Transfers - players transfered") || holds(line, "Loan deals organised"))
            continue;
        const std::string fee = fromColumn(line, 86);
        store.addTrade(trim(columns(line, 1, 15)), store.clubs.codeFromTruncated(columns(line, 51, 15)),
                       store.clubs.codeFromTruncated(columns(line, 67, 15)), number(columns(line, 84, 2)),
                       number(before(fee, " + ")), number(midBetween(fee, " + ", "")), type);
    }
}

void loadCoachingNews(StatsStore& store, std::string_view fileName, const Lines& lines) {
    const std::string up = upper(fileName);
    const int type = up == "NEWSINC.TXT" ? 2 : up == "NEWSDEC.TXT" ? 3 : 4;
    for (const std::string& line : lines) {
        if (blank(line) || holds(line, "News -")) continue;
        const std::string player = midBetween(line, " - ", " (");
        const std::string skill = upper(wordAfter(line, "by one point in ").substr(0, 2));
        store.addCoaching(player.substr(0, std::min<size_t>(15, player.size())),
                          store.clubs.codeFromName(before(line, " - ")), skillNumber(skill),
                          number(wordAfter(line, "new value is ")), type);
    }
}

void loadSquadReportTrades(StatsStore& store, const Lines& lines) {
    for (const std::string& line : lines) {
        if (blank(line) || holds(line, "Transfers - ")) continue;
        store.addTrade(trim(columns(line, 1, 15)), store.clubs.codeFromName(midBetween(line, " from ", " because")),
                       store.clubs.codeFromName(midBetween(line, " joins ", " from")), 0, 0, 0, 3);
    }
}

WeeklyKind weeklyKind(std::string_view fileName) {
    const std::string up = upper(fileName);
    if (up == "COACHING.TXT") return WeeklyKind::Coaching;
    if (leagueFromFileName(up) != 0) return WeeklyKind::Tables;
    if (up == "LOANS.TXT" || up == "TRANSFER.TXT") return WeeklyKind::Trades;
    if (up == "NEWSINC.TXT" || up == "NEWSINT.TXT" || up == "NEWSDEC.TXT") return WeeklyKind::CoachingNews;
    if (up == "SQUADREP.TXT") return WeeklyKind::SquadReport;
    return WeeklyKind::None;
}

void loadWeeklyFile(StatsStore& store, std::string_view fileName, const Lines& lines) {
    switch (weeklyKind(fileName)) {
        case WeeklyKind::Coaching: loadCoaching(store, lines); break;
        case WeeklyKind::Tables: loadTables(store, fileName, lines); break;
        case WeeklyKind::Trades: loadTrades(store, fileName, lines); break;
        case WeeklyKind::CoachingNews: loadCoachingNews(store, fileName, lines); break;
        case WeeklyKind::SquadReport: loadSquadReportTrades(store, lines); break;
        case WeeklyKind::None: break;
    }
}

}  // namespace kestrin::stats
