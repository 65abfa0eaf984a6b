// The Stats refresh of one week of a large league: 2,000 clubs in CODES.TXT,
// nine league tables, a few hundred trades and coaching lines, and 30 managed
// clubs each with a long match report and a Squadsheet. Measured into an
// empty database, into one that already holds the week, and against
// bulk-inserting the same rows with prepared statements in one transaction.
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <SQLiteCpp/Transaction.h>
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <unistd.h>

#include "core/gamefolder.h"
#include "core/messages.h"
#include "core/settings.h"
#include "core/text.h"
#include "stats/lookups.h"
#include "stats/refresh.h"
#include "stats/store.h"

using namespace kestrin;
using namespace kestrin::stats;

namespace {

std::string clubName(int i) { return "Club Number " + std::to_string(i) + (i % 7 == 0 ? " Athletic" : " Town"); }
std::string clubCode(int i) { return "C" + std::to_string(i); }

void put(const fs::path& p, const std::vector<std::string>& lines) { writeFileAtomic(p, joinCrLf(lines)); }

std::vector<std::string> report(int home, int away, int attendance) {
    const std::string h = clubName(home), a = upper(clubName(away));
    std::vector<std::string> r = {
        h + " v " + a,
        "League Cup Last 32 played at the ground of " + h,
        "The attendance was " + std::to_string(attendance) + " with a warm sun",
        h + " started with a formation of 4  4  2 and " + a + " with a formation of 4  3  3",
        h + " used the tactic Pressure and " + a + " used the tactic Offside",
        h + " started the game with a blend of 60  55  70 and " + a + " started the game with a blend of 52  48  66",
        ""};
    const char* phrases[] = {" dummies ", " controls the ball", " nutmegs ", " loses control ",
                             " takes the ball out wide", " is fouled by "};
    for (int minute = 1; minute <= 90; ++minute) {
        r.push_back(std::to_string(minute) + " mins - play goes on");
        for (int k = 0; k < 16; ++k) {
            const char side = (minute + k) % 2 ? 'H' : 'A';
            const std::string who = "P" + std::to_string(k % 11 + 2) + " Player (" + side + " " +
                                    std::to_string(k % 11 + 2) + ")";
            r.push_back(who + phrases[(minute * 3 + k) % 6] + "P" + std::to_string(k % 9 + 2) + " Player (" +
                        (side == 'H' ? 'A' : 'H') + " 5) and the crowd is loud");
        }
        if (minute % 30 == 0) {
            r.push_back("P9 Player (H 9) SCORED for " + h + " with a low shot after " + std::to_string(minute) +
                        " minutes");
            r.push_back("And set up by P7 Player which was a fine ball");
        }
        if (minute == 50) {
            r.push_back("P4 Player (A 4) fouls P9 Player (H 9)");
            r.push_back("P4 Player has been booked");
            r.push_back("The referee had no choice.");
        }
    }
    r.push_back("REFEREE BLOWS FOR FULL TIME");
    for (int s = 0; s < 2; ++s) {
        const std::string name = s == 0 ? h : a;
        r.push_back("Finishing Club statistics for " + name);
        r.push_back("Style   Movement   Pos   Chances   Start Blends   End Blends   Tactic   On   Off   Perf");
        r.push_back(std::to_string(10 + s) + "   9   54   6   60  55  70   61  57  72   Pressure   7   4   " +
                    std::to_string(60 + s));
        r.push_back("Player statistics for " + name + "   MAN OF THE MATCH - P9 Player (9)");
        r.push_back("Name      Pos/Skill   Pass   Cross");
        r.push_back("P1 Player AGKP/ 40 12 / 10  0 / 0  3 / 2  0 / 0  7");
        for (int i = 2; i <= 13; ++i)
            r.push_back("P" + std::to_string(i) + " Player MIDC/ 35 9 / 7  1 / 0  5 / 4  2 / 1  1 / 0  3 / 2  6  0");
    }
    return r;
}

std::vector<std::string> squadsheet(int club) {
    std::vector<std::string> s = {"Club and player information for " + clubName(club),
                                  "Name                Nationality   Pos  Age  PA  CO  TA  RU  SH  DR  DF  OF  FL  ST  CR SU ",
                                  "====", ""};
    for (int p = 1; p <= 25; ++p)
        s.push_back(fixedWidth("P" + std::to_string(p) + " Player", 20) + fixedWidth("English", 14) +
                    "MIDC  24  10  12   8  14  18  15   4  16  12  13  11");
    s.push_back("");
    return s;
}

// The week in a game folder, made once per run and removed at exit.
class LargeWeek {
public:
    LargeWeek() : root_(fs::temp_directory_path() / ("kestrin-stats-bench-" + std::to_string(::getpid()))) {
        fs::remove_all(root_);
        const fs::path w = root_ / "Weekly", q = root_ / "Squadsheets";
        fs::create_directories(w);
        fs::create_directories(q);
        std::vector<std::string> codes, emails = {"MANAGERS", "========"}, coaching = {"Coaching results"},
                                        transfers, loans, news, squadrep;
        for (int i = 1; i <= 2000; ++i) codes.push_back(clubName(i) + " - " + clubCode(i));
        for (int i = 1; i <= 30; ++i) emails.push_back(clubName(i) + " - m" + std::to_string(i) + "@x.org (Manager " +
                                                      std::to_string(i) + ")");
        for (int i = 1; i <= 300; ++i) {
            coaching.push_back(fixedWidth("Coached " + std::to_string(i), 15) + clubName(i % 30 + 1) + " PA " +
                               std::to_string(i % 20));
            transfers.push_back(fixedWidth("Sold " + std::to_string(i), 50) + fixedWidth(clubName(i * 3 % 2000 + 1), 16) +
                                fixedWidth(clubName(i * 7 % 2000 + 1), 17) + " 3" + std::to_string(1000 * i) +
                                " + 500");
        }
        for (int i = 1; i <= 100; ++i) {
            loans.push_back(fixedWidth("Lent " + std::to_string(i), 50) + fixedWidth(clubName(i + 50), 16) +
                            fixedWidth(clubName(i + 500), 17) + " 1" + "0");
            news.push_back(clubName(i % 30 + 1) + " - Grown " + std::to_string(i) +
                           " (improved by one point in Passing, new value is 15)");
            squadrep.push_back(fixedWidth("Moved " + std::to_string(i), 15) + " joins " + clubName(i + 9) + " from " +
                               clubName(i + 900) + " because of money");
        }
        put(w / "CODES.TXT", codes);
        put(w / "EMAILS.TXT", emails);
        put(w / "COACHING.TXT", coaching);
        put(w / "TRANSFER.TXT", transfers);
        put(w / "LOANS.TXT", loans);
        put(w / "NEWSINC.TXT", news);
        put(w / "SQUADREP.TXT", squadrep);
        for (int l = 0; l < 9; ++l) {
            const std::string heading = "Pos  Club                  PYD   MGD   GD   PTS";
            std::vector<std::string> t = {heading};
            for (int p = 1; p <= 20; ++p) {
                std::string row = padLeft(std::to_string(p), 4) + " " + fixedWidth(clubName(l * 20 + p), 20);
                row = fixedWidth(row, heading.find("PYD ")) + "12    10   " + padLeft(std::to_string(30 - p), 3) +
                      "   " + std::to_string(40 - p);
                t.push_back(row);
            }
            put(w / std::string(kLeagueFiles[size_t(l)]), t);
        }
        for (int c = 1; c <= 30; ++c) {
            put(q / (clubCode(c) + "#1.TXT"), report(c, c % 30 + 1, 10000 + c));
            put(q / (clubCode(c) + "SQUA.TXT"), squadsheet(c));
        }
        lines_ = 0;
        for (const auto& e : fs::recursive_directory_iterator(root_))
            if (e.is_regular_file()) lines_ += readLines(e.path()).size();
    }
    ~LargeWeek() {
        std::error_code ec;
        fs::remove_all(root_, ec);
    }
    const fs::path& root() const { return root_; }
    size_t lines() const { return lines_; }

