#include "stats/store.h"

#include <set>

namespace kestrin::stats {

const std::vector<TableColumns>& statsTables() {
    static const std::vector<TableColumns> tables = {
        {"Clubs", {"Club", "ClubName", "Truncated"}},
        {"Managers", {"Club", "Manager", "Date"}},
        {"Coaching", {"Date", "TruncatedName", "Club", "Skill", "Value", "Type"}},
        {"Tables", {"Date", "League", "Position", "Club", "Played", "GD", "Points"}},
        {"Trades", {"Date", "TruncPlayer", "FromClub", "ToClub", "Contract", "Value", "Incentive", "Type"}},
        {"MatchMain", {"MatchCode", "Date", "Attendance", "GameType", "RoundType", "HomeSide", "AwaySide"}},
        {"MatchTeam", {"MatchCode", "Club", "Venue", "StartTactic", "EndTactic", "Performance", "ShotsOn",
                       "ShotsOff", "Movement", "Style", "StartFormation", "EndFormation", "StartDefBlend",
                       "StartMidBlend", "StartAttBlend", "EndDefBlend", "EndMidBlend", "EndAttBlend", "MOM", "Score",
                       "Possession", "Cap", "Pens", "Corners", "FreeKicks", "Support"}},
        {"MatchPlayer", {"MatchCode", "Club", "PlayerName", "Position", "Number", "Skill", "Perf", "PassAttempts",
                         "PassSuccess", "CrossAttempts", "CrossSuccess", "TackleAttempts", "TackleSuccess",
                         "ShotAttempts", "ShotSuccess", "DribbleAttempts", "DribbleSuccess", "HeaderAttempts",
                         "HeaderSuccess", "TimeSub", "BookedTime", "SentOffTime", "ControlSuccess",
                         "ControlAttempts"}},
        {"MatchGoal", {"MatchCode", "Club", "Time", "Type", "Scorer", "Assist", "Value"}},
        {"Summary", {"MatchCode", "Summary"}},
        {"Skills", {"PlayerName", "Date", "Club", "Position", "Age", "PA", "CO", "TA", "RU", "SH", "DR", "DF", "OF",
                    "FL", "ST", "CR"}},
    };
    return tables;
}

namespace {

// The keys make a second load of one week's files add nothing: a table
// refuses the row and the loader reads on.
constexpr const char* kSchema = R"sql(
CREATE TABLE Clubs (Club TEXT, ClubName TEXT, Truncated TEXT);
CREATE INDEX ClubsByName ON Clubs (ClubName);
CREATE INDEX ClubsByCode ON Clubs (Club);
CREATE TABLE Managers (Club TEXT, Manager TEXT, Date TEXT, UNIQUE (Club, Manager, Date));
CREATE TABLE Coaching (Date TEXT, TruncatedName TEXT, Club TEXT, Skill INTEGER, Value INTEGER, Type INTEGER,
  UNIQUE (Date, TruncatedName, Club, Skill, Value, Type));
CREATE TABLE Tables (Date TEXT, League INTEGER, Position INTEGER, Club TEXT, Played INTEGER, GD INTEGER,
  Points INTEGER, UNIQUE (Date, League, Position, Club));
CREATE INDEX TablesByClub ON Tables (Club, Played);
CREATE TABLE Trades (Date TEXT, TruncPlayer TEXT, FromClub TEXT, ToClub TEXT, Contract INTEGER, Value INTEGER,
  Incentive INTEGER, Type INTEGER, UNIQUE (Date, TruncPlayer, FromClub, ToClub, Type));
CREATE TABLE MatchMain (MatchCode INTEGER PRIMARY KEY AUTOINCREMENT, Date TEXT, Attendance INTEGER,
  GameType INTEGER, RoundType INTEGER, HomeSide TEXT, AwaySide TEXT,
  UNIQUE (Date, HomeSide, AwaySide, GameType, RoundType, Attendance));
CREATE INDEX MatchMainByRound ON MatchMain (RoundType);
CREATE TABLE MatchTeam (MatchCode INTEGER, Club TEXT, Venue TEXT, StartTactic INTEGER, EndTactic INTEGER,
  Performance INTEGER, ShotsOn INTEGER, ShotsOff INTEGER, Movement INTEGER, Style INTEGER,
  StartFormation INTEGER, EndFormation INTEGER, StartDefBlend INTEGER, StartMidBlend INTEGER,
  StartAttBlend INTEGER, EndDefBlend INTEGER, EndMidBlend INTEGER, EndAttBlend INTEGER, MOM INTEGER,
  Score INTEGER, Possession INTEGER, Cap INTEGER, Pens INTEGER, Corners INTEGER, FreeKicks INTEGER,
  Support INTEGER);
CREATE INDEX MatchTeamByCode ON MatchTeam (MatchCode);
CREATE INDEX MatchTeamByClub ON MatchTeam (Club, ShotsOn, Score);
CREATE TABLE MatchPlayer (MatchCode INTEGER, Club TEXT, PlayerName TEXT, Position INTEGER, Number INTEGER,
  Skill INTEGER, Perf INTEGER, PassAttempts INTEGER, PassSuccess INTEGER, CrossAttempts INTEGER,
  CrossSuccess INTEGER, TackleAttempts INTEGER, TackleSuccess INTEGER, ShotAttempts INTEGER,
  ShotSuccess INTEGER, DribbleAttempts INTEGER, DribbleSuccess INTEGER, HeaderAttempts INTEGER,
  HeaderSuccess INTEGER, TimeSub INTEGER, BookedTime INTEGER, SentOffTime INTEGER, ControlSuccess INTEGER,
  ControlAttempts INTEGER);
CREATE INDEX MatchPlayerByCode ON MatchPlayer (MatchCode);
CREATE INDEX MatchPlayerByName ON MatchPlayer (PlayerName);
CREATE TABLE MatchGoal (MatchCode INTEGER, Club TEXT, Time INTEGER, Type INTEGER, Scorer INTEGER,
  Assist INTEGER, Value INTEGER);
CREATE INDEX MatchGoalByCode ON MatchGoal (MatchCode, Club);
CREATE TABLE Summary (MatchCode INTEGER, Summary BLOB);
CREATE TABLE Skills (PlayerName TEXT, Date TEXT, Club TEXT, Position INTEGER, Age INTEGER, PA INTEGER,
  CO INTEGER, TA INTEGER, RU INTEGER, SH INTEGER, DR INTEGER, DF INTEGER, OF INTEGER, FL INTEGER, ST INTEGER,
  CR INTEGER, UNIQUE (PlayerName, Date, Club));
)sql";

void bindAll(SQLite::Statement&, int) {}
template <typename T, typename... Rest>
void bindAll(SQLite::Statement& st, int i, const T& v, const Rest&... rest);

// Text is bound without a copy: every statement is run while the strings it
// was given are alive, and its bindings are cleared before it runs again.
void bindOne(SQLite::Statement& st, int i, const std::string& v) { st.bindNoCopy(i, v); }
void bindOne(SQLite::Statement& st, int i, int v) { st.bind(i, v); }
void bindOne(SQLite::Statement& st, int i, int64_t v) { st.bind(i, v); }
void bindOne(SQLite::Statement& st, int i, const Opt& v) {
    if (v) st.bind(i, *v);
    else st.bind(i);
}

template <typename T, typename... Rest>
void bindAll(SQLite::Statement& st, int i, const T& v, const Rest&... rest) {
    bindOne(st, i, v);
    bindAll(st, i + 1, rest...);
}

// Runs a reused statement; true when it changed a row.
template <typename... A>
bool run(SQLite::Statement& st, const A&... a) {
    st.reset();
    st.clearBindings();
    bindAll(st, 1, a...);
    return st.exec() > 0;
}

std::string placeholders(size_t n) {
    std::string s;
    for (size_t i = 0; i < n; ++i) s += i ? ",?" : "?";
    return s;
}

}  // namespace

