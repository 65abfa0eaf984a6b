#include "core/settings.h"

#include <gtest/gtest.h>

#include "core/gamefolder.h"
#include "support/testsupport.h"

using namespace kestrin;

namespace {

const std::filesystem::path kFolder = "/games/kestrin";

// Every setting away from its default.
Settings changedSettings() {
    Settings s = defaultSettings(kFolder);
    int n = 0;
    for (PictureChoice* p : {&s.MainPic, &s.SquadPic, &s.FixPic, &s.PitchPic, &s.ScoutPic, &s.LastPic, &s.NewsPic,
                             &s.PrefPic, &s.AutoPic}) {
        p->Option = 2;
        p->File = "/pics/picture" + std::to_string(++n) + ".bmp";
    }
    s.InjuryLimitSetting = 6, s.Warnings = 1, s.WarnInc = 0, s.SquadBackup = 0, s.WeeklyBackup = 0, s.WarnNot = 1;
    s.SquadPath = "/mail/squads", s.WeeklyPath = "/mail/weekly", s.MatchViewerPath = "/opt/viewer";
    s.StoredTurnStamp = "Turn 312 on 12/03/2024";
    for (auto& v : s.VidiOpt) v = 0;
    for (size_t i = 0; i < s.VidiAlert.size(); ++i) s.VidiAlert[i] = "Club " + std::to_string(i);
    s.RetTurn = 1, s.SaveProf = 0, s.ScoutFile = "/games/scout.txt", s.StatsFile = "/games/stats.db";
    return s;
}

std::string firstLines(const std::string& bytes, size_t count) {
    size_t at = 0;
    for (size_t i = 0; i < count; ++i) at = bytes.find("\r\n", at) + 2;
    return bytes.substr(0, at);
}

}  // namespace

TEST(Settings, NoFileGivesEveryDefault) {
    test::TempDir dir;
    Settings s = readSettings(dir.path());
    EXPECT_EQ(s, defaultSettings(dir.path()));
    EXPECT_EQ(s.InjuryLimitSetting, 10);
    EXPECT_EQ(s.VidiAlert[4], "No Club Selected");
    EXPECT_EQ(s.ScoutFile, (dir.path() / "SCOUT.TXT").string());
    EXPECT_EQ(parseSettings("", kFolder), defaultSettings(kFolder));
}

TEST(Settings, AFileEndingEarlyKeepsTheRemainingDefaults) {
    const Settings all = changedSettings();
    Settings got = parseSettings(firstLines(settingsBytes(all), 26), kFolder);

    // Everything from the Vidiprinter options on is missing and takes its default.
    const Settings defaults = defaultSettings(kFolder);
    Settings want = all;
    want.VidiOpt = defaults.VidiOpt, want.VidiAlert = defaults.VidiAlert, want.RetTurn = defaults.RetTurn;
    want.ScoutFile = defaults.ScoutFile, want.StatsFile = defaults.StatsFile, want.SaveProf = defaults.SaveProf;
    want.AutoPic = defaults.AutoPic;
    EXPECT_EQ(got, want);
    EXPECT_EQ(got.VidiOpt[0], 1);
}

TEST(Settings, InjuryLimitOutsideOneToTenBecomesTen) {
    struct Case {
        const char* stored;
        int16_t want;
    } cases[] = {{" 0 ", 10}, {" 11 ", 10}, {"-3 ", 10}, {" 1 ", 1}, {" 7 ", 7}};
    for (const Case& c : cases) {
        std::string bytes;
        for (int i = 0; i < 8; ++i) bytes += " 0 \r\n\r\n";
        bytes += std::string(c.stored) + "\r\n";
        EXPECT_EQ(parseSettings(bytes, kFolder).InjuryLimitSetting, c.want) << c.stored;
    }
}

TEST(Settings, ACommaInAPathShiftsTheLaterValues) {
    Settings s = changedSettings();
    s.ScoutFile = "/games/a,b/SCOUT.TXT";
    Settings got = parseSettings(settingsBytes(s), kFolder);
    EXPECT_EQ(got.ScoutFile, "/games/a");
    EXPECT_EQ(got.StatsFile, "b/SCOUT.TXT");
    // The stats path then lands where a number belongs, which ends the reading.
    EXPECT_EQ(got.SaveProf, 1);
    EXPECT_EQ(got.AutoPic, PictureChoice{});
    EXPECT_EQ(got.RetTurn, 1);  // everything before the comma is read
}

TEST(Settings, WrittenSettingsReadBackTheSame) {
    test::TempDir dir;
    Settings s = changedSettings();
    writeSettings(dir.path(), s);
    EXPECT_EQ(dir.read("kestrin.ini"), settingsBytes(s));
    EXPECT_EQ(readSettings(dir.path()), s);
}

TEST(Settings, NumbersAreWrittenWithABlankEachSide) {
    Settings s = defaultSettings(kFolder);
    s.MainPic = {2, "/pics/main.bmp"};
    s.InjuryLimitSetting = 5;
    s.Warnings = -1;
    std::string bytes = settingsBytes(s);
    EXPECT_EQ(firstLines(bytes, 4), " 2 \r\n/pics/main.bmp\r\n 0 \r\n\r\n");
    std::vector<std::string> lines = splitLines(bytes);
    ASSERT_GE(lines.size(), 19u);
    EXPECT_EQ(lines[16], " 5 ");
    EXPECT_EQ(lines[17], "-1 ");
    EXPECT_EQ(lines[18], " 1 ");
    EXPECT_EQ(bytes.substr(bytes.size() - 2), "\r\n");
}
