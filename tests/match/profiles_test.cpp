#include <gtest/gtest.h>

#include <functional>

#include "core/errors.h"
#include "files/turnsheet.h"
#include "match/fixtureorders.h"
#include "match/ordertables.h"
#include "match/profiles.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::shown;
using kestrin::test::TempDir;

namespace {

// Every order set, no two alike, shirts placed on cells with a few arrows.
Fixture ordered() {
    Fixture f;
    f.Venue = "H", f.Competition = "League", f.Opponent = "Harbour Town";
    f.Defence = 4, f.Midfield = 4, f.Attack = 2, f.DefAgg = 1, f.MidAgg = 2, f.AttAgg = 3, f.Tactics = 5;
    f.Captain = 4, f.Penalties = 9, f.Corners = 7, f.FreeKicks = 0, f.Pace = 2, f.PassHeight = 2, f.PassLength = 1;
    f.CornersAiming = 10, f.Revolver = 5, f.Snappy = 0;
    f.ChangeOneTime = 60, f.ChangeOneFormation = {3, 13, 0}, f.ChangeOneTactic = {0, 9, 24};
    f.ChangeTwoTime = 70, f.ChangeTwoFormation = {11, 1, 2}, f.ChangeTwoTactic = {2, 23, 10};
    f.SubOneTime = 50, f.SubOneAction = {1115, 3112, 21111};
    f.SubTwoTime = 80, f.SubTwoAction = {2119, 4113, 11110};
    const char* names[] = {"Alan Keeper", "Bob Left", "Carl Centre", "", "Ed Right", "Fred Wing", "Gus Engine",
                           "Hal Anchor", "Ian Flank", "Jim Poacher", "Ken Target", "Len Spare", "Jos\xE9 Cruz"};
    for (int k = 0; k < 13; ++k) {
        f.Slots[size_t(k)].Player = names[k];
        if (k < 11) f.Slots[size_t(k)].Left = 600 + 1800 * (k % 5), f.Slots[size_t(k)].Top = 600 + 1080 * (k % 4);
    }
    f.Slots[4].Left2 = 7800, f.Slots[4].Top2 = 2760;
    f.Slots[10].Left2 = 4200, f.Slots[10].Top2 = 600;
    return f;
}

// Another match whose shirts all carry arrows and stand elsewhere.
Fixture other() {
    Fixture f;
    f.Venue = "A", f.Competition = "Cup", f.Opponent = "Milltown Rovers", f.Tactics = 1, f.DefAgg = 5;
    for (TeamSlot& s : f.Slots) s = {"Somebody", 2400, 4920, 6000, 1680};
    return f;
}

struct Game {
    TempDir dir;
    Session session;
    RecordingMessages messages;
    Game() { session.Folder = GameFolder(dir.path()); }
};

}  // namespace

TEST(Profiles, SavedProfileLoadsIntoAnotherFixtureFieldByField) {
    Game g;
    const Fixture saved = ordered();
    saveProfile(g.session.Folder, "Cup nights", saved);
    Fixture loaded = other();
    ASSERT_EQ(loadProfile(g.session, loaded, "Cup nights", g.messages), ProfileLoad::Loaded);
    EXPECT_EQ(shown(g.messages), std::vector<std::string>{"Ask|Question|Are you sure you want to load this profile?"});
    EXPECT_TRUE(g.session.TurnChanged);

    Fixture want = saved;
    // What a profile can't hold: "13 for 11", a formation only reports know,
    // and a change tactic of 0, which is written as the first tactic.
    want.SubOneAction[2] = 0, want.ChangeOneFormation[1] = 0, want.ChangeOneTactic[0] = 1;
    for (const FixtureControlInfo& c : fixtureControls())
        EXPECT_EQ(fixtureFieldValue(loaded, c.Control), fixtureFieldValue(want, c.Control)) << c.Field;
    EXPECT_EQ(formationNumbersText(loaded.Defence, loaded.Midfield, loaded.Attack), "4 - 4 - 2");
    EXPECT_EQ(loaded.Opponent, "Milltown Rovers");
    for (size_t k = 0; k < 13; ++k) {
        SCOPED_TRACE("shirt " + std::to_string(k + 1));
        const TeamSlot& got = loaded.Slots[k];
        const TeamSlot& from = (k == 0 || k > 10) ? other().Slots[k] : saved.Slots[k];  // cells of shirts 2 to 11
        EXPECT_EQ(got.Player, saved.Slots[k].Player);
        EXPECT_EQ(std::pair(got.Left, got.Top), std::pair(from.Left, from.Top));
        const TeamSlot& arrow = k == 0 ? TeamSlot{} : k > 10 ? other().Slots[k] : saved.Slots[k];
        EXPECT_EQ(std::pair(got.Left2, got.Top2), std::pair(arrow.Left2, arrow.Top2));
    }
}

