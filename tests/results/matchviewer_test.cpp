// The Match viewer's reader, stepped a tick at a time: what a report's lines
// show, in which colours, and which pictures they bring.
#include <gtest/gtest.h>

#include <set>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "demo/league.h"
#include "results/matchviewer.h"
#include "support/testsupport.h"

using namespace kestrin;
using namespace kestrin::results;
using E = ViewerEvent;

namespace kestrin::results {
void PrintTo(const ViewerRow& r, std::ostream* os) { *os << std::hex << "{\"" << r.text << "\", " << r.back << ", " << r.fore << "}"; }
}  // namespace kestrin::results

namespace {

struct Replayed {
    std::vector<ViewerRow> rows;
    std::vector<ViewerEvent> events;
    std::string homeName;
};

Replayed replay(const std::vector<std::string>& lines) {
    MatchReplay r(lines, "Squadsheets/TEST#REP.TXT");
    Replayed out;
    for (ViewerTick t = r.tick(0); t.kind != ViewerTick::Kind::Ended; t = r.tick(0)) {
        out.rows.insert(out.rows.end(), t.rows.begin(), t.rows.end());
        out.events.insert(out.events.end(), t.events.begin(), t.events.end());
    }
    out.homeName = r.homeName();
    return out;
}

const std::string kHeading = "Kestrel Rovers v PORT ELM";
constexpr ReportColour kGreen = 0x00FF00, kRed = 0x0000FF, kBlack = 0;

}  // namespace

