// The Vidiprinter over an afternoon written here: a league of five with a
// nine-goal match and a goal in injury time, a cup tie settled on penalties,
// a friendly, and the watch options and alerts.
#include <gtest/gtest.h>

#include "core/text.h"
#include "results/vidiprinter.h"
#include "support/testsupport.h"

using namespace kestrin;
using namespace kestrin::results;
using namespace kestrin::test;

namespace {

const std::string kHeading = "Pos  Club                  PYD    W    D    L   GF   GA  Mgd  Frm        GD   PTS";

std::string tableRow(int place, const std::string& club, int gd, int pts) {
    std::string r = fixedWidth(padLeft(std::to_string(place), 4) + " " + club, kHeading.size());
    r.replace(kHeading.find(" GD") + 1, 4, padLeft(std::to_string(gd), 4));
    r.replace(kHeading.find(" PTS") + 1, 3, padLeft(std::to_string(pts), 3));
    return r;
}

// The table after the week: Elmstead didn't play.
std::vector<std::string> premierTable() {
    return {"PREMIER - TABLE", "", kHeading, std::string(kHeading.size(), '-'),
            tableRow(1, "Ashford Town", 5, 10), tableRow(2, "Carlton Rovers", 12, 9), tableRow(3, "Elmstead", 4, 8),
            tableRow(4, "Bexley United", -1, 6), tableRow(5, "Dunmore", -10, 2), "", "Three points for a win"};
}

std::vector<std::string> premierResults() {
    return {"PREMIER RESULTS",
            "Ashford Town (1)  2 - 1  (0)  Bexley United   12345",
            "\\A. Smith  10\\Benedict Jonesworth  95 MOM A. Smith",
            "\\C. Brown  30 MOM C. Brown",
            "Carlton Rovers (5)  9 - 0  (0)  Dunmore    5000",
            "\\P. One   1\\P. Two   2\\P. Three   3\\P. Four   4\\P. Five   5\\P. Six   6\\P. Seven   7"
            "\\P. Eight   8\\P. Nine   9 MOM P. Nine",
            " MOM D. Keeper"};
}

struct Afternoon {
    TempDir dir;
    Vidiprinter vidi;
    explicit Afternoon(VidiWatch watch = {}, std::vector<std::string> results = premierResults())
        : vidi(game(), std::move(watch)) {
        dir.write("Weekly/ENGTABS.TXT", joinCrLf(premierTable()));
        dir.write("Weekly/ENG.TXT", joinCrLf(results));
        dir.write("Weekly/EngLC.txt", joinCrLf({"CUP RESULTS", "Elmstead (0)  1 - 1  (1)  Dunmore AGG  3 - 3 PENS   12345",
                                                "\\E. Ward  40 MOM E. Ward", "\\D. Lane  50 MOM D. Lane"}));
        dir.write("Weekly/FR.TXT", joinCrLf({"FRIENDLIES", "Elmstead (0)  0 - 0  (0)  Carlton Rovers   800", " MOM A",
                                             " MOM B"}));
        vidi.start(GameFolder(dir.path()));
    }
    static GameIni game() {
        GameIni g;
        g.LeagueNames[1] = "Premier";
        g.LeagueCodes[1] = "Prem";
        return g;
    }
    // Ticks up to and including `minute`; the ticker lines they added.
    std::vector<std::string> to(int minute, std::vector<std::string>* alerts = nullptr) {
        std::vector<std::string> lines;
        while (vidi.minute() < minute) {
            VidiTick t = vidi.tick();
            lines.insert(lines.end(), t.lines.begin(), t.lines.end());
            if (alerts && t.alert) alerts->push_back(*t.alert);
        }
        return lines;
    }
    std::vector<std::string> order(int set = 1) {
        std::vector<std::string> out;
        for (const VidiPlace& p : vidi.standings(set))
            out.push_back(p.name + " " + std::to_string(p.points + p.livePoints) + " " +
                          std::to_string(p.goalDiff + p.liveGoalDiff));
        return out;
    }
};

}  // namespace

TEST(Vidiprinter, MatchLines) {
    struct Case {
        std::string line, home, away;
        int h, a;
        bool tie;
        int aggHome, aggAway;
    } cases[] = {
        {"Ashford Town (1)  2 - 1  (0)  Bexley United   12345", "ASHFORD TOWN", "BEXLEY UNITED", 2, 1, false, 0, 0},
        {"Elmstead (0) 10 - 0  (0)  Dunmore AGG 12 - 3 PENS   12345", "ELMSTEAD", "DUNMORE", 10, 0, true, 2, 3},
        {"Elmstead (0)  2 - 1  (1)  Dunmore AGG  3 - 3 AWAY   12345", "ELMSTEAD", "DUNMORE", 2, 1, true, 1, 2},
    };
    for (const Case& c : cases) {
        const VidiMatch m = parseVidiMatchLine(c.line);
        EXPECT_EQ(m.home, c.home) << c.line;
        EXPECT_EQ(m.away, c.away) << c.line;
        EXPECT_EQ(std::vector<int>({m.homeGoals, m.awayGoals, m.tie, m.aggHome, m.aggAway}),
                  std::vector<int>({c.h, c.a, c.tie, c.aggHome, c.aggAway}))
            << c.line;
    }
}

