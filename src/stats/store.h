#pragma once
// The Stats database: its schema and the statements every loader writes
// through. One StatsStore lives for one refresh, inside its transaction.
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "stats/lookups.h"

namespace kestrin::stats {

// Rows added per table by one refresh.
struct AddedRows {
    int Clubs = 0, Managers = 0, Coaching = 0, Tables = 0, Trades = 0, MatchMain = 0, MatchTeam = 0,
        MatchPlayer = 0, MatchGoal = 0, Summary = 0, Skills = 0;
    bool operator==(const AddedRows&) const = default;
};

// The tables in the order they are created, each with its columns.
struct TableColumns {
    const char* table;
    std::vector<const char*> columns;
};
const std::vector<TableColumns>& statsTables();

enum class SchemaState { Empty, Ours, Foreign };
// Empty: no table at all (a new file). Foreign: anything not made by us,
// including a file that isn't an SQLite database.
SchemaState inspectSchema(SQLite::Database& db);
void createSchema(SQLite::Database& db);

// The refusal of a file that is not a Stats database of ours; it is never
// changed.
inline constexpr const char* kUnusableTitle = "Stats database not usable";
std::string unusableText(const std::string& path);

// ISO date text "YYYY-MM-DD" as the game shows dates, "DD/MM/YYYY".
std::string gameDate(const std::string& iso);

// A column value that may be left unset (NULL).
using Opt = std::optional<int64_t>;

class StatsStore {
public:
    // `date` is the week's date as ISO text; every row of the refresh carries it.
    StatsStore(SQLite::Database& db, std::string date);

    SQLite::Database& db() { return db_; }
    const std::string& date() const { return date_; }
    ClubLookup clubs;
    AddedRows added;

    // Each returns false when the table refuses the row (a duplicate).
    void clearClubs();
    bool addClub(const std::string& code, const std::string& name, const std::string& truncated);
    std::optional<std::string> clubCodeByName(const std::string& name);
    bool addManager(const std::string& club, const std::string& manager);
    bool addCoaching(const std::string& truncatedName, const std::string& club, int skill, int64_t value, int type);
    bool addTable(int league, int64_t position, const std::string& club, int64_t played, int64_t gd, int64_t points);
    bool addTrade(const std::string& player, const std::string& from, const std::string& to, int64_t contract,
                  int64_t value, int64_t incentive, int type);
    bool addSkills(const std::string& player, const std::string& club, const std::vector<Opt>& figures);  // 13

    // Returns the new MatchCode, or nothing when the match is already there.
    std::optional<int64_t> addMatchMain(int64_t attendance, int gameType, int roundType, const std::string& home,
                                        const std::string& away);
    struct TeamRow {
        std::string club, venue;
        int startTactic = 0, endTactic = 0;
        int64_t performance = 0, shotsOn = 0, shotsOff = 0, movement = 0, style = 0;
        int startFormation = 0, endFormation = 0;
        int64_t blends[6] = {0, 0, 0, 0, 0, 0};
        int mom = 1;
        int64_t score = 0;
    };
    void addMatchTeam(int64_t matchCode, const TeamRow& t);
    // Columns from PlayerName on; `figures` are Position .. ControlAttempts (21).
    void addMatchPlayer(int64_t matchCode, const std::string& club, const std::string& name,
                        const std::vector<Opt>& figures);
    void addMatchGoal(int64_t matchCode, const std::string& club, int64_t time, int type, Opt scorer, Opt assist);
    void addSummary(int64_t matchCode, const std::string& compressed);

    // The match summaries of a Squadsheet: this week's MatchTeam row of a side
    // with these figures, as (rowid, MatchCode).
    std::optional<std::pair<int64_t, int64_t>> findTeamRow(const std::string& club, int64_t shotsOn, int64_t score,
                                                           int64_t performance, int64_t style, int64_t movement);
    void completeTeamRow(int64_t rowid, int64_t possession, int64_t cap, int64_t pens, int64_t corners,
                         int64_t freeKicks, int64_t support);
    bool setGoalValue(const std::string& club, int64_t matchCode, Opt scorer, int64_t time, int64_t value);

private:
    SQLite::Database& db_;
    std::string date_;
    SQLite::Statement insClub_, clubByName_, insManager_, insCoaching_, insTable_, insTrade_, insSkills_,
        insMain_, insTeam_, insPlayer_, insGoal_, insSummary_, findTeam_, updTeam_, updTeamSupport_,
        findGoal_, findGoalAnyScorer_, updGoal_;
};

}  // namespace kestrin::stats
