#pragma once
// The demo league's model: every club of the game with its players, and for
// the managed clubs everything their Squadsheet prints. The writers turn the
// model into the game's files; the tests compare what the readers give back
// with the records held here.
#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "core/gameini.h"
#include "core/records.h"
#include "core/session.h"
#include "demo/demo.h"
#include "orders/history.h"

namespace kestrin::demo {

// The manager who plays the demo league, and the address the game has for him.
inline constexpr const char* kDemoManager = "Robin Ashdown";
inline constexpr const char* kDemoManagerAddress = "robin.ashdown@example.org";
// Each league's cup, as the game's reports name it.
inline constexpr const char* kCupName = "League Cup";

// splitmix64: the same numbers on every platform and library version.
class Random {
public:
    explicit Random(uint64_t seed) : state_(seed) {}
    uint64_t next();
    int range(int lo, int hi);  // inclusive
    bool chance(int percent);
    template <typename T>
    const T& pick(const std::vector<T>& items) {
        return items[size_t(range(0, int(items.size()) - 1))];
    }

private:
    uint64_t state_;
};

struct Date {
    int year = 2025, month = 1, day = 1;
    bool operator==(const Date&) const = default;
};
Date addDays(Date d, int days);
std::string ddmmyyyy(const Date& d);  // "09/08/2025"
std::string yyyymmdd(const Date& d);  // "20250809"

struct DemoPlayer {
    // Exactly what the Squadsheet reader should give back for this player.
    Player rec;
    // How some fields are printed: #NULL# (the record then holds 0), the
    // value with its decimals, the whole name of the club that lent him.
    bool nullSeasonPerf = false;
    bool nullWages = false;
    std::array<bool, 5> nullLastFive{};
    std::array<bool, 5> nullCareer{};  // apps, goals, caps, international goals, career perf
    int16_t caps = 0, capGoals = 0;     // the career line's third and fourth figures
    std::string valueText;
    std::string loanFrom;               // "" when not on loan
    // Club export figures.
    int16_t played = 0;
    int16_t seasonPerf = 0;
    int16_t seasonGoals = 0;
    bool nullMinValue = false, nullMaxValue = false;
};

struct DemoClub {
    std::string Name;
    std::string Colours;
    std::string Code;          // the game's club code, "0042"
    std::string Key;           // ClubFile of a managed club (its code), "" for the others
    std::string HumanManager;  // "" when the game runs the club
    int League = 1;            // 1 to 8
    bool InLeague = false;     // plays the league's fixtures; the rest of a league's clubs only fill the export
    std::vector<DemoPlayer> Players;
    bool managed() const { return !Key.empty(); }
    bool human() const { return !HumanManager.empty(); }

    // Managed clubs only. Header holds the Squadsheet's header fields as the
    // reader gives them back (Players, Fixtures and ReportLines are apart).
    Club Header;
    std::string CapacityPending, FacilityPending;  // the texts of the upgrade line
    std::string DepartmentLine;
    bool NullGate = false;
    int BlendPassingTenths = 0, BlendCrossingTenths = 0;
    std::vector<std::string> ReportLines;
    std::vector<Fixture> Fixtures;        // next week's matches as the reader gives them back
    std::vector<std::string> MatchLines;  // every line after "SCHEDULED MATCHES FOR NEXT WEEK"
    std::vector<HistoryRecord> History;   // coaching of the weeks before the first
};

// One side of a match as every file tells it: the team sheet of 13, the
// goals, and the closing figures.
struct SheetRow {
    std::string name, position;
    int skill = 0, perf = 0, sub = 0;
    std::array<std::array<int, 2>, 6> work{};  // attempts and successes: pass, cross, tackle, dribble, shot, header
};
struct MatchGoal {
    int row = 0, minute = 0, type = 0, assist = 0, worth = 0;  // rows 1 to 13; type in the game's goal-type list
};
struct MatchSide {
    size_t club = 0;
    int goals = 0;
    std::array<SheetRow, 13> rows;
    std::vector<MatchGoal> scored;
    std::vector<std::pair<int, int>> booked, sentOff;  // row, minute
    int shotsOn = 0, shotsOff = 0, performance = 0, style = 0, movement = 0, possession = 0;
    int cap = 0, pens = 0, corners = 0, freeKicks = 0, support = 0, mom = 1;
    int formation = 2, endFormation = 0, tactic = 1, endTactic = 1;  // endTactic 0: no tactic named
    std::array<int, 6> blends{};
};
struct Match {
    int league = 1;        // 1 to 8
    bool cup = false;      // the league's cup, else a league match
    int leagueRound = 0;   // 1-based match number of a league match
    std::string cupRound;  // "Last 32" ... "Final"
    int attendance = 0;
    bool homeThrough = true;  // a cup tie: who goes on, on penalties when level
    std::array<MatchSide, 2> side;
    bool neutral() const { return cup && cupRound == "Final"; }
};
// A club's league record of the season.
struct Standing {
    int played = 0, won = 0, drawn = 0, lost = 0, goalsFor = 0, goalsAgainst = 0;
    std::string form;  // the latest results first, "WDL"
    int points() const { return 3 * won + drawn; }
};

class League {
public:
    explicit League(const DemoOptions& options);

