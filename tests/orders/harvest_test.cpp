#include <gtest/gtest.h>

#include <cstring>
#include <map>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/loader.h"
#include "core/text.h"
#include "files/loadturn.h"
#include "orders/harvest.h"
#include "orders/history.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::TempDir;

namespace {

using Lines = std::vector<std::string>;

// One managed club, "0042", whose Squadsheet ends in the report given.
struct Sheet {
    TempDir dir;
    Session s;
    RecordingMessages messages;
    explicit Sheet(const Lines& report, bool newTurn = true) {
        s.Folder = GameFolder(dir.path());
        s.Prefs = defaultSettings(dir.path());
        s.TurnStamp = "****** 21/11/2026 at 19:04:11";
        s.NewTurn = newTurn;
        Club c;
        c.Name = "Kestrel Rovers";
        c.ClubFile = "0042";
        s.Clubs.push_back(c);
        Lines all{"Club and player information for Kestrel Rovers", "REPORT ON THE TURN",
                  "Coaching went well (DEFC) increases his PA to 3", "Turnsheet processed for Kestrel Rovers"};
        all.insert(all.end(), report.begin(), report.end());
        dir.write("Squadsheets/0042SQUA.TXT", joinCrLf(all));
        dir.write("Weekly/EMAILS.TXT", "MANAGERS\r\nClub - address (manager)\r\n"
                                       "Kestrel Rovers - pat@example.org (Pat Quinn)\r\n");
    }
    void harvest() { harvestReports(s, messages); }
    std::string file(const char* name) const { return fs::exists(dir.path() / name) ? dir.read(name) : std::string(); }
};

std::string int16le(int v) { return {char(v & 0xFF), char((v >> 8) & 0xFF)}; }

std::string hst(const std::string& name, const char* pos, char result, const char* skill, int value) {
    return "20261121" + fixedWidth(name, 30) + pos + result + skill + int16le(value);
}

}  // namespace

TEST(Harvest, EachKindOfLineGivesItsMemoAndRecords) {
    struct Case {
        const char* what;
        Lines report;
        // Each line's memo by its sender: C coaching department, P physio department, S club scout,
        // F first team coach, - none. A memo's text is its line.
        std::string senders;
        std::string history;
    } cases[] = {
        {"a success", {"K. Swales (DEFR) increases his CO skill to 7"}, "C", hst("K. Swales", "DEFR", 'Y', "CO", 7)},
        {"a failure carries the last success's value",
         {"K. Swales (DEFR) increases his CO skill to 12", "Attempt to coach N. Bailey (STRC) in PA was unsuccessful",
          "Attempt to coach Al Fry (MIDC) in FL failed - potential reached"},
         "CCC",
         hst("K. Swales", "DEFR", 'Y', "CO", 12) + hst("N. Bailey", "STRC", 'N', "PA", 12) +
             hst("Al Fry", "MIDC", 'P', "FL", 12)},
        {"an attempt without a bracket writes nothing", {"Attempt to coach nobody in particular"}, "C", ""},
        // The value is read behind the first " to ", which is the attempt's.
        {"a line with both words gives two records",
         {"Attempt to coach Bo Lund (DEFL) in TA went well: Bo Lund (DEFL) increases his TA skill to 9"}, "C",
         hst("Bo Lund", "DEFL", 'N', "TA", 0) + hst("Attempt to coach Bo Lund", "DEFL", 'Y', "TA", 0)},
        {"physio, injury and the club scout",
         {"T. Goodall was treated with 3 physio points", "A. Priestley will be unable to play for 6 weeks",
          "Your player Cy Oak was scouted this week by Ashby Town"},
         "PPS", ""},
        {"the first team coach's words in any case, and anything else",
         {"Wants a new POSITION", "The squad is UNHAPPY", "A rousing speech", "The coach has a cold"}, "FFFF", ""},
        {"ignored, blank and booked lines",
         {"The club paid 5000 in wages", "Bonus money of 500", "TRAINING GROUND", "   ", "",
          "Ray Dale was BOOKED in the reserves", "Ashby Town versus Kestrel Rovers in the Cup",
          "Match to be played at Home Park", "Club's are exempt from tax"},
         "---------", ""},
        {"a match report is passed over to four lines after its second man of the match",
         {"Home shots On/Off 3/4   Away shots On/Off 2/2", "Result : 1 1", "MAN OF THE MATCH : Al Fry",
          " 12 mins : a dull game", " 90 mins : Full time", "MAN OF THE MATCH : Al Fry", "Attendance", "Referee",
          "Gate", "Weather", "The coach has a cold"},
         "----------F", ""},
    };
    const std::map<char, std::string> sender = {
        {'C', "Coaching department"}, {'P', "Physio department"}, {'S', "Club Scout"}, {'F', "First team coach"}};
    for (const Case& c : cases) {
        ASSERT_EQ(c.senders.size(), c.report.size()) << c.what;
        std::vector<Memo> want;
        std::string ticker = std::string(90, ' ') + "Kestrel Rovers:     ";
        for (size_t i = 0; i < c.report.size(); ++i) {
            if (c.senders[i] == '-') continue;
            want.push_back({"Pat Quinn manager", sender.at(c.senders[i]), c.report[i]});
            ticker += c.report[i] + "     ";
        }
        Sheet sheet(c.report);
        sheet.harvest();
        EXPECT_EQ(sheet.s.Memos, want) << c.what;
        EXPECT_EQ(sheet.s.TickerText, ticker) << c.what;
        EXPECT_EQ(sheet.s.MemoShown, want.empty() ? 0 : 1) << c.what;
        EXPECT_EQ(sheet.file("0042HST.TXT"), c.history) << c.what;
        EXPECT_TRUE(sheet.messages.entries.empty()) << c.what;
    }
}