SchemaState inspectSchema(SQLite::Database& db) {
    try {
        std::set<std::string> tables;
        SQLite::Statement q(db, "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite_%'");
        while (q.executeStep()) tables.insert(q.getColumn(0).getString());
        if (tables.empty()) return SchemaState::Empty;
        for (const TableColumns& t : statsTables()) {
            if (!tables.count(t.table)) return SchemaState::Foreign;
            std::set<std::string> have;
            SQLite::Statement info(db, std::string("PRAGMA table_info(") + t.table + ")");
            while (info.executeStep()) have.insert(info.getColumn(1).getString());
            for (const char* c : t.columns)
                if (!have.count(c)) return SchemaState::Foreign;
        }
        return SchemaState::Ours;
    } catch (const SQLite::Exception&) {
        return SchemaState::Foreign;  // not a database at all
    }
}

void createSchema(SQLite::Database& db) { db.exec(kSchema); }

std::string unusableText(const std::string& path) {
    return "The file " + path +
           " is not a Stats database of this program, so it was left as it is.\r\n\r\n"
           "Choose another file in the preferences screen (a file that does not exist yet is made "
           "for you), then use the 'Refresh Stats Database' option on the main menu.";
}

std::string gameDate(const std::string& iso) {
    if (iso.size() != 10) return iso;
    return iso.substr(8, 2) + "/" + iso.substr(5, 2) + "/" + iso.substr(0, 4);
}