TEST(Profiles, FileHoldsTheOrdersThenTheShirtsThenTheArrowsInFixedLines) {
    const std::string text = profileText(ordered());
    const std::vector<std::string> want = {
        "4 - 4 - 2", " 1 ", " 2 ", " 3 ", "Stopcross", " 4 ", " 9 ", " 7 ", " 0 ", " 2 ", " 2 ", " 1 ", " 10 ",
        " 5 ", " 0 ", " 60 ", "4 - 2 - 4", "3 - 6 - 1", "", "No Specific Tactic Employed", "Snappy", "No Tactic",
        " 70 ", "3 - 5 - 2", "4 - 3 - 3", "4 - 4 - 2", "Pressure", "Sardines", "Revolver", " 50 ", "12 for 5",
        "12 for worst midfielder", "No Change", " 80 ", "13 for 9", "13 for worst attacker", "12 for 10",
        "Alan Keeper", "", "Bob Left", "D2", "Carl Centre", "C3", "", "B4", "Ed Right", "E5", "Fred Wing", "D1",
        "Gus Engine", "C2", "Hal Anchor", "B3", "Ian Flank", "E4", "Jim Poacher", "D5", "Ken Target", "C1",
        "Len Spare", "Jos\xE9 Cruz", "", "", "", "C5", "", "", "", "", "", "E3"};
    EXPECT_EQ(text, joinCrLf(want));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), kProfileLines);
}

