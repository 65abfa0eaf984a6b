#include <gtest/gtest.h>
#include <utime.h>

#include <ctime>

#include "core/gamefolder.h"
#include "stats/honours.h"
#include "stats/refresh.h"
#include "statsdb.h"
#include "support/testsupport.h"
#include "weekfiles.h"

using namespace kestrin;
using namespace kestrin::stats;
using kestrin::test::rows;

namespace {

// The week of weekfiles.h as a game folder; CODES.TXT dated `day` of May 2026.
void writeWeek(const test::TempDir& dir, int day = 16) {
    using namespace test::week;
    dir.write("Weekly/CODES.TXT", joinCrLf(codes()));
    dir.write("Weekly/Emails.txt", joinCrLf(emails()));
    dir.write("Weekly/COACHING.TXT",
              joinCrLf({"Coaching results", "T Baxter       Kestrel Rovers SH 18", "O'Hara         Kestrel Rovers DE 9"}));
    dir.write("Weekly/ENGTABS.TXT", joinCrLf(leagueTable(38, 71)));
    dir.write("Weekly/TRANSFER.TXT",
              joinCrLf({tradeLine("Al Reyes", "Kestrel Rovers", "Port Elm Athlet", 3, "250000 + 5000"),
                        tradeLine("Bo Dean", "King's Lynn Tow", "Kestrel Rovers", 2, "1000 + 0")}));
    dir.write("Weekly/newsinc.txt",
              joinCrLf({"News - increases", "Kestrel Rovers - T Baxter (up by one point in Shooting, new value is 19)"}));
    dir.write("Weekly/SQUADREP.TXT", joinCrLf({"Cy Webb         joins Kestrel Rovers from Port Elm Athletic because"}));
    // Not read by the refresh, though their lines would load.
    dir.write("Weekly/WALTABS.TXT", joinCrLf(leagueTable(38, 99)));
    dir.write("Weekly/README.TXT", joinCrLf(emails()));
    dir.write("Squadsheets/KEST#1.TXT", joinCrLf(finalReport()));
    dir.write("Squadsheets/KESTSQUA.TXT", joinCrLf(kestrelSquadsheet()));
    std::tm tm{};
    tm.tm_year = 2026 - 1900;
    tm.tm_mon = 4;
    tm.tm_mday = day;
    tm.tm_hour = 12;
    tm.tm_isdst = -1;
    const utimbuf times{std::mktime(&tm), std::mktime(&tm)};
    ::utime(GameFolder(dir.path()).resolve("Weekly/CODES.TXT").c_str(), &times);
}

Settings statsSettings(const test::TempDir& dir, const std::string& file = "stats.db") {
    Settings s = defaultSettings(dir.path());
    s.StatsFile = (dir.path() / file).string();
    return s;
}

std::vector<std::string> tableCounts(const std::string& file) {
    SQLite::Database db(file);
    std::vector<std::string> out;
    for (const TableColumns& t : statsTables())
        out.push_back(std::string(t.table) + " " + rows(db, std::string("SELECT COUNT(*) FROM ") + t.table)[0]);
    return out;
}

std::string bytesOf(const std::string& file) { return readFileBytes(file); }

}  // namespace