StatsStore::StatsStore(SQLite::Database& db, std::string date)
    : db_(db),
      date_(std::move(date)),
      insClub_(db, "INSERT INTO Clubs (Club, ClubName, Truncated) VALUES (?,?,?)"),
      clubByName_(db, "SELECT Club FROM Clubs WHERE ClubName = ? LIMIT 1"),
      insManager_(db, "INSERT OR IGNORE INTO Managers (Club, Manager, Date) VALUES (?,?,?)"),
      insCoaching_(db, "INSERT OR IGNORE INTO Coaching (Date, TruncatedName, Club, Skill, Value, Type) "
                       "VALUES (?,?,?,?,?,?)"),
      insTable_(db, "INSERT OR IGNORE INTO Tables (Date, League, Position, Club, Played, GD, Points) "
                    "VALUES (?,?,?,?,?,?,?)"),
      insTrade_(db, "INSERT OR IGNORE INTO Trades (Date, TruncPlayer, FromClub, ToClub, Contract, Value, "
                    "Incentive, Type) VALUES (?,?,?,?,?,?,?,?)"),
      insSkills_(db, "INSERT OR IGNORE INTO Skills (PlayerName, Date, Club, Position, Age, PA, CO, TA, RU, SH, DR, "
                     "DF, OF, FL, ST, CR) VALUES (" + placeholders(16) + ")"),
      insMain_(db, "INSERT OR IGNORE INTO MatchMain (Date, Attendance, GameType, RoundType, HomeSide, AwaySide) "
                   "VALUES (?,?,?,?,?,?)"),
      insTeam_(db, "INSERT INTO MatchTeam (MatchCode, Club, Venue, StartTactic, EndTactic, Performance, ShotsOn, "
                   "ShotsOff, Movement, Style, StartFormation, EndFormation, StartDefBlend, StartMidBlend, "
                   "StartAttBlend, EndDefBlend, EndMidBlend, EndAttBlend, MOM, Score) VALUES (" +
                       placeholders(20) + ")"),
      insPlayer_(db, "INSERT INTO MatchPlayer (MatchCode, Club, PlayerName, Position, Number, Skill, Perf, "
                     "PassAttempts, PassSuccess, CrossAttempts, CrossSuccess, TackleAttempts, TackleSuccess, "
                     "ShotAttempts, ShotSuccess, DribbleAttempts, DribbleSuccess, HeaderAttempts, HeaderSuccess, "
                     "TimeSub, BookedTime, SentOffTime, ControlSuccess, ControlAttempts) VALUES (" +
                         placeholders(24) + ")"),
      insGoal_(db, "INSERT INTO MatchGoal (MatchCode, Club, Time, Type, Scorer, Assist) VALUES (?,?,?,?,?,?)"),
      insSummary_(db, "INSERT INTO Summary (MatchCode, Summary) VALUES (?,?)"),
      findTeam_(db, "SELECT t.rowid, t.MatchCode FROM MatchTeam t JOIN MatchMain m ON m.MatchCode = t.MatchCode "
                    "WHERE t.Club = ? AND t.ShotsOn = ? AND t.Score = ? AND t.Performance = ? AND t.Style = ? "
                    "AND t.Movement = ? AND m.Date = ? ORDER BY t.rowid LIMIT 1"),
      updTeam_(db, "UPDATE MatchTeam SET Possession = ?, Cap = ?, Pens = ?, Corners = ?, FreeKicks = ? "
                   "WHERE rowid = ?"),
      updTeamSupport_(db, "UPDATE MatchTeam SET Support = ? WHERE rowid = ?"),
      findGoal_(db, "SELECT rowid FROM MatchGoal WHERE Club = ? AND MatchCode = ? AND Scorer = ? AND Time = ? "
                    "ORDER BY rowid LIMIT 1"),
      findGoalAnyScorer_(db, "SELECT rowid FROM MatchGoal WHERE Club = ? AND MatchCode = ? AND Time = ? "
                             "ORDER BY rowid LIMIT 1"),
      updGoal_(db, "UPDATE MatchGoal SET Value = ? WHERE rowid = ?") {}

