#include <gtest/gtest.h>
#include <zlib.h>

#include <functional>

#include "stats/matchreport.h"
#include "stats/squad.h"
#include "stats/weekly.h"
#include "statsdb.h"
#include "weekfiles.h"

using namespace kestrin;
using namespace kestrin::stats;
using kestrin::test::rows;

namespace {

std::string uncompressSummary(const std::string& blob) {
    const size_t colon = blob.find(':');
    uLongf size = uLongf(std::stoul(blob.substr(0, colon)));
    std::string out(size, '\0');
    if (uncompress(reinterpret_cast<Bytef*>(out.data()), &size,
                   reinterpret_cast<const Bytef*>(blob.data() + colon + 1), uLong(blob.size() - colon - 1)) != Z_OK)
        return "(not zlib)";
    out.resize(size);
    return out;
}

}  // namespace

TEST(StatsWeekly, EachLoaderStoresItsRowsAndPassesOverTheRest) {
    struct Case {
        const char* what;
        std::function<void(StatsStore&)> load;
        std::string query;
        std::vector<std::string> want;
    };
    const std::vector<Case> cases = {
        {"codes: #NULL# and lines without ' - ' passed over, 9999 added last",
         [](StatsStore&) {}, "SELECT Club, ClubName, Truncated FROM Clubs ORDER BY rowid",
         {"KEST|Kestrel Rovers|Kestrel Rovers", "PORT|Port Elm Athletic|Port Elm Athlet",
          "KING|King's Lynn Town|King's Lynn Tow", "9999|Unknown|Unknown"}},
        {"managers: an apostrophe is just a name, an unknown club is passed over",
         [](StatsStore& s) { loadManagers(s, test::week::emails()); },
         "SELECT Club, Manager, Date FROM Managers ORDER BY rowid",
         {"KEST|Tom Hale|2026-05-16", "KING|Ann O'Neil|2026-05-16"}},
        {"coaching: read from the line's end, so club names keep their blanks",
         [](StatsStore& s) {
             loadCoaching(s, {"Coaching results for week 12", "Player name    Club Skill Value",
                              "PA = Passing, CO = Control", "", "T Baxter       Kestrel Rovers SH 18",
                              "A Very Long NamPort Elm Athletic DE 7", "Nobody         Atlantis FC ZZ 3"});
         },
         "SELECT Date, TruncatedName, Club, Skill, Value, Type FROM Coaching ORDER BY rowid",
         {"2026-05-16|T Baxter|KEST|5|18|1", "2026-05-16|A Very Long Nam|PORT|7|7|1",
          "2026-05-16|Nobody|9999|11|3|1"}},
        {"league table: columns from the heading, negative points stored as 0",
         [](StatsStore& s) { loadTables(s, "engtabs.txt", test::week::leagueTable(38, 71)); },
         "SELECT League, Position, Club, Played, GD, Points FROM Tables ORDER BY rowid",
         {"1|1|PORT|38|30|80", "1|2|KEST|38|12|71", "1|3|KING|38|-42|0"}},
        {"league table without the PTS heading loads nothing",
         [](StatsStore& s) {
             auto t = test::week::leagueTable(10, 20);
             t[2].replace(t[2].find(" PTS"), 4, " PNT");
             loadTables(s, "FRATABS.TXT", t);
         },
         "SELECT COUNT(*) FROM Tables", {"0"}},
        {"a table file of an unknown league is not read",
         [](StatsStore& s) { loadTables(s, "WALTABS.TXT", test::week::leagueTable(10, 20)); },
         "SELECT COUNT(*) FROM Tables", {"0"}},
        {"transfers and loans: fee split at ' + ', incentive read where ' + ' would stand",
         [](StatsStore& s) {
             loadTrades(s, "TRANSFER.TXT",
                        {"Transfers - players transfered this week", "",
                         test::week::tradeLine("Al Reyes", "Kestrel Rovers", "Port Elm Athlet", 3, "250000 + 5000"),
                         test::week::tradeLine("Bo Dean", "King's Lynn Tow", "Kestrel Rovers", 2, "98765")});
             loadTrades(s, "LOANS.TXT",
                        {"Loan deals organised", test::week::tradeLine("Cy Webb", "Atlantis", "Kestrel Rovers", 1, "0")});
         },
         "SELECT TruncPlayer, FromClub, ToClub, Contract, Value, Incentive, Type FROM Trades ORDER BY rowid",
         {"Al Reyes|KEST|PORT|3|250000|5000|1", "Bo Dean|KING|KEST|2|98765|765|1", "Cy Webb|9999|KEST|1|0|0|2"}},
        {"coaching news: type by file, skill from its word, value after 'new value is'",
         [](StatsStore& s) {
             loadCoachingNews(s, "NewsInc.txt",
                              {"News - skill increases", "",
                               "Kestrel Rovers - Tom Baxterson-Smith (improved by one point in passing, new value is "
                               "14 after training)"});
             loadCoachingNews(s, "NEWSDEC.TXT",
                              {"Port Elm Athletic - Z Moor (dropped by one point in Stamina, new value is 0 now)"});
         },
         "SELECT TruncatedName, Club, Skill, Value, Type FROM Coaching ORDER BY rowid",
         {"Tom Baxterson-S|KEST|1|14|2", "Z Moor|PORT|9|0|3"}},
        {"squad reports: clubs by their full names, no money",
         [](StatsStore& s) {
             loadSquadReportTrades(s, {"Transfers - from the squad reports", "",
                                       "Al Reyes        joins Port Elm Athletic from King's Lynn Town because he "
                                       "wanted to"});
         },
         "SELECT TruncPlayer, FromClub, ToClub, Contract, Value, Incentive, Type FROM Trades",
         {"Al Reyes|KING|PORT|0|0|0|3"}},
    };
    for (const Case& c : cases) {
        test::MemoryStats m;
        loadClubs(m.store, test::week::codes());
        c.load(m.store);
        EXPECT_EQ(rows(m.db, c.query), c.want) << c.what;
        // A second load of the same lines is refused row by row.
        const AddedRows once = m.store.added;
        c.load(m.store);
        EXPECT_EQ(rows(m.db, c.query), c.want) << c.what << " (loaded twice)";
        EXPECT_EQ(m.store.added.Managers + m.store.added.Coaching + m.store.added.Tables + m.store.added.Trades,
                  once.Managers + once.Coaching + once.Tables + once.Trades)
            << c.what;
    }
}

