#pragma once
// The Vidiprinter: the week's results replayed a game minute a tick. Every
// goal comes up at its minute, the scores and the league tables follow. The
// files are read once at the start; a tick does no file work, so a whole
// afternoon runs in a test without a clock.
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/session.h"

namespace kestrin::results {

inline constexpr int kVidiRows = 43;
inline constexpr int kVidiLeagueRows = 9;   // rows 1 to 9 have the league cups too
inline constexpr int kVidiLastSet = 95;     // row 9's "EC" set
inline constexpr int kVidiMaxMatches = 128;
inline constexpr int kVidiMaxGoals = 7;     // goal slots a side
inline constexpr int kVidiLastMinute = 100;

inline constexpr std::string_view kVidiInjuryTime = "Injury Time";
inline constexpr std::string_view kVidiCompleted = "All Games Completed";
inline constexpr std::string_view kVidiNoTables = "No Tables for ";
inline constexpr std::string_view kVidiInvolving = "INVOLVING ";

// One of the 43 competitions: the start of its files' names, its label on
// the ticker (up to eight characters) and its long name.
struct VidiCompetition {
    std::string code, label, longName;
};
// The 43 rows, 0-based; rows 1 to 9 take label and name from game.ini's
// leagues, a league game.ini leaves blank keeps its built-in words.
std::array<VidiCompetition, kVidiRows> vidiCompetitions(const GameIni& game);

// A result set: a row's own results, or (rows 1 to 9) its league's cup
// ("LC", number + 43) or elite cup ("EC", number + 86).
struct VidiSet {
    int number = 0;  // 1..95
    int row = 0;     // 1..43
    VidiCompetition names;
};
// Every set in the order the files are read: each row, and for rows 1 to 9
// its three sets.
std::vector<VidiSet> vidiSets(const GameIni& game);
// Whether a set has a league table: rows 1 to 9 and 17 to 43, their own
// results only.
bool vidiHasTable(int set);

struct VidiGoal {
    std::string scorer;  // 12 characters at most; blanked once shown
    int minute = 0;
    bool shown = false;
};

struct VidiMatch {
    std::string label;       // the competition's label, 10 characters
    std::string home, away;  // upper case, 20 characters at most
    int homeGoals = 0, awayGoals = 0;
    int homeLive = 0, awayLive = 0;  // goals shown so far
    bool tie = false;                // the second leg of a two-legged tie
    int aggHome = 0, aggAway = 0;    // a tie's aggregate before this match
    std::array<VidiGoal, kVidiMaxGoals> homeScorers{}, awayScorers{};
};

struct VidiPlace {
    std::string name;  // 20 characters at most
    int points = 0, goalDiff = 0;
    int livePoints = 0, liveGoalDiff = 0;  // what the match in progress gives
};

// ---- Readers: each throws GameFileError naming the file and its line ------

// <code>Tabs.txt: the places under the heading that holds "Mgd  Frm", up to 20.
std::vector<VidiPlace> readVidiLeagueTable(const std::vector<std::string>& lines, const std::string& file);
// CL_TABLE.TXT: the eight groups of four, in order.
std::vector<std::vector<VidiPlace>> readVidiGroupTables(const std::vector<std::string>& lines,
                                                        const std::string& file);
// INT_TABL.TXT: up to nineteen qualifying groups of four, names upper-cased.
std::vector<std::vector<VidiPlace>> readVidiInternationalTables(const std::vector<std::string>& lines,
                                                                const std::string& file);
// <code>.txt: each line with "(" a match, the two lines after it its goals.
std::vector<VidiMatch> readVidiResults(const std::vector<std::string>& lines, const std::string& file,
                                       const std::string& label);
// The pieces of those files, for the tests and the fuzzer. The match line
// leaves the goal slots empty; a goal line fills up to `goals` slots.
VidiMatch parseVidiMatchLine(std::string_view line);
void parseVidiGoalLine(std::string_view line, int goals, std::array<VidiGoal, kVidiMaxGoals>& slots);

// Who the manager watches: the twelve watch options, his own clubs, and the
// alert list (entries of "No Club Selected" count for nothing).
struct VidiWatch {
    std::array<bool, 12> options{true, true, true, true, true, true, true, true, true, true, true, true};
    std::vector<std::string> managed;
    std::vector<std::string> alerts;
};
VidiWatch vidiWatch(const Session& session);
// Whether a goal of the set is watched.
bool vidiWatched(const VidiWatch& watch, int set);

// One tick's news for the screen.
struct VidiTick {
    std::vector<std::string> lines;  // ticker lines added, in the order they came
    std::optional<std::string> alert;  // "INVOLVING " and the club, when an alert fired
    bool finished = false;
};

class Vidiprinter {
public:
    enum class State { Idle, Running, Paused, Finished };

    Vidiprinter(GameIni game, VidiWatch watch);

    // btnStart: every file of Weekly/ read afresh, the tables wound back to
    // the start of the week, the clock at 0. A file that can't be read is
    // left out and its error kept in problems(); the rest still play.
    void start(const GameFolder& folder);
    // One game minute.
    VidiTick tick();
    // btnPause: Running and Paused swap; other states stay.
    void togglePause();
    // Command1: back to Idle, ready to start again.
    void close();

    State state() const { return state_; }
    int minute() const { return minute_; }
    std::string clockText() const;  // LblTime
    // txtResult: the newest line first.
    const std::vector<std::string>& ticker() const { return ticker_; }
    std::string tickerText() const;

    // CboCountry: the sets whose result file is there, in reading order.
    const std::vector<VidiSet>& offered() const { return offered_; }
    int currentSet() const { return currentSet_; }
    void chooseSet(int set);  // the Click of CboCountry

    // DoTables: the set's table (or "No Tables for ...") and its matches.
    std::string tableText(int set) const;
    std::string scoresText(int set) const;
    // The set's table in its order now, for the tests.
    std::vector<VidiPlace> standings(int set) const;
    const std::vector<VidiMatch>& matches(int set) const { return matches_[size_t(set)]; }

    const std::vector<GameFileError>& problems() const { return problems_; }

private:
    void readTables(const GameFolder& folder);
    void windBack(int row);
    void updateScores(int set, const VidiMatch& m);
    void doScore(int set, const std::string& line, VidiTick& out);
    std::string goalLine(const VidiMatch& m, bool homeScored, const VidiGoal& goal) const;

    GameIni game_;
    VidiWatch watch_;
    std::vector<VidiSet> sets_;
    State state_ = State::Idle;
    int minute_ = 0;
    int currentSet_ = 1;
    std::vector<VidiSet> offered_;
    std::array<std::vector<VidiMatch>, kVidiLastSet + 1> matches_;  // by set number
    std::array<std::vector<VidiPlace>, kVidiRows + 1> tables_;      // by row
    std::vector<std::string> ticker_;
    std::vector<GameFileError> problems_;
};

}  // namespace kestrin::results