void StatsStore::clearClubs() { db_.exec("DELETE FROM Clubs"); }

bool StatsStore::addClub(const std::string& code, const std::string& name, const std::string& truncated) {
    const bool ok = run(insClub_, code, name, truncated);
    added.Clubs += ok;
    return ok;
}

std::optional<std::string> StatsStore::clubCodeByName(const std::string& name) {
    clubByName_.reset();
    clubByName_.bind(1, name);
    std::optional<std::string> code;
    if (clubByName_.executeStep()) code = clubByName_.getColumn(0).getString();
    clubByName_.reset();
    return code;
}

bool StatsStore::addManager(const std::string& club, const std::string& manager) {
    const bool ok = run(insManager_, club, manager, date_);
    added.Managers += ok;
    return ok;
}

bool StatsStore::addCoaching(const std::string& truncatedName, const std::string& club, int skill, int64_t value,
                             int type) {
    const bool ok = run(insCoaching_, date_, truncatedName, club, skill, value, type);
    added.Coaching += ok;
    return ok;
}

bool StatsStore::addTable(int league, int64_t position, const std::string& club, int64_t played, int64_t gd,
                          int64_t points) {
    const bool ok = run(insTable_, date_, league, position, club, played, gd, points);
    added.Tables += ok;
    return ok;
}

bool StatsStore::addTrade(const std::string& player, const std::string& from, const std::string& to,
                          int64_t contract, int64_t value, int64_t incentive, int type) {
    const bool ok = run(insTrade_, date_, player, from, to, contract, value, incentive, type);
    added.Trades += ok;
    return ok;
}

bool StatsStore::addSkills(const std::string& player, const std::string& club, const std::vector<Opt>& figures) {
    insSkills_.reset();
    insSkills_.clearBindings();
    bindAll(insSkills_, 1, player, date_, club);
    for (size_t i = 0; i < figures.size() && i < 13; ++i) bindOne(insSkills_, int(i) + 4, figures[i]);
    const bool ok = insSkills_.exec() > 0;
    added.Skills += ok;
    return ok;
}