TEST(StatsMatchReport, AWholeFinalGivesItsRows) {
    test::MemoryStats m;
    loadClubs(m.store, test::week::codes());
    const std::vector<std::string> texts = loadMatchReports(m.store, test::week::finalReport());
    ASSERT_EQ(texts.size(), 1u);

    EXPECT_EQ(rows(m.db, "SELECT MatchCode, Date, Attendance, GameType, RoundType, HomeSide, AwaySide FROM MatchMain"),
              std::vector<std::string>{"1|2026-05-16|45210|12|27|KEST|PORT"});
    // A final is on neutral ground; an empty tactic cell is "No Tactic" and
    // the shots follow; the shape change shows in EndFormation.
    EXPECT_EQ(rows(m.db, "SELECT Club, Venue, StartTactic, EndTactic, Performance, ShotsOn, ShotsOff, Movement, Style, "
                         "StartFormation, EndFormation, StartDefBlend, StartMidBlend, StartAttBlend, EndDefBlend, "
                         "EndMidBlend, EndAttBlend, MOM, Score, Possession FROM MatchTeam ORDER BY rowid"),
              (std::vector<std::string>{"KEST|N|1|1|68|7|4|9|12|2|2|60|55|70|61|57|72|9|1|-",
                                        "PORT|N|3|23|55|3|5|8|10|1|11|52|48|66|50|47|65|9|0|-"}));
    const std::string columns =
        "SELECT Club, PlayerName, Position, Number, Skill, Perf, PassAttempts, PassSuccess, CrossAttempts, "
        "CrossSuccess, TackleAttempts, TackleSuccess, ShotAttempts, ShotSuccess, DribbleAttempts, DribbleSuccess, "
        "HeaderAttempts, HeaderSuccess, TimeSub, BookedTime, SentOffTime, ControlSuccess, ControlAttempts "
        "FROM MatchPlayer ";
    EXPECT_EQ(rows(m.db, columns + "WHERE Number IN (1, 7, 9) AND Club = 'KEST' ORDER BY Number"),
              (std::vector<std::string>{
                  // The keeper's row has no dribbles, headers or substitution time.
                  "KEST|A Keeper|1|1|40|7|12|10|0|0|3|2|0|0|-|-|-|-|-|-|-|-|-",
                  // A ball loss counts an attempt only.
                  "KEST|I Hale|6|7|36|7|6|6|1|0|5|4|0|0|2|1|3|2|0|-|-|0|1",
                  // " double nutmegs " holds " nutmegs " too: three ball wins in all.
                  "KEST|T Baxter|9|9|38|5|8|8|1|0|5|4|4|2|2|1|3|2|0|-|-|3|3"}));
    EXPECT_EQ(rows(m.db, columns + "WHERE Club = 'PORT' AND Number IN (4, 13) ORDER BY Number"),
              (std::vector<std::string>{
                  // Booked, then sent off: both minutes.
                  "PORT|L Cole|3|4|33|8|3|3|1|0|5|4|0|0|2|1|3|2|0|12|41|-|-",
                  // The row a "Finishing player strength" line took.
                  "PORT|Unknown|0|13|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|-|-|-|-"}));
    EXPECT_EQ(rows(m.db, "SELECT COUNT(*) FROM MatchPlayer"), std::vector<std::string>{"26"});
    // "half volley" is found before "volley".
    EXPECT_EQ(rows(m.db, "SELECT MatchCode, Club, Time, Type, Scorer, Assist, Value FROM MatchGoal"),
              std::vector<std::string>{"1|KEST|30|13|9|7|-"});

    const std::vector<std::string> blob = rows(m.db, "SELECT Summary FROM Summary WHERE MatchCode = 1");
    ASSERT_EQ(blob.size(), 1u);
    const std::string text = uncompressSummary(blob[0]);
    EXPECT_EQ(text, texts[0]);
    for (const std::string& piece :
         {std::string("Kestrel Rovers v PORT ELM ATHLETIC\r\n"),
          std::string("12 Minutes: BOOKING (PORT ELM ATHLETIC)     Kestrel Rovers 0  PORT ELM ATHLETIC 0\r\n"),
          std::string("30 Minutes: GOAL (Kestrel Rovers)     Kestrel Rovers 1  PORT ELM ATHLETIC 0\r\n"),
          std::string("30 Minutes: TACTIC CHANGE (PORT ELM ATHLETIC)     Kestrel Rovers 1  PORT ELM ATHLETIC 0\r\n"),
          std::string("41 Minutes: SENDING OFF (PORT ELM ATHLETIC)     Kestrel Rovers 1  PORT ELM ATHLETIC 0\r\n"),
          std::string("\r\nThe referee had no choice there.\r\n"), std::string("Three at the back now.\r\n"),
          std::string("\r\nComment line 101\r\nZ Moor (A 9) HIT THE bar"),
          std::string("Kestrel Rovers lift the Elite Cup.\r\n"),
          std::string("Score           : Kestrel Rovers 1    PORT ELM ATHLETIC 0\r\n"),
          std::string("Near Misses     : Kestrel Rovers 0    PORT ELM ATHLETIC 1\r\n"),
          std::string("Bookings        : Kestrel Rovers 0    PORT ELM ATHLETIC 1\r\n"),
          std::string("Sent Off        : Kestrel Rovers 0    PORT ELM ATHLETIC 1\r\n")})
        EXPECT_NE(text.find(piece), std::string::npos) << piece;
    // The 101st line of commentary wiped the hundred before it.
    EXPECT_EQ(text.find("Comment line 100\r\n"), std::string::npos);
    EXPECT_EQ(text.find("Comment line 1\r\n"), std::string::npos);
}

