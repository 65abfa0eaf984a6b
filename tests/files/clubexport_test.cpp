#include "files/clubexport.h"

#include <gtest/gtest.h>

#include <functional>

#include "core/gamefolder.h"
#include "core/session.h"
#include "demo/demo.h"
#include "files/turnsheet.h"
#include "support/testsupport.h"

using namespace kestrin;

namespace {

// The lines as a file whose last line has no line end.
ClubExport read(const std::vector<std::string>& lines) {
    std::string bytes = joinCrLf(lines);
    if (!bytes.empty()) bytes.resize(bytes.size() - 2);
    return readClubExport(std::move(bytes), "Weekly/clubsqua.txt");
}

// The player's views are valid as long as the export lives.
std::pair<ClubExport, ExportPlayer> exportPlayer(const std::string& line) {
    ClubExport clubs = read({"CLUB SQUADS", "EXPORT FOR Kestrel Rovers", "Name - Age Pos", line});
    if (clubs.size() != 1 || clubs[0].Players.size() != 1) {
        ADD_FAILURE() << "expected one club of one player";
        return {};
    }
    const ExportPlayer p = clubs[0].Players[0];
    return {std::move(clubs), p};
}

}  // namespace

TEST(ClubExport, ReadsClubsAndEveryFieldOfAPlayerAndGoesOnAfterABadLine) {
    const ClubExport clubs = read({
        "CLUB SQUADS AFTER TURN 312",
        "EXPORT FOR Kestrel Rovers",
        "Name              - Age Pos  TS Sign Pld Perf Gls Min Max Portrait Loan Club Managed Colours",
        "Tom Baxter        - 24 DEFC 103 14 11 61 1 125000 150000 1 4 2 7 3 5.5 2.5 0 N Red White",
        "Ian Hale          - 22 MIDC 98 12 9 55 0 #NULL# #NULL# 3 2 6 1 4 2 2 4 Port Elm Athletic Y Blue and Gold",
        "EXPORT FOR Port Elm Athletic",
        "Name              - Age Pos  TS Sign Pld Perf Gls Min Max Portrait Loan Club Managed Colours",
        "Al Reyes - 21 MIDL 90 10 5 50 0 12x 2000 1 1 1 1 1 1 1 0 N Red",
        "Sam Ward          - 30 STRC 131 18 12 70 9 400000 450000 2 2 2 2 2 2 2 0 Y Black",
    });
    struct WantClub {
        std::string_view Name;
        std::vector<ExportPlayer> Players;
    };
    const std::vector<WantClub> want = {
        {"Kestrel Rovers",
         {{"Tom Baxter", "24", "DEFC", "103", "14", "11", "61", "1", 125000, "150000", {1, 4, 2, 7, 3, 6, 2},
           "Red White ", 0, "", "N"},
          {"Ian Hale", "22", "MIDC", "98", "12", "9", "55", "0", 0, "0", {3, 2, 6, 1, 4, 2, 2}, "Blue and Gold ", 4,
           "Port Elm Athletic", "Y"}}},
        {"Port Elm Athletic",
         {{"Al Reyes", "21", "MIDL", "90", "10", "5", "50", "0", 0, "", {}, "", 0, "", ""},
          {"Sam Ward", "30", "STRC", "131", "18", "12", "70", "9", 400000, "450000", {2, 2, 2, 2, 2, 2, 2}, "Black ",
           0, "", "Y"}}},
    };
    ASSERT_EQ(clubs.size(), want.size());
    for (size_t c = 0; c < want.size(); ++c) {
        EXPECT_EQ(clubs[c].Name, want[c].Name);
        ASSERT_EQ(clubs[c].Players.size(), want[c].Players.size()) << want[c].Name;
        for (size_t p = 0; p < want[c].Players.size(); ++p)
            EXPECT_EQ(clubs[c].Players[p], want[c].Players[p]) << want[c].Players[p].Name;
    }
}