std::optional<int64_t> StatsStore::addMatchMain(int64_t attendance, int gameType, int roundType,
                                                const std::string& home, const std::string& away) {
    if (!run(insMain_, date_, attendance, gameType, roundType, home, away)) return std::nullopt;
    ++added.MatchMain;
    return db_.getLastInsertRowid();
}

void StatsStore::addMatchTeam(int64_t matchCode, const TeamRow& t) {
    run(insTeam_, matchCode, t.club, t.venue, t.startTactic, t.endTactic, t.performance, t.shotsOn, t.shotsOff,
        t.movement, t.style, t.startFormation, t.endFormation, t.blends[0], t.blends[1], t.blends[2], t.blends[3],
        t.blends[4], t.blends[5], t.mom, t.score);
    ++added.MatchTeam;
}

void StatsStore::addMatchPlayer(int64_t matchCode, const std::string& club, const std::string& name,
                                const std::vector<Opt>& figures) {
    insPlayer_.reset();
    insPlayer_.clearBindings();
    bindAll(insPlayer_, 1, matchCode, club, name);
    for (size_t i = 0; i < figures.size() && i < 21; ++i) bindOne(insPlayer_, int(i) + 4, figures[i]);
    insPlayer_.exec();
    ++added.MatchPlayer;
}

void StatsStore::addMatchGoal(int64_t matchCode, const std::string& club, int64_t time, int type, Opt scorer,
                              Opt assist) {
    run(insGoal_, matchCode, club, time, type, scorer, assist);
    ++added.MatchGoal;
}

void StatsStore::addSummary(int64_t matchCode, const std::string& compressed) {
    insSummary_.reset();
    insSummary_.clearBindings();
    insSummary_.bind(1, matchCode);
    insSummary_.bindNoCopy(2, compressed.data(), int(compressed.size()));
    insSummary_.exec();
    ++added.Summary;
}

std::optional<std::pair<int64_t, int64_t>> StatsStore::findTeamRow(const std::string& club, int64_t shotsOn,
                                                                   int64_t score, int64_t performance,
                                                                   int64_t style, int64_t movement) {
    findTeam_.reset();
    findTeam_.clearBindings();
    bindAll(findTeam_, 1, club, shotsOn, score, performance, style, movement, date_);
    std::optional<std::pair<int64_t, int64_t>> row;
    if (findTeam_.executeStep()) row = std::make_pair(findTeam_.getColumn(0).getInt64(), findTeam_.getColumn(1).getInt64());
    findTeam_.reset();
    return row;
}

void StatsStore::completeTeamRow(int64_t rowid, int64_t possession, int64_t cap, int64_t pens, int64_t corners,
                                 int64_t freeKicks, int64_t support) {
    run(updTeam_, possession, cap, pens, corners, freeKicks, rowid);
    if (support > 0) run(updTeamSupport_, support, rowid);
}

bool StatsStore::setGoalValue(const std::string& club, int64_t matchCode, Opt scorer, int64_t time, int64_t value) {
    std::optional<int64_t> rowid;
    if (scorer) {
        findGoal_.reset();
        findGoal_.clearBindings();
        bindAll(findGoal_, 1, club, matchCode, *scorer, time);
        if (findGoal_.executeStep()) rowid = findGoal_.getColumn(0).getInt64();
        findGoal_.reset();
    }
    if (!rowid) {
        findGoalAnyScorer_.reset();
        findGoalAnyScorer_.clearBindings();
        bindAll(findGoalAnyScorer_, 1, club, matchCode, time);
        if (findGoalAnyScorer_.executeStep()) rowid = findGoalAnyScorer_.getColumn(0).getInt64();
        findGoalAnyScorer_.reset();
    }
    if (!rowid) return false;
    run(updGoal_, value, *rowid);
    return true;
}

}  // namespace kestrin::stats