TEST(StatsMatchReport, RepeatsHeadingsAndDuplicatesAreTakenOnce) {
    struct Case {
        const char* what;
        std::vector<std::string> file;
        std::vector<std::string> matches;  // MatchMain rows after loading the file twice
    };
    std::vector<std::string> repeated = test::week::finalReport(111);
    repeated.resize(40);  // an early copy, cut short, then the whole report again
    for (const std::string& l : test::week::finalReport()) repeated.push_back(l);

    std::vector<std::string> midHeading = test::week::finalReport(222);
    midHeading.resize(20);
    midHeading.push_back("King's Lynn Town v KESTREL ROVERS");
    const std::vector<std::string> other = test::week::finalReport(333);
    for (size_t i = 1; i < other.size(); ++i) {
        std::string l = i == 1 ? "Elite Cup Final played at Wembley" : other[i];
        for (auto [from, to] : {std::pair<std::string, std::string>{"Kestrel Rovers", "King's Lynn Town"},
                                {"PORT ELM ATHLETIC", "KESTREL ROVERS"}}) {
            for (size_t at = l.find(from); at != std::string::npos; at = l.find(from, at + to.size()))
                l.replace(at, from.size(), to);
        }
        midHeading.push_back(l);
    }

    std::vector<std::string> two = test::week::finalReport();
    two.push_back("");
    for (const std::string& l : test::week::finalReport(777)) two.push_back(l);
    two[two.size() - test::week::finalReport().size() + 1] = "Elite Cup Final played at Wembley";

    const std::vector<Case> cases = {
        {"the second copy of a repeated report", repeated, {"45210|KEST|PORT"}},
        {"an unfinished match dropped at a new heading", midHeading, {"333|KING|KEST"}},
        {"two matches of one file", two, {"45210|KEST|PORT", "777|KEST|PORT"}},
        {"a file that ends in the heading writes nothing",
         {"Kestrel Rovers v PORT ELM ATHLETIC", "Elite Cup Final played"}, {}},
    };
    for (const Case& c : cases) {
        test::MemoryStats m;
        loadClubs(m.store, test::week::codes());
        loadMatchReports(m.store, c.file);
        const AddedRows once = m.store.added;
        loadMatchReports(m.store, c.file);
        EXPECT_EQ(rows(m.db, "SELECT Attendance, HomeSide, AwaySide FROM MatchMain ORDER BY MatchCode"), c.matches)
            << c.what;
        EXPECT_EQ(m.store.added, once) << c.what;
        EXPECT_EQ(rows(m.db, "SELECT COUNT(*) FROM MatchTeam"),
                  std::vector<std::string>{std::to_string(2 * c.matches.size())})
            << c.what;
    }
}