    const GameIni& gameIni() const { return ini_; }
    int week() const { return week_; }
    Date turnDate() const;
    const std::string& turnStamp() const { return stamp_; }
    // Every club of the game in the club export's order; managed clubs among them.
    const std::vector<DemoClub>& clubs() const { return clubs_; }
    std::vector<const DemoClub*> managedClubs() const;

    // The league one week on: injuries heal and happen, bans are served,
    // loans and contracts run down, new fixtures, money and credits move.
    void nextWeek();
    // Weeks on until the first league's tables reach a full season of 38 games.
    void playToSeasonEnd();

    // The files of the current week, Windows-1252 with CR LF.
    std::string squadsheetFileName(const DemoClub& club) const;
    std::string squadsheetText(const DemoClub& club) const;
    std::string clubExportText() const;
    std::string historyFileName(const DemoClub& club) const;
    // Weekly/ beside the club export: CODES.TXT, EMAILS.TXT and the news of
    // skills that moved, as (name, text) pairs.
    std::vector<std::pair<std::string, std::string>> weeklyFiles() const;
    // The files of the week's matches and deals: coaching, tables, results,
    // trades and the group tables.
    std::vector<std::pair<std::string, std::string>> leagueFiles() const;

    // The match report file of a managed club, "" when it played no match.
    std::string matchReportFileName(const DemoClub& club) const;
    std::string matchReportText(const DemoClub& club) const;

    // The week's matches, the league tables after them (clubs by place), and
    // the game's competition name of a league ("English Premier").
    const std::vector<Match>& weekMatches() const { return matches_; }
    std::vector<size_t> table(int league) const;
    const Standing& standing(size_t club) const { return standings_[club]; }
    int leagueCount() const { return leagueCount_; }
    static std::string competitionName(int league);
    static std::string fileCode(int league);  // "ENG", "ENG1", ...
    // Winners of each league's cup this season, 0-based club index, -1 before the final.
    long cupWinner(int league) const { return cups_[size_t(league)].winner; }

    // What the readers should make of the current week's files.
    Club expectedClub(const DemoClub& club) const;
    // The texts that the player's views show are kept in `texts`.
    ExportPlayer expectedExportPlayer(const DemoClub& club, const DemoPlayer& p, std::deque<std::string>& texts) const;

private:
    void makeClubs();
    DemoPlayer makePlayer(const std::string& position, int clubLevel, bool youth,
                          const std::vector<DemoPlayer>& squad);
    void makeManagedHeader(DemoClub& club, size_t managedIndex);
    void makeHistory(DemoClub& club);
    void weekForManaged(DemoClub& club, size_t managedIndex);
    void weekForPlayer(DemoPlayer& p, bool seasonTurn);
    std::vector<std::string> reportLines(const DemoClub& club, size_t managedIndex);
    void weekNews();
    void scheduleMatches(DemoClub& club, size_t managedIndex);
    const DemoClub& otherClub(const DemoClub& club, bool sameLeague);
    void setSkills(Player& p, int skill);
    // The season: fixtures, results, tables and cups.
    void makeSeason();
    void playRound(int round, bool told);
    std::vector<std::pair<size_t, size_t>> leaguePairs(int league, int round) const;
    bool cupRoundAt(int league, int round, int& stage) const;
    void drawCup(int league, std::vector<size_t> clubs, bool first);
    Match playMatch(int league, size_t home, size_t away, bool told);
    void fillSide(Match& m, int s, Random& r) const;
    std::vector<std::string> matchSummary(const Match& m, const DemoClub& club) const;
    void matchReportLines(const Match& m, std::vector<std::string>& out) const;
    int strength(size_t club) const;
    void weekTrades();
    void placeOnLoan(DemoPlayer& p, const DemoClub& at);

    DemoOptions options_;
    Random rng_;
    GameIni ini_;
    int week_ = 1;
    Date firstDate_;
    std::string stamp_;
    std::vector<DemoClub> clubs_;
    int seasonWeek_ = 0;  // weeks played of the season
    // This week's news lines of NEWSINC.TXT, NEWSDEC.TXT and NEWSINT.TXT.
    std::array<std::vector<std::string>, 3> news_;
    std::vector<std::string> coaching_, transfers_, loans_, squadMoves_;

    Random seasonRng_{0};
    int leagueCount_ = 1;
    std::vector<std::vector<size_t>> members_;  // [league] the clubs of its fixture list, in its order
    std::vector<Standing> standings_;           // [club]
    struct Cup {
        int stages = 0;
        std::vector<std::pair<size_t, size_t>> ties;  // the next round's draw
        std::vector<size_t> byes;
        long winner = -1;
    };
    std::vector<Cup> cups_;  // [league]
    std::vector<Match> matches_;  // the matches the week's files tell
};

// Orders for the first `clubs` clubs of a loaded session: team sheets of
// players who can play, tactics and set pieces, coaching, physio for the
// injured, a one to one, scouting of other clubs' players and movements.
void giveOrders(Session& session, int clubs, uint64_t seed);

}  // namespace kestrin::demo
