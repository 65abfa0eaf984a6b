#include <gtest/gtest.h>

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
    const Fixture before = other();
    Fixture loaded = before;
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
        // Cells come for shirts 2 to 11, arrows for 2 to 11 after those of 1 to 10 are cleared.
        TeamSlot w = (k == 0 || k > 10) ? before.Slots[k] : saved.Slots[k];
        w.Player = saved.Slots[k].Player;
        if (k == 0) w.Left2 = w.Top2 = 0;
        EXPECT_EQ(loaded.Slots[k], w) << "shirt " << k + 1;
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
    // A line spoiled, or the file cut before it; either way that line is named.
    const struct {
        int at;
        const char* text;
        bool cut;
    } cases[] = {
        {20, "", true}, {50, "", true}, {66, "", true},  // in the orders, the shirts, the arrows
        {0, "4-4-2", false}, {2, "high", false}, {4, "Park The Bus", false}, {18, "4 - 6 - 0", false},
        {31, "14 for 2", false}, {42, "", false}, {64, "?5", false},  // shirt 3 without a cell; an arrow
    };
    for (const auto& c : cases) {
        std::vector<std::string> lines = good;
        c.cut ? lines.resize(size_t(c.at)) : void(lines[size_t(c.at)] = c.text);
        Fixture f = other();
        try {
            readProfile(f, lines, "Profiles/Bad.txt");
            ADD_FAILURE() << "accepted line " << c.at + 1;
        } catch (const GameFileError& e) {
            EXPECT_EQ(std::tuple(e.file, e.line, e.found), std::tuple("Profiles/Bad.txt", c.at + 1, c.text));
        }
        EXPECT_EQ(f, other()) << c.at + 1;
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
    EXPECT_EQ(std::tuple(f.Tactics, f.Slots[1].Player, f.Slots[2].Player, f.Slots[1].Top),
              std::tuple(5, "Bob Left", "Somebody", 4920));  // shirt 2 named but not placed
}

TEST(Profiles, SavedUnderAName_OverwrittenWithoutAQuestion_ListedAndDeleted) {
    struct Case {
        const char* name;
        bool written;
        std::vector<std::string> said;
    } cases[] = {
        {"", false, {}},
        {"Home/Away", false, {"Refuse|Profile not saved|A profile's name is the name of its file"}},
        {"Cup nights", true, {"Inform|Kestrin|Successfully saved profile."}},
        {"cup NIGHTS", true, {"Inform|Kestrin|Successfully saved profile."}},
    };
    Game g;
    std::map<std::string, std::string> files;
    for (int16_t i = 0; i < int16_t(std::size(cases)); ++i) {
        const Case& c = cases[i];
        g.messages = {};
        Fixture f = ordered();
        f.DefAgg = i;  // each save its own bytes
        EXPECT_EQ(addProfile(g.session, f, c.name, g.messages), c.written) << i;
        if (c.written) files["Cup nights.txt"] = profileText(f);
        const std::vector<std::string> said = shown(g.messages);
        ASSERT_EQ(said.size(), c.said.size()) << i;
        for (size_t k = 0; k < said.size(); ++k) EXPECT_EQ(said[k].rfind(c.said[k], 0), 0u) << said[k];
        EXPECT_EQ(kestrin::test::filesBelow(g.dir.path() / "Profiles"), files) << i;
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
        Game g;
        Club club;
        club.Name = "Ashford Athletic", club.ClubFile = "ashford";
        Fixture noKeeper = other(), noMatch;  // a blank keeper; no competition
        noKeeper.Slots[0].Player = " ", noMatch.Slots[0].Player = "Alan Keeper";
        club.Fixtures = {ordered(), noKeeper, noMatch}, club.FixtureCount = 3;
        g.session.Clubs = {club};
        g.session.Prefs.SaveProf = pref;
        saveTurnsheets(g.session, g.messages);
        std::map<std::string, std::string> want;
        if (pref == 0) want["Ashford Athletic League Harbour Town Home.txt"] = profileText(ordered());
        EXPECT_EQ(kestrin::test::filesBelow(g.dir.path() / "Profiles"), want);
        EXPECT_FALSE(g.dir.read("Turnsheet/ashford.txt").empty());
    }
}
