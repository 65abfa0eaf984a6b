#include "files/loadturnform.h"

#include <gtest/gtest.h>

#include "core/gamefolder.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::TempDir;

TEST(LoadTurnForm, Title) {
    struct Case {
        const char* shortName;
        const char* title;
    } cases[] = {{"KFL", "Load new KFL turn"}, {"", "Load new  turn"}, {"Oriole", "Load new Oriole turn"}};
    for (const Case& c : cases) {
        GameIni game;
        game.ShortName = c.shortName;
        EXPECT_EQ(loadTurnTitle(game), c.title);
    }
}

TEST(LoadTurnForm, BackupClicksAndPathsAreWrittenAtTheirPositions) {
    struct Case {
        const char* what;
        std::function<bool(Session&, Messages&)> act;
        std::vector<std::pair<size_t, std::string>> lines;  // 1-based position, value
    } cases[] = {
        {"squad backup", [](Session& s, Messages& m) { return chooseBackup(s, TurnArchive::Squad, 0, m); },
         {{22, " 0 "}}},
        {"weekly backup", [](Session& s, Messages& m) { return chooseBackup(s, TurnArchive::Weekly, 0, m); },
         {{23, " 0 "}}},
        {"paths at OK",
         [](Session& s, Messages& m) { return rememberArchivePaths(s, "/mail/w12/squad.zip", "/mail/w12/weekly.zip", m); },
         {{20, "/mail/w12/squad.zip"}, {21, "/mail/w12/weekly.zip"}}},
    };
    for (const Case& c : cases) {
        TempDir dir;
        Session s;
        s.Folder = GameFolder(dir.path());
        s.Prefs = defaultSettings(dir.path());
        writeSettings(dir.path(), s.Prefs);
        std::vector<std::string> expected = splitLines(dir.read("kestrin.ini"));
        for (const auto& [at, value] : c.lines) expected[at - 1] = value;
        RecordingMessages messages;
        EXPECT_TRUE(c.act(s, messages)) << c.what;
        EXPECT_EQ(dir.read("kestrin.ini"), joinCrLf(expected)) << c.what;
        EXPECT_TRUE(messages.entries.empty()) << c.what;
    }
}

TEST(LoadTurnForm, OptionsOutsideTheTwoAreIgnored) {
    TempDir dir;
    Session s;
    s.Folder = GameFolder(dir.path());
    s.Prefs = defaultSettings(dir.path());
    RecordingMessages messages;
    for (int16_t option : {-1, 2, 7}) EXPECT_FALSE(chooseBackup(s, TurnArchive::Squad, option, messages));
    EXPECT_EQ(s.Prefs.SquadBackup, 1);
    EXPECT_FALSE(fs::exists(dir.path() / "kestrin.ini"));
}
