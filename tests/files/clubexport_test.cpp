#include "files/clubexport.h"

#include <gtest/gtest.h>

#include <functional>

using namespace kestrin;

namespace {

std::vector<ExportClub> read(const std::vector<std::string>& lines) {
    return readClubExport(lines, "Weekly/clubsqua.txt");
}

ExportPlayer exportPlayer(const std::string& line) {
    std::vector<ExportClub> clubs = read({"CLUB SQUADS", "EXPORT FOR Kestrel Rovers", "Name - Age Pos", line});
    if (clubs.size() != 1 || clubs[0].Players.size() != 1) {
        ADD_FAILURE() << "expected one club of one player";
        return {};
    }
    return clubs[0].Players[0];
}

}  // namespace

TEST(ClubExport, ReadsClubsAndEveryFieldOfAPlayer) {
    std::vector<ExportClub> clubs = read({
        "CLUB SQUADS AFTER TURN 312",
        "EXPORT FOR Kestrel Rovers",
        "Name              - Age Pos  TS Sign Pld Perf Gls Min Max Portrait Loan Club Managed Colours",
        "Tom Baxter        - 24 DEFC 103 14 11 61 1 125000 150000 1 4 2 7 3 5.5 2.5 0 N Red White",
        "Ian Hale          - 22 MIDC 98 12 9 55 0 #NULL# #NULL# 3 2 6 1 4 2 2 4 Port Elm Athletic Y Blue and Gold",
        "EXPORT FOR Port Elm Athletic",
        "Name              - Age Pos  TS Sign Pld Perf Gls Min Max Portrait Loan Club Managed Colours",
        "Sam Ward          - 30 STRC 131 18 12 70 9 400000 450000 2 2 2 2 2 2 2 0 Y Black",
    });
    ASSERT_EQ(clubs.size(), 2u);
    EXPECT_EQ(clubs[0].Name, "Kestrel Rovers");
    EXPECT_EQ(clubs[1].Name, "Port Elm Athletic");
    ASSERT_EQ(clubs[0].Players.size(), 2u);
    ASSERT_EQ(clubs[1].Players.size(), 1u);

    const ExportPlayer& tom = clubs[0].Players[0];
    EXPECT_EQ(tom.Name, "Tom Baxter");
    EXPECT_EQ(tom.Age, "24");
    EXPECT_EQ(tom.Position, "DEFC");
    EXPECT_EQ(tom.TotalSkill, "103");
    EXPECT_EQ(tom.Sign, "14");
    EXPECT_EQ(tom.Played, "11");
    EXPECT_EQ(tom.Perf, "61");
    EXPECT_EQ(tom.Goals, "1");
    EXPECT_EQ(tom.MinValue, 125000);
    EXPECT_EQ(tom.MaxValue, "150000");
    EXPECT_EQ(tom.Portrait, (std::array<int32_t, 7>{1, 4, 2, 7, 3, 6, 2}));  // halves to the even neighbour
    EXPECT_EQ(tom.Loan, 0);
    EXPECT_EQ(tom.LoanClub, "");
    EXPECT_EQ(tom.Managed, "N");
    EXPECT_EQ(tom.Colours, "Red White ");

    const ExportPlayer& ian = clubs[0].Players[1];
    EXPECT_EQ(ian.Name, "Ian Hale");
    EXPECT_EQ(ian.MinValue, 0);
    EXPECT_EQ(ian.MaxValue, "0");
    EXPECT_EQ(ian.Portrait, (std::array<int32_t, 7>{3, 2, 6, 1, 4, 2, 2}));
    EXPECT_EQ(ian.Loan, 4);
    EXPECT_EQ(ian.LoanClub, "Port Elm Athletic");
    EXPECT_EQ(ian.Managed, "Y");
    EXPECT_EQ(ian.Colours, "Blue and Gold ");

    EXPECT_EQ(clubs[1].Players[0].Name, "Sam Ward");
    EXPECT_EQ(clubs[1].Players[0].Colours, "Black ");
}

TEST(ClubExport, TailRuleAndLinesThatStopEarly) {
    // The player of "Al Reyes - 21 MIDL 90 10 5 50 0 1000 2000 1 1 1 1 1 1 1" as far as it goes.
    auto reyes = [] {
        ExportPlayer p;
        p.Name = "Al Reyes";
        p.Age = "21";
        p.Position = "MIDL";
        p.TotalSkill = "90";
        p.Sign = "10";
        p.Played = "5";
        p.Perf = "50";
        p.Goals = "0";
        p.MinValue = 1000;
        p.MaxValue = "2000";
        p.Portrait = {1, 1, 1, 1, 1, 1, 1};
        return p;
    };
    const std::string reyesLine = "Al Reyes - 21 MIDL 90 10 5 50 0 1000 2000 1 1 1 1 1 1 1 ";
    struct Case {
        const char* name;
        std::string line;
        std::function<void(ExportPlayer&)> want;  // changes to reyes()
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
        ExportPlayer want = reyes();
        c.want(want);
        EXPECT_EQ(exportPlayer(c.line), want);
    }
}

TEST(ClubExport, ReadingGoesOnAfterABadLine) {
    std::vector<ExportClub> clubs = read({
        "CLUB SQUADS",
        "EXPORT FOR Kestrel Rovers",
        "headings",
        "Al Reyes - 21 MIDL 90 10 5 50 0 12x 2000 1 1 1 1 1 1 1 0 N Red",
        "Bo Lind - 25 DEFC 95 12 6 52 1 3000 4000 1 1 1 1 1 1 1 0 N Red",
    });
    ASSERT_EQ(clubs.size(), 1u);
    ASSERT_EQ(clubs[0].Players.size(), 2u);
    EXPECT_EQ(clubs[0].Players[0].Goals, "0");
    EXPECT_EQ(clubs[0].Players[0].MinValue, 0);
    EXPECT_EQ(clubs[0].Players[0].MaxValue, "");
    EXPECT_EQ(clubs[0].Players[1].MinValue, 3000);
    EXPECT_EQ(clubs[0].Players[1].Managed, "N");
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
        {"a header at the end of the file", {"title", "EXPORT FOR Kestrel Rovers", "headings"},
         {{"Kestrel Rovers", {}}}},
        {"players before the first header belong to no club",
         {"title", "Tom - 24", "EXPORT FOR Kestrel Rovers", "headings", "Sam - 30"}, {{"Kestrel Rovers", {"Sam"}}}},
        {"an empty file", {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<std::pair<std::string, std::vector<std::string>>> got;
        for (const ExportClub& club : read(c.lines)) {
            auto& entry = got.emplace_back(club.Name, std::vector<std::string>{});
            for (const ExportPlayer& p : club.Players) entry.second.push_back(p.Name);
        }
        EXPECT_EQ(got, c.want);
    }
}