TEST(ClubExport, TailRuleAndLinesThatStopEarly) {
    // The player of reyesLine as far as it goes.
    const ExportPlayer reyes{"Al Reyes", "21", "MIDL", "90", "10", "5", "50", "0", 1000, "2000",
                             {1, 1, 1, 1, 1, 1, 1}, "", 0, "", ""};
    const std::string reyesLine = "Al Reyes - 21 MIDL 90 10 5 50 0 1000 2000 1 1 1 1 1 1 1 ";
    struct Case {
        const char* name;
        std::string line;
        std::function<void(ExportPlayer&)> want;  // changes to reyes
    } cases[] = {
        {"a flag word inside the loaning club ends it early", reyesLine + "3 Real N Madrid Y White",
         [](ExportPlayer& p) {
             p.Loan = 3;
             p.LoanClub = "Real";
             p.Managed = "N";
             p.Colours = "Madrid Y White ";
         }},
        {"no flag: the loaning club keeps its last blank", reyesLine + "3 Far Town",
         [](ExportPlayer& p) {
             p.Loan = 3;
             p.LoanClub = "Far Town ";
         }},
        {"a flag longer than one letter is a word of the club", reyesLine + "0 YES N Red",
         [](ExportPlayer& p) {
             p.LoanClub = "YES";
             p.Managed = "N";
             p.Colours = "Red ";
         }},
        {"runs of blanks between the words are joined to one", reyesLine + "3  Far   Town  Y  Red   White",
         [](ExportPlayer& p) {
             p.Loan = 3;
             p.LoanClub = "Far Town";
             p.Managed = "Y";
             p.Colours = "Red White ";
         }},
        {"a loan of a decimal is rounded", reyesLine + "2.5 N", [](ExportPlayer& p) {
             p.Loan = 2;
             p.Managed = "N";
         }},
        {"a loan beyond 16 bits stops before the tail", reyesLine + "40000 Far Y Red", [](ExportPlayer&) {}},
        {"a bad number leaves the remaining fields as they are",
         "Al Reyes - 21 MIDL 90 10 5 50 0 1000 2000 1 1 x1 1 1 1 1 3 Far Town Y Red",
         [](ExportPlayer& p) { p.Portrait = {1, 1, 0, 0, 0, 0, 0}; }},
        {"a short line keeps what it has", "Al Reyes - 21 MIDL 90",
         [](ExportPlayer& p) {
             p.Sign = p.Played = p.Perf = p.Goals = p.MaxValue = "";
             p.MinValue = 0;
             p.Portrait = {};
         }},
        {"a line without \"- \" is all name", "  Reserves to follow  ",
         [](ExportPlayer& p) {
             p = ExportPlayer{};
             p.Name = "Reserves to follow";
         }},
        {"the name is split at the first \"- \" only",
         "Jean-Luc Gras - 21 MIDL 90 10 5 50 0 1000 #NULL# 1 1 1 1 1 1 1 0 N - Green",
         [](ExportPlayer& p) {
             p.Name = "Jean-Luc Gras";
             p.MaxValue = "0";
             p.Managed = "N";
             p.Colours = "- Green ";
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ExportPlayer want = reyes;
        c.want(want);
        EXPECT_EQ(exportPlayer(c.line).second, want);
    }
}

TEST(ClubExport, HeadersAndTheLinesAroundThem) {
    struct Case {
        const char* name;
        std::vector<std::string> lines;
        std::vector<std::pair<std::string, std::vector<std::string>>> want;  // club, player names
    } cases[] = {
        {"the first line is dropped even when it is a header",
         {"EXPORT FOR Nobody", "EXPORT FOR Kestrel Rovers", "headings", "Tom - 24"},
         {{"Kestrel Rovers", {"Tom"}}}},
        {"two headers in a row: the second is dropped and its club joins the first",
         {"title", "EXPORT FOR Kestrel Rovers", "EXPORT FOR Port Elm", "Tom - 24", "EXPORT FOR Harwick", "headings",
          "Sam - 30"},
         {{"Kestrel Rovers", {"Tom"}}, {"Harwick", {"Sam"}}}},
        {"the line after the headings is a player whatever it holds",
         {"title", "EXPORT FOR Kestrel Rovers", "headings", "EXPORT FOR Port Elm", "Tom - 24"},
         {{"Kestrel Rovers", {"EXPORT FOR Port Elm", "Tom"}}}},
        {"players before the first header belong to no club",
         {"title", "Tom - 24", "EXPORT FOR Kestrel Rovers", "headings", "Sam - 30"}, {{"Kestrel Rovers", {"Sam"}}}},
        {"an empty file", {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<std::pair<std::string, std::vector<std::string>>> got;
        for (const ExportClub& club : read(c.lines)) {
            auto& entry = got.emplace_back(club.Name, std::vector<std::string>{});
            for (const ExportPlayer& p : club.Players) entry.second.emplace_back(p.Name);
        }
        EXPECT_EQ(got, c.want);
    }
}

TEST(ClubExport, ACopiedSessionKeepsTheExportWhenTheOriginalIsGone) {
    // Mid-file lines end in CR LF, the last one in nothing: both ways of
    // putting the blank behind the last colour are taken.
    Session copy;
    {
        Session original;
        original.ExportClubs = read({"title", "EXPORT FOR Kestrel Rovers", "headings",
                                     "Tom - 24 DEFC 103 14 11 61 1 100 #NULL# 1 1 1 1 1 1 1 2 Port  Elm Y Red White",
                                     "Sam - 30 STRC 131 18 12 70 9 100 200 1 1 1 1 1 1 1 0 N Blue"});
        Session moved = std::move(original);
        copy = moved;
    }
    ASSERT_EQ(copy.ExportClubs.size(), 1u);
    const ExportClub& club = copy.ExportClubs[0];
    EXPECT_EQ(club.Name, "Kestrel Rovers");
    ASSERT_EQ(club.Players.size(), 2u);
    EXPECT_EQ(club.Players[0].Name, "Tom");
    EXPECT_EQ(club.Players[0].MaxValue, "0");
    EXPECT_EQ(club.Players[0].LoanClub, "Port Elm");
    EXPECT_EQ(club.Players[0].Colours, "Red White ");
    EXPECT_EQ(club.Players[1].Colours, "Blue ");
    EXPECT_EQ(club.Players[1].Managed, "N");
}

// The club export is read beside the rest of the load, yet a file that can't
// be read is told in its own place among the load's problems.
TEST(ClubExport, AnUnreadableExportIsToldInItsPlaceAmongTheLoadsProblems) {
    test::TempDir t;
    makeDemoLeague(t.path(), test::smallDemo(3));
    const Session good = test::loadQuietly(t.path());
    ASSERT_TRUE(good.LoadProblems.empty());
    ASSERT_FALSE(good.ExportClubs.empty());
    // A folder where a file is looked for: a Turnsheet, read before the
    // export, and the managers list, read after it.
    const GameFolder folder(t.path());
    for (const fs::path& path : {turnsheetPath(good, good.Clubs[0]), folder.resolve("Weekly/EMAILS.TXT")}) {
        fs::remove(path);
        fs::create_directories(path / "inside");
    }
    fs::remove(folder.resolve("Weekly/clubsqua.txt"));

    const Session s = test::loadQuietly(t.path());
    EXPECT_EQ(s.ClubCount(), good.ClubCount());
    EXPECT_TRUE(s.ExportClubs.empty());
    ASSERT_EQ(s.LoadProblems.size(), 3u);
    EXPECT_TRUE(s.LoadProblems[0].starts_with("The Turnsheet ")) << s.LoadProblems[0];
    EXPECT_TRUE(s.LoadProblems[1].starts_with("The club export ")) << s.LoadProblems[1];
    EXPECT_TRUE(s.LoadProblems[2].starts_with("The managers list ")) << s.LoadProblems[2];
}

TEST(ClubExport, ALargeFileReadsAsASmallOneWouldWhereverItsMiddleFalls) {
    // Past a quarter of a megabyte the file is read in two halves; a club
    // whose headings and first player look like headers must not be cut.
    struct Case {
        const char* name;
        std::function<std::vector<std::string>(int)> club;  // the lines of club n, header first
        std::function<std::vector<std::string>(int)> players;
    } cases[] = {
        {"plain clubs",
         [](int n) {
             std::vector<std::string> l = {"EXPORT FOR Club " + std::to_string(n), "Name - Age Pos"};
             for (int p = 0; p < 5; ++p) l.push_back("Player " + std::to_string(n * 5 + p) + " - 24 DEFC 120 2");
             return l;
         },
         [](int n) {
             std::vector<std::string> names;
             for (int p = 0; p < 5; ++p) names.push_back("Player " + std::to_string(n * 5 + p));
             return names;
         }},
        {"headers in the headings and first player's places",
         [](int n) {
             return std::vector<std::string>{"EXPORT FOR Club " + std::to_string(n), "EXPORT FOR Headings",
                                             "EXPORT FOR First " + std::to_string(n), "Last " + std::to_string(n) + " - 30"};
         },
         [](int n) { return std::vector<std::string>{"EXPORT FOR First " + std::to_string(n), "Last " + std::to_string(n)}; }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        constexpr int kClubs = 9000;
        std::vector<std::string> lines = {"CLUB SQUADS"};
        for (int n = 0; n < kClubs; ++n)
            for (std::string& l : c.club(n)) lines.push_back(std::move(l));
        const ClubExport clubs = read(lines);
        ASSERT_EQ(clubs.size(), size_t(kClubs));
        for (int n = 0; n < kClubs; ++n) {
            std::vector<std::string> names;
            for (const ExportPlayer& p : clubs[size_t(n)].Players) names.emplace_back(p.Name);
            ASSERT_EQ(clubs[size_t(n)].Name, "Club " + std::to_string(n));
            ASSERT_EQ(names, c.players(n)) << "club " << n;
        }
    }
}