    AddedRows refresh(const fs::path& db) const {
        Settings s;
        s.StatsFile = db.string();
        RecordingMessages messages;
        RefreshOptions o;
        o.showDone = false;
        const RefreshResult r = refreshStats(GameFolder(root_), s, messages, o);
        if (r.status != RefreshStatus::Done) throw std::runtime_error("refresh failed: " + r.problem);
        return r.added;
    }

private:
    fs::path root_;
    size_t lines_ = 0;
};

const LargeWeek& week() {
    static const LargeWeek w;
    return w;
}

void removeDb(const fs::path& p) {
    std::error_code ec;
    fs::remove(p, ec);
}

void BM_RefreshIntoEmptyDatabase(benchmark::State& state) {
    const fs::path db = week().root() / "empty.db";
    AddedRows added;
    for (auto _ : state) {
        state.PauseTiming();
        removeDb(db);
        state.ResumeTiming();
        added = week().refresh(db);
    }
    state.counters["lines"] = double(week().lines());
    state.counters["MatchPlayer"] = added.MatchPlayer;
    state.counters["rows"] = added.Clubs + added.Managers + added.Coaching + added.Tables + added.Trades +
                             added.MatchMain + added.MatchTeam + added.MatchPlayer + added.MatchGoal + added.Summary +
                             added.Skills;
}
BENCHMARK(BM_RefreshIntoEmptyDatabase)->Unit(benchmark::kMillisecond);

void BM_RefreshOfAWeekAlreadyHeld(benchmark::State& state) {
    const fs::path db = week().root() / "held.db";
    removeDb(db);
    week().refresh(db);
    for (auto _ : state) benchmark::DoNotOptimize(week().refresh(db));
}
BENCHMARK(BM_RefreshOfAWeekAlreadyHeld)->Unit(benchmark::kMillisecond);

// The rows one refresh stores, inserted again as they are: the floor the
// refresh is measured against.
void BM_BulkInsertOfTheSameRows(benchmark::State& state) {
    const fs::path source = week().root() / "source.db";
    removeDb(source);
    week().refresh(source);
    struct Value {
        int type;
        int64_t number;
        std::string bytes;
    };
    std::vector<std::pair<std::string, std::vector<std::vector<Value>>>> tables;  // insert, rows
    {
        SQLite::Database src(source.string());
        for (const TableColumns& t : statsTables()) {
            std::string insert = std::string("INSERT INTO ") + t.table + " VALUES (";
            for (size_t i = 0; i < t.columns.size(); ++i) insert += i ? ",?" : "?";
            insert += ")";
            std::vector<std::vector<Value>> rows;
            SQLite::Statement q(src, std::string("SELECT * FROM ") + t.table);
            while (q.executeStep()) {
                std::vector<Value> row;
                for (int c = 0; c < q.getColumnCount(); ++c) {
                    const SQLite::Column v = q.getColumn(c);
                    row.push_back({v.getType(), v.getType() == SQLITE_INTEGER ? v.getInt64() : 0,
                                   v.getType() == SQLITE_TEXT || v.getType() == SQLITE_BLOB ? v.getString() : ""});
                }
                rows.push_back(std::move(row));
            }
            tables.emplace_back(insert, std::move(rows));
        }
    }
    const fs::path target = week().root() / "bulk.db";
    size_t count = 0;
    for (auto _ : state) {
        state.PauseTiming();
        removeDb(target);
        state.ResumeTiming();
        SQLite::Database db(target.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        SQLite::Transaction t(db);
        createSchema(db);
        count = 0;
        for (const auto& [insert, rows] : tables) {
            SQLite::Statement st(db, insert);
            for (const auto& row : rows) {
                st.reset();
                for (size_t c = 0; c < row.size(); ++c) {
                    const Value& v = row[c];
                    const int at = int(c) + 1;
                    if (v.type == SQLITE_NULL) st.bind(at);
                    else if (v.type == SQLITE_INTEGER) st.bind(at, v.number);
                    else if (v.type == SQLITE_BLOB) st.bind(at, v.bytes.data(), int(v.bytes.size()));
                    else st.bind(at, v.bytes);
                }
                st.exec();
                ++count;
            }
        }
        t.commit();
    }
    state.counters["rows"] = double(count);
}
BENCHMARK(BM_BulkInsertOfTheSameRows)->Unit(benchmark::kMillisecond);

}  // namespace
