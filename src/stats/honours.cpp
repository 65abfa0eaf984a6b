#include "stats/honours.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include "stats/lookups.h"
#include "stats/reading.h"
#include "stats/store.h"

namespace kestrin::stats {

const std::vector<HonoursColumn>& honoursColumns() {
    static const std::vector<HonoursColumn> columns = {{"", 0},          {"Date", 1000},      {"Competition", 2000},
                                                       {"Finish", 2000}, {"Points", 1000},    {"Champions", 2100},
                                                       {"Points", 1000}};
    return columns;
}

namespace {

std::string nameOf(SQLite::Database& db, const std::string& code) {
    SQLite::Statement q(db, "SELECT ClubName FROM Clubs WHERE Club = ? LIMIT 1");
    q.bind(1, code);
    return q.executeStep() ? q.getColumn(0).getString() : std::string();
}

}  // namespace

std::optional<Honours> clubHonours(const Settings& settings, const std::string& club, Messages& messages) {
    std::optional<ReadableStats> opened = openStatsForReading(settings, messages, "Can't find the stats database");
    if (!opened) return std::nullopt;
    try {
        SQLite::Database& db = opened->db;
        Honours h;
        std::string code = club, name = club;
        if (opened->state == SchemaState::Empty) {
            h.Title = "Club history of " + name;
            return h;
        }
        {
            SQLite::Statement q(db, "SELECT Club, ClubName FROM Clubs WHERE Club = ?1 OR ClubName = ?1 "
                                    "ORDER BY Club = ?1 DESC LIMIT 1");
            q.bind(1, club);
            if (q.executeStep()) {
                code = q.getColumn(0).getString();
                name = q.getColumn(1).getString();
            }
        }
        h.Title = "Club history of " + name;

        // A finished season is one of 38 games, in every league.
        SQLite::Statement seasons(db, "SELECT Date, League, Position, Points FROM Tables "
                                      "WHERE Played = 38 AND Club = ? ORDER BY Date, rowid");
        SQLite::Statement champions(db, "SELECT Club, Points FROM Tables WHERE Date = ? AND Position = 1 "
                                        "AND League = ? ORDER BY rowid LIMIT 1");
        seasons.bind(1, code);
        while (seasons.executeStep()) {
            HonoursRow r;
            const std::string date = seasons.getColumn(0).getString();
            const int league = seasons.getColumn(1).getInt();
            r.Date = gameDate(date);
            r.Competition = std::string(leagueName(league));
            r.Finish = seasons.getColumn(2).getString();
            r.Points = seasons.getColumn(3).getString();
            champions.reset();
            champions.bind(1, date);
            champions.bind(2, league);
            if (champions.executeStep()) {
                r.Champions = nameOf(db, champions.getColumn(0).getString());
                r.ChampionsPoints = champions.getColumn(1).getString();
            }
            h.Rows.push_back(std::move(r));
        }

        SQLite::Statement finals(db, "SELECT MatchCode, Date, GameType FROM MatchMain WHERE RoundType = 27 "
                                     "AND (HomeSide = ?1 OR AwaySide = ?1) ORDER BY Date, MatchCode");
        SQLite::Statement sides(db, "SELECT Club, Score FROM MatchTeam WHERE MatchCode = ? ORDER BY rowid");
        finals.bind(1, code);
        while (finals.executeStep()) {
            HonoursRow r;
            r.Date = gameDate(finals.getColumn(1).getString());
            r.Competition = std::string(competitionName(finals.getColumn(2).getInt()));
            int64_t ours = 0, theirs = 0;
            std::string opponent;
            bool seenUs = false;
            sides.reset();
            sides.bind(1, finals.getColumn(0).getInt64());
            while (sides.executeStep()) {
                const std::string c = sides.getColumn(0).getString();
                if (c == code && !seenUs) {
                    ours = sides.getColumn(1).getInt64();
                    seenUs = true;
                } else {
                    theirs = sides.getColumn(1).getInt64();
                    opponent = c;
                }
            }
            r.Finish = ours > theirs ? "Winners" : ours < theirs ? "Runners Up" : "Final went to penalties";
            r.Champions = nameOf(db, opponent);
            h.Rows.push_back(std::move(r));
        }
        return h;
    } catch (const SQLite::Exception&) {
        messages.refuse(kUnusableTitle, unusableText(settings.StatsFile));
        return std::nullopt;
    }
}

}  // namespace kestrin::stats
