#include "core/preferences.h"

#include <gtest/gtest.h>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "orders/squad.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::TempDir;

namespace {

Session sessionIn(const TempDir& dir) {
    Session s;
    s.Folder = GameFolder(dir.path());
    s.Prefs = defaultSettings(dir.path());
    return s;
}

}  // namespace

TEST(Preferences, InjuryFigureAsTyped) {
    struct Case {
        const char* typed;
        std::optional<int16_t> stored;
    } cases[] = {
        {"", std::nullopt}, {"0", 1}, {"7", 7}, {"10", 10}, {"11", 10}, {"-3", 1}, {"7abc", 7}, {"abc", 1}, {"05", 5},
    };
    for (const Case& c : cases) EXPECT_EQ(injuryLimitFromText(c.typed), c.stored) << '"' << c.typed << '"';
}

TEST(Preferences, AlertListsHoldTheExportClubs) {
    const std::vector<ExportClub> clubs = {{"Ashby Town", {}}, {"Birchfield", {}}, {"Carrow Rovers", {}}};
    struct Case {
        std::string stored;
        int index;
        size_t lineCount;
    } cases[] = {
        {"No Club Selected", 0, 4},
        {"Birchfield", 2, 4},
        {"Carrow Rovers", 3, 4},
        {"Dunmore Athletic", 4, 5},  // left the export: still shown, at the end
        {"birchfield", 4, 5},        // names are matched exactly
    };
    const std::vector<std::string> listed = {"No Club Selected", "Ashby Town", "Birchfield", "Carrow Rovers"};
    for (const Case& c : cases) {
        std::vector<std::string> lines = alertClubLines(clubs);
        ASSERT_EQ(lines, listed);
        const int at = alertClubIndex(lines, c.stored);
        EXPECT_EQ(at, c.index) << c.stored;
        EXPECT_EQ(lines.size(), c.lineCount) << c.stored;
        EXPECT_EQ(lines[size_t(at)], c.stored);
    }
}

TEST(Preferences, FromFileCaption) {
    struct Case {
        PictureChoice choice;
        const char* caption;
    } cases[] = {
        {{2, "/home/me/pitch.jpg"}, "From /home/me/pitch.jpg"},
        {{0, "/home/me/pitch.jpg"}, "From File"},  // the file is remembered, not the choice
        {{2, ""}, "From File"},
    };
    for (const Case& c : cases) EXPECT_EQ(fromFileCaption(c.choice), c.caption) << c.choice.File;
}

TEST(Preferences, WhenNothingIsWritten) {
    struct Case {
        const char* what;
        bool filling;
        std::function<void(Settings&)> change;
    } cases[] = {
        {"while the screen fills", true, [](Settings& s) { s.Warnings = 1; }},
        {"a change to the same value", false, [](Settings& s) { s.WarnInc = 1; }},
    };
    for (const Case& c : cases) {
        TempDir dir;
        Session s = sessionIn(dir);
        s.FillingScreen = c.filling;
        const Settings before = s.Prefs;
        RecordingMessages messages;
        EXPECT_FALSE(changeSettings(s, messages, c.change)) << c.what;
        EXPECT_FALSE(fs::exists(dir.path() / "kestrin.ini")) << c.what;
        EXPECT_EQ(s.Prefs, before) << c.what;
        EXPECT_TRUE(messages.entries.empty()) << c.what;
    }
}

TEST(Preferences, AFileThatCannotBeWrittenIsToldAndKept) {
    TempDir dir;
    Session s = sessionIn(dir);
    writeSettings(dir.path(), s.Prefs);
    const std::string before = dir.read("kestrin.ini");
    RecordingMessages messages;
    const fs::path target = dir.path() / "kestrin.ini";
    atomicWriteFaultHook = [&](const fs::path&) { throw WriteError(target.string(), "disk full"); };
    const bool changed = changeSettings(s, messages, [](Settings& p) { p.RetTurn = 1; });
    atomicWriteFaultHook = nullptr;

    EXPECT_TRUE(changed);
    EXPECT_EQ(s.Prefs.RetTurn, 1);  // holds for the session
    EXPECT_EQ(dir.read("kestrin.ini"), before);
    test::expectOneMessage(messages, RecordingMessages::Kind::Refuse, "Preferences not saved",
              "The settings file kestrin.ini could not be written: disk full.\r\n\r\nThe change holds until the "
              "program closes. Check that the game folder may be written to, then make the change again to keep "
              "it.");
    std::vector<std::string> leftovers;
    for (const auto& e : fs::directory_iterator(dir.path())) leftovers.push_back(e.path().filename().string());
    EXPECT_EQ(leftovers, std::vector<std::string>{"kestrin.ini"});
}