// A new week appends whole records and deletes the admin order; the same week again writes nothing.
TEST(Harvest, ANewWeekAppendsItsRecordsAndDeletesTheAdminOrder) {
    const Lines report{"K. Swales (DEFR) increases his CO skill to 7",
                       "Dan Eccles (MIDL) Ashby Town was scouted by your scout this week",
                       "AGE 27 TS 112 ELEVEN MAIN SKILLS : 12 13  9 10 11 14 8 7 6 5 15",
                       "POTENTIAL 145 PERF 63 GLS 4 TL FIGURE 21 SIGNING FIGURE 17 VALUE 412500.5 International? Y "
                       "Retiring? N Flinging? Y"};
    std::string scout = "20261121" + fixedWidth("Dan Eccles", 30) + "MIDL" + fixedWidth(" Ashby Town", 20);
    for (int v : {12, 13, 9, 10, 11, 14, 8, 7, 6, 5, 15, 112, 21, 4, 27, 145, 63, 17}) scout += int16le(v);
    const double value = 412500.5;
    char raw[8];
    std::memcpy(raw, &value, 8);
    scout += std::string(raw, 8) + "YNY";
    ASSERT_EQ(scout.size(), 109u);
    for (bool newTurn : {false, true}) {
        Sheet sheet(report, newTurn);
        sheet.s.Prefs.ScoutFile = (sheet.dir.path() / "gone" / "SCOUT.TXT").string();
        writeSettings(sheet.dir.path(), sheet.s.Prefs);
        sheet.dir.write("adm.kst", "last week's order");
        sheet.dir.write("0042HST.TXT", std::string(50, 'x'));  // a record and a piece of one
        sheet.harvest();
        EXPECT_EQ(sheet.s.Memos.size(), 1u) << "a scout report gives no memo";
        EXPECT_EQ(sheet.s.StatsRefreshDue, newTurn);
        EXPECT_EQ(fs::exists(sheet.dir.path() / "adm.kst"), !newTurn);
        EXPECT_EQ(sheet.file("0042HST.TXT"),
                  newTurn ? std::string(47, 'x') + hst("K. Swales", "DEFR", 'Y', "CO", 7) : std::string(50, 'x'));
        EXPECT_EQ(sheet.file("SCOUT.TXT"), newTurn ? scout : "");
        // The scout file named in the settings is gone: the game folder's is taken, and kept in the settings.
        EXPECT_EQ(readSettings(sheet.dir.path()).ScoutFile, (sheet.dir.path() / "SCOUT.TXT").string());
    }
}

TEST(Harvest, ProblemsAreToldOnceAndWhatWasReadIsKept) {
    struct Case {
        const char* what;
        Lines report;
        bool diskFull;
        size_t memos;
        std::string title;
        std::string inText;
    } cases[] = {
        {"a report that ends inside a match",
         {"The coach has a cold", "Home shots On/Off 3/4   Away shots On/Off 2/2", "MAN OF THE MATCH : Al Fry",
          "MAN OF THE MATCH : Al Fry", "Attendance"},
         false, 1, "Report cut short", "Squadsheets/0042SQUA.TXT ends at line 9, inside a match report"},
        {"a report that ends inside a scout report",
         {"The coach has a cold", "Dan Eccles (MIDL) Ashby Town was scouted by us", "AGE 27 TS 112"}, false, 1,
         "Report cut short", "Squadsheets/0042SQUA.TXT ends after line 7, inside a scout report"},
        {"more memos than are kept", Lines(kMaxMemos + 3, "The coach has a cold"), false, kMaxMemos,
         "Too many weekly reports", "the first 500 are kept"},
        {"a failed append leaves the history file as it was", {"K. Swales (DEFR) increases his CO skill to 7"}, true,
         1, "History not saved", "0042HST.TXT"},
    };
    for (const Case& c : cases) {
        Sheet sheet(c.report);
        const std::string history = hst("Old Boy", "AGKP", 'Y', "PA", 3);
        sheet.dir.write("0042HST.TXT", history);
        if (c.diskFull) atomicWriteFaultHook = [](const fs::path& tmp) { throw WriteError(tmp.string(), "disk full"); };
        sheet.harvest();
        atomicWriteFaultHook = nullptr;
        EXPECT_EQ(sheet.s.Memos.size(), c.memos) << c.what;
        ASSERT_EQ(sheet.messages.entries.size(), 1u) << c.what;
        EXPECT_EQ(sheet.messages.entries[0].title, c.title) << c.what;
        EXPECT_NE(sheet.messages.entries[0].text.find(c.inText), std::string::npos)
            << c.what << ": " << sheet.messages.entries[0].text;
        EXPECT_EQ(sheet.file("SCOUT.TXT"), "") << c.what;
        EXPECT_EQ(sheet.file("0042HST.TXT"), history) << c.what;
    }
}