TEST(StatsSquadsheet, SkillsAndTheSummaryCompleteTheFinal) {
    test::MemoryStats m;
    loadClubs(m.store, test::week::codes());
    loadMatchReports(m.store, test::week::finalReport());
    const auto sheet = test::week::kestrelSquadsheet();
    loadSquadSkills(m.store, "KESTsqua.txt", sheet);
    EXPECT_EQ(loadMatchSummaries(m.store, "KESTsqua.txt", sheet), 2);

    EXPECT_EQ(rows(m.db, "SELECT * FROM Skills ORDER BY rowid"),
              (std::vector<std::string>{"T Baxter|2026-05-16|KEST|9|24|10|12|8|14|18|15|4|16|12|13|11",
                                        "O'Hara|2026-05-16|KEST|3|29|11|9|17|12|5|6|18|7|14|15|8"}));
    // "Possesion" as the file spells it; support only where above 0.
    EXPECT_EQ(rows(m.db, "SELECT Club, Possession, Cap, Pens, Corners, FreeKicks, Support FROM MatchTeam ORDER BY rowid"),
              (std::vector<std::string>{"KEST|58|6|1|7|12|70", "PORT|42|2|0|3|9|30"}));
    EXPECT_EQ(rows(m.db, "SELECT Club, Scorer, Time, Value FROM MatchGoal"), std::vector<std::string>{"KEST|9|30|4"});

    // Another week's match of equal figures is not this week's summary.
    test::MemoryStats later("2026-05-23");
    loadClubs(later.store, test::week::codes());
    loadMatchReports(later.store, test::week::finalReport());
    later.db.exec("UPDATE MatchMain SET Date = '2026-05-16'");
    EXPECT_EQ(loadMatchSummaries(later.store, "KESTSQUA.TXT", sheet), 0);
    EXPECT_EQ(rows(later.db, "SELECT COUNT(*) FROM MatchTeam WHERE Possession IS NOT NULL"),
              std::vector<std::string>{"0"});

    // A sheet without a report section stores skills only.
    test::MemoryStats bare;
    loadSquadSkills(bare.store, "KINGSQUA.TXT", {sheet.begin(), sheet.begin() + 10});
    EXPECT_EQ(loadMatchSummaries(bare.store, "KINGSQUA.TXT", {sheet.begin(), sheet.begin() + 10}), 0);
    EXPECT_EQ(rows(bare.db, "SELECT Club, COUNT(*) FROM Skills"), std::vector<std::string>{"KING|2"});
}