TEST(Profiles, ShortOrWrongFileIsRefusedByLineAndTheFixtureStaysAsItWas) {
    const std::vector<std::string> good = splitLines(profileText(ordered()));
    struct Case {
        const char* what;
        std::function<void(std::vector<std::string>&)> spoil;
        int line;
        const char* found;
    } cases[] = {
        {"cut in the orders", [](auto& l) { l.resize(20); }, 21, ""},
        {"cut in the shirts", [](auto& l) { l.resize(50); }, 51, ""},
        {"cut in the arrows", [](auto& l) { l.resize(66); }, 67, ""},
        {"formation without blanks", [](auto& l) { l[0] = "4-4-2"; }, 1, "4-4-2"},
        {"aggression in words", [](auto& l) { l[2] = "high"; }, 3, "high"},
        {"tactic unknown", [](auto& l) { l[4] = "Park The Bus"; }, 5, "Park The Bus"},
        {"formation unknown", [](auto& l) { l[18] = "4 - 6 - 0"; }, 19, "4 - 6 - 0"},
        {"substitution unknown", [](auto& l) { l[31] = "14 for 2"; }, 32, "14 for 2"},
        {"shirt 3 without a cell", [](auto& l) { l[42] = ""; }, 43, ""},
        {"arrow not a cell", [](auto& l) { l[64] = "?5"; }, 65, "?5"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<std::string> lines = good;
        c.spoil(lines);
        Fixture f = other();
        try {
            readProfile(f, lines, "Profiles/Bad.txt");
            ADD_FAILURE() << "accepted";
        } catch (const GameFileError& e) {
            EXPECT_EQ(e.file, "Profiles/Bad.txt");
            EXPECT_EQ(e.line, c.line);
            EXPECT_EQ(e.found, c.found);
        }
        EXPECT_EQ(f, other());
    }

    Game g;
    g.dir.write("Profiles/Bad.txt", joinCrLf({good.begin(), good.begin() + 3}));
    Fixture f = other();
    EXPECT_EQ(loadProfile(g.session, f, "bad", g.messages), ProfileLoad::Refused);
    EXPECT_EQ(f, other());
    EXPECT_FALSE(g.session.TurnChanged);
    EXPECT_EQ(shown(g.messages).back(),
              "Refuse|Profile not loaded|The profile Profiles/Bad.txt could not be read: line 4 should hold the "
              "attack's aggression (the file ends before it) but holds nothing.\r\n\r\nThe fixture's orders are as "
              "they were. Save the profile again from a fixture set up the way you want, or delete it.");
}

TEST(Profiles, OlderProfilesKeepWhatTheyHold) {
    const std::vector<std::string> good = splitLines(profileText(ordered()));
    // Before arrows: shirt 11 keeps its own, the others lose theirs.
    Fixture noArrows = other();
    EXPECT_FALSE(readProfile(noArrows, {good.begin(), good.begin() + 61}, "p"));
    EXPECT_EQ(std::pair(noArrows.Slots[4].Top2, noArrows.Slots[10].Top2), std::pair(0, 1680));
    // Before cells: a number in shirt 2's cell ends the reading there.
    Game g;
    std::vector<std::string> old = good;
    old[40] = "7";
    g.dir.write("Profiles/Old.txt", joinCrLf(old));
    Fixture f = other();
    EXPECT_EQ(loadProfile(g.session, f, "Old", g.messages), ProfileLoad::OldProfile);
    EXPECT_EQ(shown(g.messages).back(), "Warn|" + std::string(kOldProfileTitle) + "|" + std::string(kOldProfileText));
    EXPECT_EQ(f.Tactics, 5);
    EXPECT_EQ(f.Slots[1].Player, "Bob Left");
    EXPECT_EQ(f.Slots[2].Player, "Somebody");
    EXPECT_EQ(f.Slots[1].Top, 4920);
}

TEST(Profiles, SavedUnderAName_AskedBeforeReplacing_ListedAndDeleted) {
    struct Case {
        const char* name;
        bool replaceAnswer;
        bool written;
        std::vector<std::string> said;
    } cases[] = {
        {"", true, false, {}},
        {"Home/Away", true, false, {"Refuse|Profile not saved"}},
        {"Cup nights", true, true, {"Inform|Kestrin|Successfully saved profile."}},
        {"cup NIGHTS", false, false, {"Ask|Question|There is already a profile called cup NIGHTS."}},
        {"cup NIGHTS", true, true, {"Ask|Question", "Inform|Kestrin"}},
    };
    Game g;
    std::string file;
    for (int16_t i = 0; i < int16_t(std::size(cases)); ++i) {
        const Case& c = cases[i];
        SCOPED_TRACE(i);
        g.messages = {};
        g.messages.answers = {c.replaceAnswer};
        Fixture f = ordered();
        f.DefAgg = i;
        EXPECT_EQ(addProfile(g.session, f, c.name, g.messages), c.written);
        if (c.written) file = profileText(f);
        const std::vector<std::string> said = shown(g.messages);
        ASSERT_EQ(said.size(), c.said.size());
        for (size_t k = 0; k < said.size(); ++k) EXPECT_EQ(said[k].rfind(c.said[k], 0), 0u) << said[k];
        EXPECT_EQ(kestrin::test::filesBelow(g.dir.path() / "Profiles"),
                  (file.empty() ? std::map<std::string, std::string>{}
                                : std::map<std::string, std::string>{{"Cup nights.txt", file}}));
    }
    g.dir.write("Profiles/alpha.TXT", "");
    EXPECT_EQ(profileNames(g.session.Folder), (std::vector<std::string>{"alpha", "Cup nights"}));
    g.messages.answers = {false, true};
    EXPECT_FALSE(deleteProfile(g.session.Folder, "alpha", g.messages));
    EXPECT_TRUE(deleteProfile(g.session.Folder, "Alpha", g.messages));
    EXPECT_EQ(profileNames(g.session.Folder), std::vector<std::string>{"Cup nights"});
}

TEST(Profiles, SavedWithTheTurnsheetsOnlyWhenThePreferenceAsks) {
    for (int16_t pref : {0, 1}) {
        SCOPED_TRACE(pref);
        Game g;
        Club club;
        club.Name = "Ashford Athletic", club.ClubFile = "ashford";
        Fixture noKeeper = other(), noMatch;
        noKeeper.Slots[0].Player = " ";
        noMatch.Slots[0].Player = "Alan Keeper";
        club.Fixtures = {ordered(), noKeeper, noMatch};
        club.FixtureCount = 3;
        g.session.Clubs = {club};
        g.session.Prefs.SaveProf = pref;
        saveTurnsheets(g.session, g.messages);
        const auto files = kestrin::test::filesBelow(g.dir.path() / "Profiles");
        if (pref == 0) {
            ASSERT_EQ(files.size(), 1u);
            EXPECT_EQ(files.begin()->first, "Ashford Athletic League Harbour Town Home.txt");
            EXPECT_EQ(files.begin()->second, profileText(ordered()));
        } else {
            EXPECT_TRUE(files.empty());
        }
        EXPECT_TRUE(g.dir.read("Turnsheet/ashford.txt").size() > 0);
    }
}