TEST(LastWeek, EachLineGoesToItsBox) {
    const Lines lines{"Before the report: ignored (DEFC) increases his PA to 3",
                      "Turnsheet processed for Kestrel Rovers",
                      "The club paid 5000 in wages",
                      "K. Swales (DEFR) increases his CO skill to 7",
                      "Attempt to coach N. Bailey (STRC) in PA was unsuccessful",
                      "T. Goodall was treated with 3 physio points",
                      "A. Priestley will be unable to play for 6 weeks",
                      "Your player Cy Oak was scouted this week by Ashby Town",
                      "Dan Eccles (MIDL) Ashby Town was scouted by your scout",
                      "AGE 27 TS 112", "POTENTIAL 145", "Wants a new Position", "Ray Dale was BOOKED",
                      "Ray Dale was SENT OFF", "", "Home shots On/Off 3/4   Away shots On/Off 2/2", "Result : 1 1",
                      "MAN OF THE MATCH : Al Fry", " 12 mins : unseen", "MAN OF THE MATCH : Al Fry", "Attendance",
                      "Referee", "Gate", "Weather", "Home shots On/Off 1/1   Away shots On/Off 0/0",
                      "MAN OF THE MATCH : Bo Lund"};
    const LastWeekBoxes boxes = lastWeekBoxesOf(lines);
    const LastWeekBoxes want = {
        "K. Swales (DEFR) increases his CO skill to 7\r\nAttempt to coach N. Bailey (STRC) in PA was unsuccessful\r\n",
        "T. Goodall was treated with 3 physio points\r\n",
        "A. Priestley will be unable to play for 6 weeks\r\n",
        "Dan Eccles (MIDL) Ashby Town was scouted by your scout\r\nAGE 27 TS 112\r\nPOTENTIAL 145\r\n\r\n",
        "Home shots On/Off 3/4   Away shots On/Off 2/2\r\nResult : 1 1\r\nMAN OF THE MATCH : Al Fry\r\n\r\n"
        "Home shots On/Off 1/1   Away shots On/Off 0/0\r\nMAN OF THE MATCH : Bo Lund\r\n\r\n",
        "Wants a new Position\r\n",
        "Turnsheet processed for Kestrel Rovers\r\nThe club paid 5000 in wages\r\n",
    };
    for (size_t i = 0; i < want.size(); ++i) EXPECT_EQ(boxes[i], want[i]) << kLastWeekBoxes[i];
    EXPECT_EQ(lastWeekBoxesOf({"no marker at all", "Wants a new position"}), LastWeekBoxes{});
}

TEST(Harvest, ReloadingTheWeekChangesNoFileAndANewWeekAppends) {
    TempDir t;
    DemoOptions o = test::smallDemo(11);
    o.weeks = 2;
    makeDemoLeague(t.path(), o);
    RecordingMessages first, second;
    const Session a = loadSession(t.path(), first);
    const auto files = test::gameFiles(t.path());
    const Session b = loadSession(t.path(), second);
    EXPECT_FALSE(b.NewTurn);
    EXPECT_EQ(test::gameFiles(t.path()), files);
    ASSERT_FALSE(a.Memos.empty());
    EXPECT_EQ(b.Memos, a.Memos);
    EXPECT_EQ(b.TickerText, a.TickerText);

    Session s = b;
    RecordingMessages m;
    const fs::path week2 = t.path() / "Archives/week2";
    ASSERT_TRUE(loadNewTurn(s, (week2 / "squad.zip").string(), (week2 / "weekly.zip").string(), m));
    EXPECT_TRUE(s.NewTurn);
    const auto after = test::gameFiles(t.path());
    for (const Club& c : s.Clubs) {
        const std::string name = c.ClubFile + "HST.TXT";
        const std::string old = files.at(name), now = after.at(name);
        // The old records stand; the new ones are the week's coaching lines.
        ASSERT_EQ(now.compare(0, old.size(), old), 0) << name;
        size_t coaching = 0;
        for (const std::string& l : splitLines(after.at("Squadsheets/" + harvestSquadsheetName(c))))
            coaching += (l.find("Attempt to coach") != std::string::npos && l.find('(') != std::string::npos) +
                        (l.find("increases his ") != std::string::npos);
        EXPECT_EQ(now.size() - old.size(), coaching * kHistoryRecordLength) << name;
    }
    EXPECT_GT(after.at("SCOUT.TXT").size(), files.at("SCOUT.TXT").size());
}