TEST(MatchViewer, LinesBecomeRowsInTheirColours) {
    const std::string wide = std::string(100, 'a') + "      " + std::string(106, 'b') + "    " + std::string(84, 'c');
    const struct {
        const char* name;
        std::vector<std::string> lines;
        std::vector<ViewerRow> rows;  // after the heading's row
    } cases[] = {
        {"scoreboard, pitch markers and possession figures are hidden",
         {"Kestrel Rovers, 1  PORT ELM 0", "HG", "M", "AS", "HGX", "Possession breakdowns with 80 minutes gone",
          "Home mid - away mid 50 - 50", "Last ten minutes possession 52 - 48", "Kestrel Rovers 1 is the score"},
         {{"HGX"}, {"Kestrel Rovers 1 is the score"}}},
        {"a long line gives rows of 106, trimmed, all in the pair's colours",
         {"&H0000FF00&", "&H000000FF&", wide, "", "next"},
         {{std::string(100, 'a'), kGreen, kRed},
          {std::string(106, 'b'), kGreen, kRed},
          {std::string(84, 'c'), kGreen, kRed},
          {" ", kGreen, kRed},
          {"next", kGreen, kRed}}},
        {"a colour line without a number keeps the last colour",
         {"&H0000FF00&", "&H000000FF&", "one", "&Hzz&", "&H00000000&", "two", "&H0000FF00&", "&", "three"},
         {{"one", kGreen, kRed}, {"two", kGreen, kBlack}, {"three", kGreen, kBlack}}},
        {"equal colours are never invisible",
         {"&H0000FF00&", "&H0000FF00&", "seen"},
         {{"seen", kReportWhite, kReportBlue}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<std::string> lines{kHeading};
        lines.insert(lines.end(), c.lines.begin(), c.lines.end());
        const Replayed got = replay(lines);
        std::vector<ViewerRow> want{{kHeading}};  // before any colour pair: blue on white
        want.insert(want.end(), c.rows.begin(), c.rows.end());
        EXPECT_EQ(got.rows, want);
    }
}

TEST(MatchViewer, PicturesComeByTheFirstPhraseAndHalfTimeOnce) {
    const struct {
        const char* name;
        std::vector<std::string> lines;
        std::vector<ViewerEvent> events;
    } cases[] = {
        {"booked, and booked this season", {"L Cole has been booked", "His 5th booked this season"}, {E::Booking}},
        {"sent off, and sent off this season", {"L Cole has been SENT off", "sent off twice this season"},
         {E::SendingOff}},
        {"one picture a line, by the order of the test",
         {"T Baxter SCORED and was booked", "Kestrel Rovers win a corner", "Hale is replaced by Moor",
          "ANALYSIS FOR SUBSTITUTION DID TAKE PLACE", "PORT ELM adjusted themselves", "REFEREE BLOWS FOR FULL TIME"},
         {E::Booking, E::Corner, E::Substitution, E::TacticalChange, E::TacticalChange, E::FullTime}},
        {"half time at the first minute past 45, once, before the line's own",
         {"45 mins - Nearly there", "46 mins - T Baxter SCORED", "47 mins - Again", "88 mins - Late on"},
         {E::HalfTime, E::Goal}},
        {"a hidden line brings nothing", {"Kestrel Rovers, 50 mins - booked", "50 mins - quiet"}, {E::HalfTime}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<std::string> lines{kHeading};
        lines.insert(lines.end(), c.lines.begin(), c.lines.end());
        EXPECT_EQ(replay(lines).events, c.events);
    }
}

// The timer's interval, pause, stop and the end of the report.
TEST(MatchViewer, TicksFollowTheButtonsAndTheSlider) {
    MatchReplay r({kHeading, std::string(kSectionLine), "one", "two", "three"}, "X#REP.TXT");
    EXPECT_EQ(r.tick(1000).intervalMs, 100);
    EXPECT_EQ(r.tick(1000).intervalMs, 1100);  // the section's pause whatever the speed
    r.setPaused(true);
    EXPECT_EQ(r.tick(0).kind, ViewerTick::Kind::Idle);
    r.setPaused(false);
    const ViewerTick one = r.tick(400);
    EXPECT_EQ(one.intervalMs, 700);
    EXPECT_EQ(one.rows, std::vector<ViewerRow>{{"one"}});
    r.setPaused(true);
    r.askStop();
    EXPECT_EQ(r.tick(0).kind, ViewerTick::Kind::Stopped);  // paused or not
    EXPECT_FALSE(r.running() || r.paused());
    EXPECT_EQ(r.tick(0).kind, ViewerTick::Kind::Idle);

    MatchReplay done({kHeading}, "X#REP.TXT");
    done.tick(0);
    done.setPaused(true);
    EXPECT_EQ(done.tick(0).kind, ViewerTick::Kind::Ended);  // the end comes even when paused
}

TEST(MatchViewer, ClosingStatisticsOnlyForAFinishedMatch) {
    const MatchReplay going({kHeading, "60 mins - still on"}, "X");
    EXPECT_FALSE(going.finished());
    const MatchReplay done({kHeading, "REFEREE BLOWS FOR FULL TIME", "Finishing Club statistics for Kestrel Rovers",
                            "Style   Movement", "12   9"},
                           "X");
    EXPECT_TRUE(done.finished());
    EXPECT_EQ(done.closingStatistics(), "Style   Movement\r\n12   9\r\n");
}

TEST(MatchViewer, AReportThatCantBeReadNamesFileAndLine) {
    const struct {
        const char* name;
        std::vector<std::string> lines;
        int line;
    } cases[] = {
        {"a colour pair cut off by the end", {kHeading, "text", "&H00FFFFFF&"}, 3},
        {"a colour too big", {kHeading, "&H00FFFFFF&", "&H1FFFFFFFF&", "text"}, 3},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        try {
            MatchReplay r(c.lines, "Squadsheets/KEST#REP.TXT");
            ADD_FAILURE() << "read";
        } catch (const GameFileError& e) {
            EXPECT_EQ(e.file, "Squadsheets/KEST#REP.TXT");
            EXPECT_EQ(e.line, c.line);
        }
    }
    test::TempDir t;
    EXPECT_THROW(MatchReplay::fromFile(t.path() / "none#REP.TXT", "Squadsheets/none#REP.TXT"), GameFileError);
}

TEST(MatchViewer, SearchFindsAnyOfTheWordsInAnyCase) {
    EXPECT_EQ(searchTerms(" Cole , ,BAXTER,"), (std::vector<std::string>{"cole", "baxter"}));
    const std::vector<std::string> lines{kHeading,      "  L Cole has been booked  ", "&H0000FF00&", "&H000000FF&",
                                         "T Baxter SCORED", "Nobody here", "&H cole &"};
    EXPECT_EQ(searchReport(lines, searchTerms("cole, baxter")),
              (std::vector<ViewerRow>{{"L Cole has been booked"}, {"T Baxter SCORED", kGreen, kRed}}));
    EXPECT_TRUE(searchReport(lines, {"nothing"}).empty());
}

// Every demo report replays to its end, brings each picture, half time once,
// and shows none of its colour pairs, markers or scoreboards.
TEST(MatchViewer, DemoReportsReplayWithEveryPicture) {
    test::TempDir t;
    const DemoOptions options = test::smallDemo(35);
    makeDemoLeague(t.path(), options);
    // A sending off is rare: its picture is owed only when the week had one.
    const demo::League league(options);
    bool sentOff = false;
    for (const demo::Match& m : league.weekMatches())
        for (const demo::MatchSide& side : m.side)
            sentOff |= league.clubs()[m.side[0].club].managed() + league.clubs()[m.side[1].club].managed() > 0 &&
                       !side.sentOff.empty();
    const GameFolder folder(t.path());
    std::set<ViewerEvent> seen;
    const std::vector<std::string> reports = folder.list("Squadsheets", "*#REP.TXT");
    ASSERT_FALSE(reports.empty());
    for (const std::string& name : reports) {
        SCOPED_TRACE(name);
        const std::vector<std::string> lines = readLines(folder.resolve("Squadsheets/" + name));
        MatchReplay r(lines, name);
        EXPECT_TRUE(r.finished());
        EXPECT_EQ(r.closingStatistics().rfind("Style", 0), 0u);
        const Replayed got = replay(lines);
        EXPECT_EQ(std::count(got.events.begin(), got.events.end(), E::HalfTime), 1);
        seen.insert(got.events.begin(), got.events.end());
        std::set<ReportColour> backs;
        for (const ViewerRow& row : got.rows) {
            EXPECT_NE(row.text[0], '&') << row.text;
            EXPECT_EQ(row.text.find(got.homeName + ","), std::string::npos) << row.text;
            EXPECT_GT(row.text.size(), row.text == " " ? 0u : 2u) << row.text;
            backs.insert(row.back);
        }
        EXPECT_GE(backs.size(), 3u);
    }
    EXPECT_EQ(seen.count(E::SendingOff), size_t(sentOff));
    EXPECT_EQ(seen.size(), 7u + sentOff) << "missing a kind of picture";
}