TEST(StatsRefresh, AWeekLoadsOnceAndASecondRefreshAddsNothing) {
    test::TempDir dir;
    writeWeek(dir);
    Settings settings = statsSettings(dir);
    RecordingMessages messages;
    std::vector<std::string> files;
    RefreshOptions options;
    options.progress = [&](std::string_view file, int done, int total) {
        files.push_back(std::string(file) + " " + std::to_string(done) + "/" + std::to_string(total));
    };
    const RefreshResult first = refreshStats(GameFolder(dir.path()), settings, messages, options);
    ASSERT_EQ(first.status, RefreshStatus::Done) << first.problem;
    EXPECT_EQ(files, (std::vector<std::string>{"Weekly/CODES.TXT 0/9", "Weekly/Emails.txt 1/9",
                                               "Weekly/COACHING.TXT 2/9", "Weekly/ENGTABS.TXT 3/9",
                                               "Weekly/newsinc.txt 4/9", "Weekly/SQUADREP.TXT 5/9",
                                               "Weekly/TRANSFER.TXT 6/9", "Squadsheets/KEST#1.TXT 7/9",
                                               "Squadsheets/KESTSQUA.TXT 8/9", " 9/9"}));
    const AddedRows want{4, 2, 3, 3, 3, 1, 2, 26, 1, 1, 2};
    EXPECT_EQ(first.added, want);
    EXPECT_EQ(test::shown(messages), std::vector<std::string>{"Inform|Stats load complete|Stats Database refreshed"});
    {
        SQLite::Database db(settings.StatsFile);
        EXPECT_EQ(rows(db, "SELECT DISTINCT Date FROM Tables UNION SELECT DISTINCT Date FROM MatchMain"),
                  std::vector<std::string>{"2026-05-16"});
        EXPECT_EQ(rows(db, "SELECT Club, Possession FROM MatchTeam ORDER BY rowid"),
                  (std::vector<std::string>{"KEST|58", "PORT|42"}));
    }

    const std::vector<std::string> counts = tableCounts(settings.StatsFile);
    options.showDone = false;
    messages.entries.clear();
    const RefreshResult second = refreshStats(GameFolder(dir.path()), settings, messages, options);
    ASSERT_EQ(second.status, RefreshStatus::Done) << second.problem;
    EXPECT_EQ(second.added, (AddedRows{4, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));  // Clubs is made anew each time
    EXPECT_EQ(tableCounts(settings.StatsFile), counts);
    EXPECT_TRUE(messages.entries.empty());
}

TEST(StatsRefresh, AFailedOrCancelledRefreshLeavesTheDatabaseAsItWas) {
    struct Case {
        const char* what;
        bool existing;            // a database of last week is there
        const char* failAt;       // the file whose loading throws, or nullptr
        int cancelAt;             // the file before which the refresh is cancelled, or -1
        RefreshStatus status;
        std::string message;      // kind|title of the one message
    };
    const std::vector<Case> cases = {
        {"a match report that fails", true, "KEST#1.TXT", -1, RefreshStatus::Failed,
         "Refuse|Stats database not updated"},
        {"the last file that fails", true, "KESTSQUA.TXT", -1, RefreshStatus::Failed,
         "Refuse|Stats database not updated"},
        {"cancelled half-way", true, nullptr, 5, RefreshStatus::Cancelled, "Inform|Stats load cancelled"},
        {"a first refresh that fails leaves no file", false, "ENGTABS.TXT", -1, RefreshStatus::Failed,
         "Refuse|Stats database not updated"},
    };
    for (const Case& c : cases) {
        test::TempDir dir;
        writeWeek(dir, 9);
        Settings settings = statsSettings(dir);
        RecordingMessages messages;
        if (c.existing) {
            ASSERT_EQ(refreshStats(GameFolder(dir.path()), settings, messages).status, RefreshStatus::Done);
        }
        writeWeek(dir, 16);  // a new week: every table would take rows
        const std::string before = c.existing ? bytesOf(settings.StatsFile) : "";

        std::atomic<bool> cancel{false};
        RefreshOptions options;
        options.cancel = &cancel;
        options.progress = [&](std::string_view, int done, int) {
            if (done == c.cancelAt) cancel = true;
        };
        refreshFaultHook = [&](std::string_view file) {
            if (c.failAt && file == c.failAt) throw std::runtime_error("disk read error");
        };
        messages.entries.clear();
        const RefreshResult r = refreshStats(GameFolder(dir.path()), settings, messages, options);
        refreshFaultHook = nullptr;

        EXPECT_EQ(r.status, c.status) << c.what;
        EXPECT_EQ(r.added, AddedRows{}) << c.what;
        ASSERT_EQ(messages.entries.size(), 1u) << c.what;
        const auto& m = messages.entries[0];
        EXPECT_EQ(test::shown(messages)[0].substr(0, c.message.size()), c.message) << c.what;
        EXPECT_NE(m.text.find(settings.StatsFile), std::string::npos) << c.what;
        if (c.failAt) {
            EXPECT_NE(m.text.find(std::string(c.failAt) + ": disk read error"), std::string::npos) << m.text;
        }
        if (c.existing) {
            EXPECT_EQ(bytesOf(settings.StatsFile), before) << c.what;
        } else {
            EXPECT_FALSE(fs::exists(settings.StatsFile)) << c.what;
        }
    }
}

TEST(StatsRefresh, WhereTheDatabaseIsAndWhatItMustBe) {
    const std::string notFound =
        "Refuse|Stats database not found|The stats database was not updated with this weeks data\r\n\r\n"
        "This program is expecting the stats database (main.mdb) to be located in ";
    struct Case {
        const char* what;
        std::string file;                // StatsFile below the game folder ("" leaves it empty)
        std::function<void(const std::string&)> prepare;
        RefreshStatus status;
        std::string message;             // the start of the one message shown
    };
    const std::vector<Case> cases = {
        {"a folder that isn't there", "gone/main.mdb", {}, RefreshStatus::NotFound, notFound},
        {"a file of another program", "main.mdb",
         [](const std::string& f) { writeFileAtomic(f, std::string("\0\1\0\0Standard Jet DB", 19)); },
         RefreshStatus::Unusable, "Refuse|Stats database not usable|The file "},
        {"an SQLite database of other tables", "other.db",
         [](const std::string& f) { SQLite::Database(f, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec("CREATE TABLE Clubs (x)"); },
         RefreshStatus::Unusable, "Refuse|Stats database not usable|The file "},
        {"an empty setting becomes stats.db and is saved", "", {}, RefreshStatus::Done,
         "Inform|Stats load complete|Stats Database refreshed"},
    };
    for (const Case& c : cases) {
        test::TempDir dir;
        writeWeek(dir);
        Settings settings = statsSettings(dir, c.file);
        if (c.file.empty()) settings.StatsFile.clear();
        if (c.prepare) c.prepare(settings.StatsFile);
        const std::string before = c.prepare ? bytesOf(settings.StatsFile) : "";
        RecordingMessages messages;
        const RefreshResult r = refreshStats(GameFolder(dir.path()), settings, messages);
        EXPECT_EQ(r.status, c.status) << c.what;
        ASSERT_EQ(messages.entries.size(), 1u) << c.what;
        EXPECT_EQ(test::shown(messages)[0].substr(0, c.message.size()), c.message) << c.what;
        if (c.prepare) {
            EXPECT_EQ(bytesOf(settings.StatsFile), before) << c.what;
        }
        if (c.status == RefreshStatus::NotFound) {
            EXPECT_NE(messages.entries[0].text.find((dir.path() / "gone").string() +
                                                    "\r\nThis folder can be changed in the preferences screen"),
                      std::string::npos);
            EXPECT_FALSE(fs::exists(dir.path() / "gone"));
        }
        if (c.file.empty()) {
            EXPECT_EQ(settings.StatsFile, (dir.path() / "stats.db").string());
            EXPECT_TRUE(r.settingsSaved);
            EXPECT_EQ(readSettings(dir.path()).StatsFile, settings.StatsFile);
            EXPECT_EQ(r.added.MatchMain, 1);
        }
    }
}

TEST(StatsHonours, SeasonsOfThirtyEightGamesAndCupFinals) {
    test::TempDir dir;
    writeWeek(dir);
    Settings settings = statsSettings(dir);
    RecordingMessages messages;
    ASSERT_EQ(refreshStats(GameFolder(dir.path()), settings, messages).status, RefreshStatus::Done);
    // A week inside the next season is no finished season.
    writeWeek(dir, 23);
    dir.write("Weekly/ENGTABS.TXT", joinCrLf(test::week::leagueTable(12, 20)));
    ASSERT_EQ(refreshStats(GameFolder(dir.path()), settings, messages).status, RefreshStatus::Done);

    struct Case {
        std::string club;
        std::string title;
        std::vector<HonoursRow> rows;
    };
    const std::vector<Case> cases = {
        {"KEST", "Club history of Kestrel Rovers",
         {{"16/05/2026", "English Premier", "2", "71", "Port Elm Athletic", "80"},
          {"16/05/2026", "Elite Cup", "Winners", "", "Port Elm Athletic", ""},
          {"23/05/2026", "Elite Cup", "Winners", "", "Port Elm Athletic", ""}}},
        {"Port Elm Athletic", "Club history of Port Elm Athletic",
         {{"16/05/2026", "English Premier", "1", "80", "Port Elm Athletic", "80"},
          {"16/05/2026", "Elite Cup", "Runners Up", "", "Kestrel Rovers", ""},
          {"23/05/2026", "Elite Cup", "Runners Up", "", "Kestrel Rovers", ""}}},
        {"King's Lynn Town", "Club history of King's Lynn Town",
         {{"16/05/2026", "English Premier", "3", "0", "Port Elm Athletic", "80"}}},
    };
    for (const Case& c : cases) {
        const std::optional<Honours> h = clubHonours(settings, c.club, messages);
        ASSERT_TRUE(h) << c.club;
        EXPECT_EQ(h->Title, c.title);
        EXPECT_EQ(h->Rows, c.rows) << c.club;
    }

    messages.entries.clear();
    settings.StatsFile = (dir.path() / "nothing.db").string();
    EXPECT_FALSE(clubHonours(settings, "KEST", messages));
    EXPECT_EQ(test::shown(messages),
              std::vector<std::string>{
                  "Refuse|Can't find the stats database|You need the Stats database to be able to use this option."
                  "\r\n\r\nIf you have the database, but this option still isn't working, then make sure you have "
                  "set the location correctly in the preferences screen"});
}