TEST(Vidiprinter, AnAfternoon) {
    Afternoon g(VidiWatch{.managed = {"Carlton Rovers"}, .alerts = {"Bexley United", "Dunmore"}});
    Vidiprinter& v = g.vidi;
    ASSERT_TRUE(v.problems().empty());
    EXPECT_EQ(v.clockText(), "0 minutes");
    // Wound back to the start of the week; those who play are a point up, Elmstead level with
    // Ashford stays behind it.
    EXPECT_EQ(g.order(), (std::vector<std::string>{"Ashford Town 8 4", "Elmstead 8 4", "Carlton Rovers 7 3",
                                                   "Bexley United 7 0", "Dunmore 3 -1"}));
    std::vector<std::string> offered;
    for (const VidiSet& s : v.offered()) offered.push_back(std::to_string(s.number) + " " + s.names.label);
    EXPECT_EQ(offered, (std::vector<std::string>{"1 Prem", "44 Prem L.C.", "15 Friendly"}));

    std::vector<std::string> alerts;
    g.to(9, &alerts);
    EXPECT_EQ(alerts.size(), 7u) << "one alert a goal shown, seven at most";
    EXPECT_EQ(alerts.back(), "INVOLVING CARLTON ROVERS");
    const std::vector<std::string> tenth = g.to(10, &alerts);
    EXPECT_EQ(alerts.back(), "INVOLVING BEXLEY UNITED");
    ASSERT_EQ(tenth.size(), 1u);
    const std::string line = std::string("Prem      ") + " " + "ASHFORD TOWN        " + "  1 - 0   " +
                             "bexley united       " + std::string(10, ' ') + "A. Smith    " + "  (10)";
    EXPECT_EQ(tenth[0], line);
    EXPECT_EQ(v.ticker().front(), line);
    EXPECT_EQ(g.order(), (std::vector<std::string>{"Ashford Town 10 5", "Carlton Rovers 9 10", "Elmstead 8 4",
                                                   "Bexley United 6 -1", "Dunmore 2 -8"}));

    g.to(40);
    EXPECT_EQ(v.ticker().front().substr(0, 51), "Prem L.C.  ELMSTEAD              1 - 0   dunmore   ");
    EXPECT_EQ(v.scoresText(44), "ELMSTEAD (3)                1  -  0   DUNMORE (2)");
    EXPECT_EQ(v.tableText(44), "No Tables for Premier League Cup");
    EXPECT_EQ(v.tableText(15), "No Tables for Friendlies ");

    g.to(91);
    EXPECT_EQ(v.clockText(), "Injury Time");
    const std::vector<std::string> late = g.to(95);
    ASSERT_EQ(late.size(), 1u);
    EXPECT_EQ(late[0].substr(late[0].size() - 18), "Benedict Jon  (95)");
    EXPECT_EQ(v.ticker().size(), 7u + 5u);
    g.to(100);
    EXPECT_EQ(v.state(), Vidiprinter::State::Running);
    EXPECT_TRUE(v.tick().finished);
    EXPECT_EQ(v.clockText(), "All Games Completed");
    EXPECT_EQ(v.ticker().size(), 12u) << "the eighth and ninth goals never come up";
    EXPECT_EQ(v.scoresText(1), "ASHFORD TOWN           2  -  1   BEXLEY UNITED\r\n"
                               "CARLTON ROVERS         9  -  0   DUNMORE");
    EXPECT_EQ(v.tableText(1), "Premier                  Goal Diff    Points\r\n"
                              " 1. Ashford Town                 5        10\r\n"
                              " 2. Carlton Rovers              12         9\r\n"
                              " 3. Elmstead                     4         8\r\n"
                              " 4. Bexley United               -1         6\r\n"
                              " 5. Dunmore                    -10         2");
}

TEST(Vidiprinter, WatchOptions) {
    struct Case {
        bool premierWatched;
        int current;
        size_t lines;  // on the ticker by full time
        size_t alerts;
    } cases[] = {
        {true, 1, 12, 12},
        {false, 1, 7 + 3, 0},  // the league on screen, its cup not
        {false, 15, 0, 0},
    };
    for (const Case& c : cases) {
        VidiWatch watch{.managed = {"Carlton Rovers", "Ashford Town", "Elmstead"}, .alerts = {"Dunmore"}};
        watch.options[0] = c.premierWatched;
        Afternoon g(watch);
        g.vidi.chooseSet(c.current);
        std::vector<std::string> alerts;
        g.to(101, &alerts);
        EXPECT_EQ(g.vidi.ticker().size(), c.lines) << c.premierWatched << c.current;
        EXPECT_EQ(alerts.size(), c.alerts) << c.premierWatched << c.current;
    }
}

TEST(Vidiprinter, BadLinesAreToldAndTheRestPlays) {
    struct Case {
        std::vector<std::string> results;
        std::string file;
        int line;
    } cases[] = {
        {{"PREMIER", "Ashford Town (1)  x - 1  (0)  Bexley United   12345"}, "Weekly/ENG.TXT", 2},
        {{"PREMIER", "Ashford Town (1)  1 - 0  (0)  Bexley United   12345", "\\A. Smith  1O MOM A"}, "Weekly/ENG.TXT", 3},
    };
    for (const Case& c : cases) {
        Afternoon g({}, c.results);
        ASSERT_EQ(g.vidi.problems().size(), 1u);
        EXPECT_EQ(g.vidi.problems()[0].file, c.file);
        EXPECT_EQ(g.vidi.problems()[0].line, c.line);
        EXPECT_EQ(g.vidi.offered().size(), 2u) << "the cup and the friendly still play";
    }
}
